#include "editors/ConfigDialogFlags.h"

#include "browse/DialogButtons.h"
#include "editors/FlagAlphabets.h"
#include "editors/FlagPanel.h"

#include <QPushButton>
#include <QVBoxLayout>

ConfigDialogFlags::ConfigDialogFlags(QWidget *parent)
    : QDialog(parent)
    , m_panel(new FlagPanel(chooserFlags, QLatin1String("Label1"), this))
{
    setObjectName(QStringLiteral("ConfigDialogFlags"));
    setWindowTitle(QStringLiteral("File and Registry Flags"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    QPushButton *okButton = addDialogButtons(*this, *layout, tr("OK"), QStringLiteral("&Cancel"));
    connect(okButton, &QPushButton::clicked, this, [this] {
        BuildFlags();
        done(OK);
    });
    m_panel->nextInFocusChain()->setFocus();
}

const QString &ConfigDialogFlags::BuildFlags()
{
    m_flags = m_panel->BuildFlags();
    return m_flags;
}

void ConfigDialogFlags::reject()
{
    done(Cancel);
}

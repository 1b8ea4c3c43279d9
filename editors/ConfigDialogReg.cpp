#include "editors/ConfigDialogReg.h"

#include "browse/BrowseReg.h"
#include "editors/FlagAlphabets.h"
#include "editors/LineEdit.h"

#include <QPointer>
#include <QPushButton>

namespace {

constexpr QLatin1Char separator('\\');

} // namespace

ConfigDialogReg::ConfigDialogReg(const EditorServices &services, QWidget *parent)
    : FlagEditorForm(QLatin1String("ConfigDialogReg"), QStringLiteral("Registry"), services.messages, parent)
    , m_services(services)
    , m_objectName(addObjectField(QStringLiteral("Object to affect")))
{
    connect(addButtonBehind(QLatin1String("ObjBrowse"), QStringLiteral("Browse...")), &QPushButton::clicked, this,
            &ConfigDialogReg::chooseKey);
    addPrefix();
    addFlags(registryFlags);
    addButtons(QStringLiteral("&Apply"), QStringLiteral("&Close"));
}

QString ConfigDialogReg::object() const
{
    const QString path = FlagEditorForm::object();
    // Without it a bare hive would not be told from any other word.
    return path.contains(separator) ? path : path + separator;
}

void ConfigDialogReg::chooseKey()
{
    // It goes with this form, should that end while it is open.
    const QPointer<BrowseReg> picker =
        new BrowseReg(m_services.registry, m_services.messages, browsedHost(), isRemote(), this);
    picker->SetItem(m_objectName->line());
    const int result = picker->exec();
    if (!picker)
        return;
    if (result == QDialog::Accepted)
        m_objectName->setLine(picker->keyPath());
    picker->deleteLater();
}

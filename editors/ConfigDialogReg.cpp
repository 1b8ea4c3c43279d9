#include "editors/ConfigDialogReg.h"

#include "browse/BrowseReg.h"
#include "editors/EditorServices.h"
#include "editors/FlagAlphabets.h"
#include "editors/LineEdit.h"
#include "editors/RunDialog.h"

#include <QPushButton>

namespace {

constexpr QLatin1Char separator('\\');

} // namespace

ConfigDialogReg::ConfigDialogReg(const EditorServices &services, QWidget *parent)
    : FlagEditorForm(QLatin1String("ConfigDialogReg"), QStringLiteral("Registry"), services.messages, parent)
    , m_registry(services.registry)
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
    auto *picker = new BrowseReg(m_registry, messages(), browsedHost(), isRemote(), this);
    picker->SetItem(m_objectName->line());
    runDialog(picker, [&](int result) {
        if (result == QDialog::Accepted)
            m_objectName->setLine(picker->keyPath());
    });
}

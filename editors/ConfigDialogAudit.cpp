#include "editors/ConfigDialogAudit.h"

#include "editors/EditorServices.h"
#include "editors/FlagAlphabets.h"

ConfigDialogAudit::ConfigDialogAudit(const EditorServices &services, QWidget *parent)
    : PolicyEditorForm(QLatin1String("ConfigDialogAudit"), QStringLiteral("Audit Policy"), QLatin1String("AUDITPOLICY"),
                       services.messages, parent)
{
    addFlags(auditPolicyFlags);
    addButtons(QStringLiteral("&Apply"), QStringLiteral("Cancel"));
}

#include "editors/ConfigDialogPolicy.h"

#include "editors/EditorServices.h"
#include "editors/FlagAlphabets.h"

#include <QLabel>

ConfigDialogPolicy::ConfigDialogPolicy(const EditorServices &services, QWidget *parent)
    : PolicyEditorForm(QLatin1String("ConfigDialogPolicy"), QStringLiteral("Account Policy"),
                       QLatin1String("ACCOUNTPOLICY"), services.messages, parent)
{
    auto *heading = new QLabel(QStringLiteral("Policies"), this);
    heading->setObjectName(QStringLiteral("Label1"));
    addPart(*heading);
    addFlags(accountPolicyFlags);
    addButtons(QStringLiteral("&Apply"), QStringLiteral("Cancel"));
}

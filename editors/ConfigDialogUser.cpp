#include "editors/ConfigDialogUser.h"

#include "browse/BrowseUsers.h"
#include "editors/FlagAlphabets.h"

const AccountEditorForm::Kind ConfigDialogUser::kind{QLatin1String("ConfigDialogUser"),
                                                     QLatin1String("User"),
                                                     QLatin1String("User name (wildcards permitted)"),
                                                     QLatin1String("NTUSER:"),
                                                     userFlags,
                                                     &BrowseUsers::ShowUsers};

ConfigDialogUser::ConfigDialogUser(const EditorServices &services, QWidget *parent)
    : AccountEditorForm(kind, services, parent)
{
}

#include "editors/ConfigDialogGroup.h"

#include "browse/BrowseUsers.h"
#include "editors/FlagAlphabets.h"

const AccountEditorForm::Kind ConfigDialogGroup::kind{QLatin1String("ConfigDialogGroup"),
                                                      QLatin1String("Group"),
                                                      QLatin1String("Group name (wildcards permitted)"),
                                                      QLatin1String("NTGROUP:"),
                                                      groupFlags,
                                                      &BrowseUsers::ShowGroups};

ConfigDialogGroup::ConfigDialogGroup(const EditorServices &services, QWidget *parent)
    : AccountEditorForm(kind, services, parent)
{
}

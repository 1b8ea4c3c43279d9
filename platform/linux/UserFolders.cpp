#include "platform/linux/UserFolders.h"

#include <QByteArray>

#include <pwd.h>
#include <unistd.h>

void settleUserFolders()
{
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
        if (!qgetenv(variable).startsWith('/'))
            qunsetenv(variable);
    }
    if (qgetenv("HOME").startsWith('/'))
        return;
    const passwd *user = getpwuid(geteuid());
    if (user != nullptr && user->pw_dir[0] == '/')
        qputenv("HOME", user->pw_dir);
}

#include "platform/Platform.h"

#include "platform/ByteText.h"
#include "platform/linux/IniUserSettings.h"
#include "platform/linux/LinuxFileAccess.h"

#include <QDir>
#include <QStandardPaths>

namespace {

/// Folders of the XDG base directory rules; Qt 6.4 names no state folder.
QByteArray stateFolder()
{
    const QByteArray folder = qgetenv("XDG_STATE_HOME");
    return folder.startsWith('/') ? folder : encodeText(QDir::homePath()) + "/.local/state";
}

} // namespace

Platform makePlatform(const QString &title, int argc, const char *const *argv)
{
    Platform platform;
    platform.files = std::make_unique<LinuxFileAccess>(std::make_unique<SystemCalls>(),
                                                       stateFolder() + '/' + encodeText(title) + "/unfinished");
    const QString configuration = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    platform.userSettings =
        std::make_unique<IniUserSettings>(*platform.files, QStringLiteral("%1/%2/%2.ini").arg(configuration, title));
    for (int i = 1; i < argc; ++i)
        platform.commandLine.arguments << decodeBytes(argv[i]);
    platform.programPath = {QStringLiteral("/"), QString()};
    return platform;
}

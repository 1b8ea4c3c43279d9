#include "platform/Platform.h"

#include "platform/AidLibrary.h"
#include "platform/ByteText.h"
#include "platform/linux/DesktopFileTypes.h"
#include "platform/linux/EndSignals.h"
#include "platform/linux/IniUserSettings.h"
#include "platform/linux/LateDataSources.h"
#include "platform/linux/LateDirectory.h"
#include "platform/linux/LinuxAccounts.h"
#include "platform/linux/LinuxFileAccess.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxPrograms.h"
#include "platform/linux/ServiceLibrary.h"
#include "platform/linux/SqliteRegistry.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/XchmHelpViewer.h"

#include <QDir>
#include <QStandardPaths>
#include <QSysInfo>
#include <QVersionNumber>

#include <pwd.h>
#include <unistd.h>

#include <algorithm>

namespace {

/// Folders of the XDG base directory rules; Qt 6.4 names no state folder.
QByteArray stateFolder()
{
    const QByteArray folder = qgetenv("XDG_STATE_HOME");
    return folder.startsWith('/') ? folder : encodeText(QDir::homePath()) + "/.local/state";
}

QByteArray registryFile(const QString &title)
{
    const QByteArray given = qgetenv("ZENTILCONF_REGISTRY");
    if (given.isEmpty())
        return encodeText(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QLatin1Char('/') +
                          title + QStringLiteral("/registry.db"));
    return given.startsWith('/') ? given : encodeText(QDir::currentPath()) + '/' + given;
}

/// The user's name where it can be a key's name, else the number.
QByteArray registryUserKey()
{
    const passwd *user = getpwuid(geteuid());
    const QByteArray name = user == nullptr ? QByteArray() : QByteArray(user->pw_name);
    const bool isKeyName = !name.isEmpty() && std::all_of(name.begin(), name.end(),
                                                          [](char c) { return c > ' ' && c <= '~' && c != '\\'; });
    return isKeyName ? name : QByteArray::number(geteuid());
}

quint32 kernelVersionWord()
{
    const QVersionNumber version = QVersionNumber::fromString(QSysInfo::kernelVersion());
    return static_cast<quint32>((version.majorVersion() & 0xFF) | (version.minorVersion() & 0xFF) << 8);
}

} // namespace

Platform makePlatform(const QString &title, int argc, const char *const *argv)
{
    settleUserFolders();
    Platform platform;
    platform.files = std::make_unique<LinuxFileAccess>(std::make_unique<SystemCalls>(),
                                                       stateFolder() + '/' + encodeText(title) + "/unfinished");
    const QString configuration = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QByteArray drivesFolder = encodeText(configuration + QLatin1Char('/') + title) + "/dosdevices";
    platform.fileSystem = std::make_unique<LinuxFileSystem>(drivesFolder);
    platform.userSettings =
        std::make_unique<IniUserSettings>(*platform.files, QStringLiteral("%1/%2/%2.ini").arg(configuration, title));
    platform.registry = std::make_unique<SqliteRegistry>(registryFile(title), registryUserKey);
    platform.fileTypes = std::make_unique<DesktopFileTypes>(
        *platform.files, QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation), configuration);
    platform.accounts = std::make_unique<LinuxAccounts>(std::make_unique<NameService>());
    platform.directory = std::make_unique<LateDirectory>(ServiceLibrary::folders);
    platform.scrambler = std::make_unique<AidLibrary>(QStringLiteral("runaid"), QStringConverter::Latin1);
    platform.dataSources = std::make_unique<LateDataSources>(ServiceLibrary::folders);
    platform.programs = std::make_unique<LinuxPrograms>();
    platform.helpViewer = std::make_unique<XchmHelpViewer>(*platform.programs, drivesFolder);
    platform.endRequests = std::make_unique<EndSignals>();
    for (int i = 1; i < argc; ++i)
        platform.commandLine.arguments << decodeBytes(argv[i]);
    platform.programPath = {QStringLiteral("/"), QString()};
    platform.versionWord = kernelVersionWord();
    return platform;
}

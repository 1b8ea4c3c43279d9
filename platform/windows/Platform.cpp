#include "platform/Platform.h"

#include "platform/AidLibrary.h"
#include "platform/LdapDirectory.h"
#include "platform/OdbcDataSources.h"
#include "platform/windows/CommandLineText.h"
#include "platform/windows/HtmlHelpViewer.h"
#include "platform/windows/WindowsAccounts.h"
#include "platform/windows/WindowsFileAccess.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsFileTypes.h"
#include "platform/windows/WindowsPrograms.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsUserSettings.h"

#include <QDir>
#include <QStandardPaths>
#include <qt_windows.h>

Platform makePlatform(const QString &title, int, const char *const *)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString unfinished =
        QDir::toNativeSeparators(data + QLatin1Char('/') + title + QStringLiteral("/Unfinished"));

    Platform platform;
    platform.files = std::make_unique<WindowsFileAccess>(std::make_unique<WindowsCalls>(), unfinished);
    platform.fileSystem = std::make_unique<WindowsFileSystem>();
    platform.userSettings = std::make_unique<WindowsUserSettings>(QStringLiteral("Software\\") + title);
    platform.registry = std::make_unique<WindowsRegistry>();
    platform.fileTypes = std::make_unique<WindowsFileTypes>();
    platform.accounts = std::make_unique<WindowsAccounts>();
    platform.directory = std::make_unique<LdapDirectory>();
    platform.scrambler = std::make_unique<AidLibrary>(QStringLiteral("runaid"), QStringConverter::System);
    platform.dataSources = std::make_unique<OdbcDataSources>();
    platform.programs = std::make_unique<WindowsPrograms>();
    platform.helpViewer = std::make_unique<HtmlHelpViewer>();
    platform.commandLine.rawText = behindProgramName(QString::fromWCharArray(GetCommandLineW()));
    platform.programPath = {QStringLiteral("\\"), QStringLiteral(".exe")};
    platform.versionWord = GetVersion();
    return platform;
}

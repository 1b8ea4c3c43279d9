#pragma once

#include "platform/Accounts.h"
#include "platform/DataSources.h"
#include "platform/Directory.h"
#include "platform/EndRequests.h"
#include "platform/FileAccess.h"
#include "platform/FileSystem.h"
#include "platform/FileTypes.h"
#include "platform/HelpViewer.h"
#include "platform/PasswordScrambler.h"
#include "platform/Programs.h"
#include "platform/Registry.h"
#include "platform/UserSettings.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

/// How the program was called, as far as the system tells it.
struct CommandLine
{
    /// Everything behind the program's name as one text, where the system hands it over so (Windows).
    std::optional<QString> rawText;
    /// The arguments, where the shell has already taken quotes and blanks apart.
    QStringList arguments;
};

/// How the system writes the path of a program.
struct ProgramPathForm
{
    QString separator;
    QString suffix;
};

/// The services of the operating system: made once in main() and handed down.
struct Platform
{
    std::unique_ptr<FileAccess> files;
    std::unique_ptr<FileSystem> fileSystem;
    std::unique_ptr<UserSettings> userSettings;
    std::unique_ptr<Registry> registry;
    /// Uses files, and goes before them.
    std::unique_ptr<FileTypes> fileTypes;
    std::unique_ptr<Accounts> accounts;
    std::unique_ptr<Directory> directory;
    std::unique_ptr<PasswordScrambler> scrambler;
    std::unique_ptr<DataSources> dataSources;
    std::unique_ptr<Programs> programs;
    /// Uses programs, and goes before them.
    std::unique_ptr<HelpViewer> helpViewer;
    /// nullptr where the system asks through windows alone.
    std::unique_ptr<EndRequests> endRequests;
    CommandLine commandLine;
    ProgramPathForm programPath;
    /// The system's version as GetVersion() lays it out: major version in the lowest byte, minor version in the next.
    quint32 versionWord = 0;
};

/// @param title the program's title, under which the system keeps what belongs to it
[[nodiscard]] Platform makePlatform(const QString &title, int argc, const char *const *argv);

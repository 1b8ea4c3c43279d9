#pragma once

#include "platform/FileTypes.h"

#include <QString>

class FileAccess;

/// Associations as the desktops of freedesktop.org have them: a MIME type for the extension, a desktop entry for the
/// program, and the user's list of what opens what. A package's own MIME type and entry are used where they start this
/// very program; otherwise the user gets them below the data folder.
class DesktopFileTypes final : public FileTypes
{
public:
    /// @param dataFolder the user's, $XDG_DATA_HOME
    /// @param configurationFolder the user's, $XDG_CONFIG_HOME
    DesktopFileTypes(FileAccess &files, const QString &dataFolder, const QString &configurationFolder);

    /// @throws RuntimeError as FileAccess::writeFile(), and FileNotFound where the program is missing that a desktop
    ///         has for its MIME types
    void associate(const QString &extension, const QString &programPath) override;

private:
    [[nodiscard]] bool isInstalledFor(const QString &extension, const QString &programPath) const;

    FileAccess &m_files;
    QString m_dataFolder;
    QString m_configurationFolder;
};

#pragma once

#include "platform/UserSettings.h"

#include <QByteArray>

class FileAccess;

/// The per-user settings in an ini file below the XDG configuration folder, of the form that IniLines has. Several
/// programs may store at once: each waits for the others, up to two seconds.
class IniUserSettings final : public UserSettings
{
public:
    /// @param file the ini file's path; it and its folder are made when something is stored
    IniUserSettings(FileAccess &files, const QString &file);

    [[nodiscard]] QString GetSetting(const QString &section, const QString &key, const QString &absent) const override;
    [[nodiscard]] bool SaveSetting(const QString &section, const QString &key, const QString &text) override;

private:
    [[nodiscard]] QByteArray content() const;

    FileAccess &m_files;
    QString m_file;
};

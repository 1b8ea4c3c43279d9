#pragma once

#include "platform/UserSettings.h"

#include <QByteArray>

class FileAccess;

/// The per-user settings in an ini file below the XDG configuration folder, which a person may edit too: a line
/// "[section]", below it lines "key=text". A control character or a blank at either end of a text is written as "\u"
/// and four hexadecimal digits, a backslash as two; a backslash before anything else stands for itself. Lines that are
/// none of these stay where they are.
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

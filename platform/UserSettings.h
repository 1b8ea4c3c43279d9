#pragma once

#include <QString>

/// The per-user settings: texts by section and key, below the program's title.
class UserSettings
{
public:
    UserSettings() = default;
    UserSettings(const UserSettings &) = delete;
    UserSettings &operator=(const UserSettings &) = delete;
    virtual ~UserSettings() = default;

    /// The stored text, or absent when there is no such key or it cannot be read.
    [[nodiscard]] virtual QString GetSetting(const QString &section, const QString &key,
                                             const QString &absent = {}) const = 0;

    /// Stores text at once. @return false when it could not be stored
    [[nodiscard]] virtual bool SaveSetting(const QString &section, const QString &key, const QString &text) = 0;
};

#pragma once

#include "platform/UserSettings.h"

#include <QString>

/// The per-user settings in the user's branch of the registry: one key a section, one string value a setting.
class WindowsUserSettings final : public UserSettings
{
public:
    /// @param key below HKEY_CURRENT_USER
    explicit WindowsUserSettings(const QString &key);

    [[nodiscard]] QString GetSetting(const QString &section, const QString &key, const QString &absent) const override;
    [[nodiscard]] bool SaveSetting(const QString &section, const QString &key, const QString &text) override;

private:
    [[nodiscard]] QString keyOf(const QString &section) const;

    QString m_key;
};

#pragma once

#include "platform/UserSettings.h"

/// The per-user settings in an ini file below the XDG configuration folder.
class IniUserSettings final : public UserSettings
{
public:
    /// @param file the ini file's path; it and its folder are made when something is stored
    explicit IniUserSettings(const QString &file);

    [[nodiscard]] QString GetSetting(const QString &section, const QString &key, const QString &absent) const override;
    [[nodiscard]] bool SaveSetting(const QString &section, const QString &key, const QString &text) override;

private:
    QString m_file;
};

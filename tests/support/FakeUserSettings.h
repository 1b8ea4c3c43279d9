#pragma once

#include "platform/UserSettings.h"

#include <QMap>

/// Per-user settings in memory.
class FakeUserSettings final : public UserSettings
{
public:
    [[nodiscard]] QString GetSetting(const QString &section, const QString &key, const QString &absent) const override;
    [[nodiscard]] bool SaveSetting(const QString &section, const QString &key, const QString &text) override;

    /// By "section/key".
    QMap<QString, QString> values;
    bool isWritable = true;
};

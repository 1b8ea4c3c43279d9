#pragma once

#include <QLatin1String>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

class RowChanges;
class RowList;

/// The settings of a whole configuration. Each is a line "#define KEY value"; of several lines for one key the last
/// counts.
enum class SettingKey : int {
    DetectionDb,
    BehaviorDb,
    BehDbType,
    OutputFile,
    EventLog,
    Syslog,
    SyslogFacility,
    SyslogSeverity,
    AutoCountdownTimer,
    MakeconfSensitivity,
    ZentilPriority,
    Priority,
    MailServer,
    MailTo,
    MailFrom,
    MailSubject,
    MailTempFile,
};

// clang-format off
/// What stands in the line, by key.
constexpr std::array<QLatin1String, 17> settingKeys {{
    QLatin1String("DETECTIONDB"),
    QLatin1String("BEHAVIORDB"),
    QLatin1String("BEHDBTYPE"),
    QLatin1String("OUTPUTFILE"),
    QLatin1String("EVENTLOG"),
    QLatin1String("SYSLOG"),
    QLatin1String("SYSLOGFACILITY"),
    QLatin1String("SYSLOGSEVERITY"),
    QLatin1String("AUTO_COUNTDOWN_TIMER"),
    QLatin1String("MAKECONF_SENSITIVITY"),
    QLatin1String("ZENTILPRIORITY"),
    QLatin1String("PRIORITY"),
    QLatin1String("MAILSERVER"),
    QLatin1String("MAILTO"),
    QLatin1String("MAILFROM"),
    QLatin1String("MAILSUBJECT"),
    QLatin1String("MAILTEMPFILE"),
}};

/// The order in which settings are written, SYSLOG before EVENTLOG. ZENTILPRIORITY is the name that PRIORITY once had:
/// it is recognised, but files that have it keep it untouched.
constexpr std::array<SettingKey, 16> settingWriteOrder {{
    SettingKey::DetectionDb,
    SettingKey::BehaviorDb,
    SettingKey::BehDbType,
    SettingKey::OutputFile,
    SettingKey::Syslog,
    SettingKey::EventLog,
    SettingKey::SyslogFacility,
    SettingKey::SyslogSeverity,
    SettingKey::AutoCountdownTimer,
    SettingKey::MakeconfSensitivity,
    SettingKey::Priority,
    SettingKey::MailServer,
    SettingKey::MailTo,
    SettingKey::MailFrom,
    SettingKey::MailSubject,
    SettingKey::MailTempFile,
}};
// clang-format on

[[nodiscard]] constexpr QLatin1String keyText(SettingKey key)
{
    return settingKeys[static_cast<size_t>(key)];
}

/// The key that a "#define" line is for, and its value without the quotes around it. Upper and lower case are the same.
struct SettingLine
{
    SettingKey key;
    QString value;
};

/// @return nothing when the line is no setting, or none that is known
[[nodiscard]] std::optional<SettingLine> parseSetting(const QString &line);

/// Whether a line is a setting or a comment in the manner of settings: its first character behind spaces is "#".
[[nodiscard]] bool beginsWithHash(const QString &line);

/// A value as it is written: in quotes when it holds a blank, unless it begins with one already.
[[nodiscard]] QString quotedValue(const QString &value);

/// The settings of a list of rows, and where they stand.
class GlobalSettings final
{
public:
    GlobalSettings() { m_rows.fill(-1); }

    /// Takes in a line. @return whether it began with "#"
    bool ParseItem(const QString &line, int row);

    /// Empty when there is no line for the key.
    [[nodiscard]] const QString &value(SettingKey key) const { return m_values[static_cast<size_t>(key)]; }

    /// The row that counts for the key; negative when there is none.
    [[nodiscard]] int row(SettingKey key) const { return m_rows[static_cast<size_t>(key)]; }

    [[nodiscard]] bool contains(SettingKey key) const { return row(key) >= 0; }

private:
    std::array<QString, settingKeys.size()> m_values;
    std::array<int, settingKeys.size()> m_rows{};
};

/// Collects what writing settings changes in a list of rows, and does it: a key's own row is replaced in place, a new
/// one comes behind the last row, and rows of keys that have become empty are removed when all others are written.
class SettingsWriter final
{
public:
    /// What becomes of the line of a key without a value.
    enum class Empty { IsRemoved, IsKept };

    /// @param rows the rows that settings have been read from; they must not change before apply()
    SettingsWriter(const RowList &rows, const GlobalSettings &settings);

    /// @param value as quotedValue() gives it
    void SetItem(SettingKey key, const QString &value, Empty empty = Empty::IsRemoved);

    /// Whether there is anything to change.
    [[nodiscard]] bool isEmpty() const { return m_replaced.empty() && m_added.isEmpty() && m_removed.empty(); }

    /// @throws RuntimeError Overflow when the new rows do not fit; nothing is changed then
    void apply(RowChanges &changes) const;

private:
    struct Replacement
    {
        int row;
        QString line;
    };

    const RowList &m_rows;
    const GlobalSettings &m_settings;
    std::vector<Replacement> m_replaced;
    QStringList m_added;
    std::vector<int> m_removed;
};

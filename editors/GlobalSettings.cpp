#include "editors/GlobalSettings.h"

#include "config/ConfigLine.h"
#include "config/RowChanges.h"
#include "config/RowList.h"

#include <algorithm>
#include <functional>

namespace {

constexpr QLatin1Char blank(' ');
constexpr QLatin1Char quote('"');

/// The parts of a setting's line: keyword, key and value. The value keeps its blanks, but each run of blanks has become
/// one.
QStringList partsOf(const QString &line)
{
    QString text = trimSpaces(line);
    while (text.contains(QLatin1String("  ")))
        text.replace(QLatin1String("  "), QLatin1String(" "));
    const qsizetype endOfKeyword = text.indexOf(blank);
    if (endOfKeyword < 0)
        return {text};
    const qsizetype endOfKey = text.indexOf(blank, endOfKeyword + 1);
    if (endOfKey < 0)
        return {text.left(endOfKeyword), text.mid(endOfKeyword + 1)};
    return {text.left(endOfKeyword), text.mid(endOfKeyword + 1, endOfKey - endOfKeyword - 1), text.mid(endOfKey + 1)};
}

QString lineOf(SettingKey key, const QString &value)
{
    const QString line = QLatin1String("#define ") + keyText(key);
    return value.isEmpty() ? line : line + blank + value;
}

QString withoutQuotes(const QString &value)
{
    if (value.size() < 2 || !value.startsWith(quote) || !value.endsWith(quote))
        return value;
    return value.mid(1, value.size() - 2);
}

} // namespace

bool beginsWithHash(const QString &line)
{
    return trimSpaces(line).startsWith(u'#');
}

std::optional<SettingLine> parseSetting(const QString &line)
{
    if (!beginsWithHash(line))
        return {};
    const QStringList parts = partsOf(line);
    if (parts.size() < 2 || parts[0].toLower() != QLatin1String("#define"))
        return {};
    const auto found = std::find(settingKeys.begin(), settingKeys.end(), parts[1].toUpper());
    if (found == settingKeys.end())
        return {};
    return SettingLine{static_cast<SettingKey>(found - settingKeys.begin()), withoutQuotes(parts.value(2))};
}

QString quotedValue(const QString &value)
{
    if (value.startsWith(quote) || !value.contains(blank))
        return value;
    return quote + value + quote;
}

bool GlobalSettings::ParseItem(const QString &line, int row)
{
    if (const std::optional<SettingLine> setting = parseSetting(line)) {
        m_values[static_cast<size_t>(setting->key)] = setting->value;
        m_rows[static_cast<size_t>(setting->key)] = row;
    }
    return beginsWithHash(line);
}

SettingsWriter::SettingsWriter(const RowList &rows, const GlobalSettings &settings)
    : m_rows(rows)
    , m_settings(settings)
{
}

void SettingsWriter::SetItem(SettingKey key, const QString &value, Empty empty)
{
    const int row = m_settings.row(key);
    if (value.isEmpty() && empty == Empty::IsRemoved) {
        if (row >= 0)
            m_removed.push_back(row);
        return;
    }
    const QString line = lineOf(key, value);
    if (row < 0)
        m_added << line;
    else if (m_rows.at(row) != line)
        m_replaced.push_back({row, line});
}

void SettingsWriter::apply(RowChanges &changes) const
{
    m_rows.requireRoom(m_added.size());
    for (const Replacement &replacement : m_replaced)
        changes.replace(replacement.line, replacement.row);
    for (const QString &line : m_added)
        changes.insert(line, -1);
    std::vector<int> removed = m_removed;
    std::sort(removed.begin(), removed.end(), std::greater());
    for (const int row : removed)
        changes.remove(row);
}

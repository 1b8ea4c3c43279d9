#include "settings/SettingsReader.h"

#include "platform/RuntimeError.h"
#include "settings/NumberText.h"

#include <algorithm>

SettingsReader::SettingsReader(const Config &config)
    : m_config(config)
{
}

qint16 SettingsReader::read(qint16 (Config::*property)() const, const Config::Setting &setting)
{
    const std::optional<qint16> number = attempt(property, setting);
    return number ? *number : integerOf(QString(setting.absent));
}

qint32 SettingsReader::read(qint32 (Config::*property)() const, const Config::Setting &setting)
{
    const std::optional<qint32> number = attempt(property, setting);
    return number ? *number : longOf(QString(setting.absent));
}

QString SettingsReader::read(QString (Config::*property)() const, const Config::Setting &setting)
{
    return attempt(property, setting).value_or(QString(setting.absent));
}

QString SettingsReader::problems() const
{
    QStringList texts;
    for (const auto &[message, properties] : m_problems) {
        texts << message
              << tr("These settings cannot be read and are shown with their defaults: %1")
                     .arg(properties.join(QStringLiteral(", ")));
    }
    return texts.join(QStringLiteral("\n\n"));
}

template<class Value>
std::optional<Value> SettingsReader::attempt(Value (Config::*property)() const, const Config::Setting &setting)
{
    try {
        return (m_config.*property)();
    } catch (const RuntimeError &error) {
        m_isKeptOut |= error.number() == RuntimeError::RegistryError;
        const QString message = error.message();
        auto known = std::find_if(m_problems.begin(), m_problems.end(),
                                  [&message](const auto &each) { return each.first == message; });
        if (known == m_problems.end())
            known = m_problems.insert(known, {message, {}});
        known->second << setting.property;
        return std::nullopt;
    }
}

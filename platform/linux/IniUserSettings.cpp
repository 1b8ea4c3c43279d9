#include "platform/linux/IniUserSettings.h"

#include <QSettings>

IniUserSettings::IniUserSettings(const QString &file)
    : m_file(file)
{
}

QString IniUserSettings::GetSetting(const QString &section, const QString &key, const QString &absent) const
{
    const QSettings settings(m_file, QSettings::IniFormat);
    return settings.value(section + QLatin1Char('/') + key, absent).toString();
}

bool IniUserSettings::SaveSetting(const QString &section, const QString &key, const QString &text)
{
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(section + QLatin1Char('/') + key, text);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

#include "tests/support/FakeUserSettings.h"

QString FakeUserSettings::GetSetting(const QString &section, const QString &key, const QString &absent) const
{
    return values.value(section + u'/' + key, absent);
}

bool FakeUserSettings::SaveSetting(const QString &section, const QString &key, const QString &text)
{
    if (isWritable)
        values[section + u'/' + key] = text;
    return isWritable;
}

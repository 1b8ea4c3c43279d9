#include "platform/windows/WindowsUserSettings.h"

#include "platform/windows/WindowsCalls.h"

#include <vector>

WindowsUserSettings::WindowsUserSettings(const QString &key)
    : m_key(key)
{
}

QString WindowsUserSettings::GetSetting(const QString &section, const QString &key, const QString &absent) const
{
    const QString path = keyOf(section);
    std::vector<wchar_t> buffer(256);
    for (;;) {
        auto size = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
        const LSTATUS status =
            RegGetValueW(HKEY_CURRENT_USER, wide(path), wide(key), RRF_RT_REG_SZ, nullptr, buffer.data(), &size);
        if (status == ERROR_MORE_DATA) {
            buffer.resize(size / sizeof(wchar_t) + 1);
            continue;
        }
        if (status != ERROR_SUCCESS)
            return absent;
        // The size counts the end mark, which this call always adds.
        return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(size / sizeof(wchar_t)) - 1);
    }
}

bool WindowsUserSettings::SaveSetting(const QString &section, const QString &key, const QString &text)
{
    const auto size = static_cast<DWORD>((static_cast<size_t>(text.size()) + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CURRENT_USER, wide(keyOf(section)), wide(key), REG_SZ, wide(text), size) ==
           ERROR_SUCCESS;
}

QString WindowsUserSettings::keyOf(const QString &section) const
{
    return m_key + QLatin1Char('\\') + section;
}

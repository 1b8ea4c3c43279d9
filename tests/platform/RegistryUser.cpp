#include "tests/platform/RegistryUser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>

void PrintTo(Registry::Result result, std::ostream *stream)
{
    *stream << "result " << int(result);
}

Registry::Handle RegistryUser::made(Handle parent, const QByteArray &subKey, quint32 access) const
{
    Handle key = 1;
    EXPECT_EQ(m_registry.RegCreateKeyExA(parent, subKey, {}, 0, access, &key, nullptr), Result::Success)
        << subKey.constData();
    return key;
}

Registry::Handle RegistryUser::opened(Handle parent, const QByteArray &subKey, quint32 access) const
{
    Handle key = 1;
    EXPECT_EQ(m_registry.RegOpenKeyExA(parent, subKey, 0, access, &key), Result::Success) << subKey.constData();
    return key;
}

void RegistryUser::close(Handle key) const
{
    EXPECT_EQ(m_registry.RegCloseKey(key), Result::Success);
}

Registry::Result RegistryUser::openResult(Handle parent, const QByteArray &subKey, quint32 access) const
{
    Handle key = 1;
    const Result result = m_registry.RegOpenKeyExA(parent, subKey, 0, access, &key);
    if (result == Result::Success)
        close(key);
    else
        EXPECT_EQ(key, 0U) << "what could not be opened has no handle";
    return result;
}

Registry::Result RegistryUser::createResult(Handle parent, const QByteArray &subKey) const
{
    Handle key = 1;
    const Result result = m_registry.RegCreateKeyExA(parent, subKey, {}, 0, Registry::AllAccess, &key, nullptr);
    if (result == Result::Success)
        close(key);
    else
        EXPECT_EQ(key, 0U) << "what could not be made has no handle";
    return result;
}

void RegistryUser::set(Handle key, const QByteArray &name, QByteArrayView data, quint32 type) const
{
    EXPECT_EQ(m_registry.RegSetValueExA(key, name, type, data), Result::Success) << name.constData();
}

QByteArray RegistryUser::get(Handle key, const QByteArray &name) const
{
    quint32 size = 0;
    Result result = m_registry.RegQueryValueExA(key, name, nullptr, nullptr, &size);
    QByteArray data(size, '#');
    if (result == Result::Success)
        result = m_registry.RegQueryValueExA(key, name, nullptr, reinterpret_cast<uchar *>(data.data()), &size);
    return result == Result::Success ? data.first(size) : "<none> " + QByteArray::number(int(result));
}

QByteArrayList RegistryUser::subKeys(Handle key) const
{
    QByteArrayList names;
    std::array<char, 256> name{};
    for (quint32 index = 0;; ++index) {
        quint32 length = name.size();
        const Result result = m_registry.RegEnumKeyExA(key, index, name.data(), &length, nullptr, nullptr, nullptr);
        if (result != Result::Success) {
            EXPECT_EQ(result, Result::NoMoreItems);
            return names;
        }
        EXPECT_EQ(name.at(length), '\0');
        names << QByteArray(name.data(), length);
    }
}

QByteArrayList RegistryUser::valueNames(Handle key) const
{
    QByteArrayList names;
    std::array<char, 256> name{};
    for (quint32 index = 0;; ++index) {
        quint32 length = name.size();
        const Result result = m_registry.RegEnumValueA(key, index, name.data(), &length, nullptr, nullptr, nullptr);
        if (result != Result::Success) {
            EXPECT_EQ(result, Result::NoMoreItems);
            std::sort(names.begin(), names.end());
            return names;
        }
        names << QByteArray(name.data(), length);
    }
}

RegistryKeyInfo RegistryUser::info(Handle key) const
{
    RegistryKeyInfo info;
    EXPECT_EQ(m_registry.RegQueryInfoKeyA(key, nullptr, nullptr, &info), Result::Success);
    return info;
}

Registry::Result RegistryUser::enumerateKeyResult(Handle key) const
{
    std::array<char, 256> name{};
    quint32 length = name.size();
    return m_registry.RegEnumKeyExA(key, 0, name.data(), &length, nullptr, nullptr, nullptr);
}

Registry::Result RegistryUser::enumerateValueResult(Handle key) const
{
    std::array<char, 256> name{};
    quint32 length = name.size();
    return m_registry.RegEnumValueA(key, 0, name.data(), &length, nullptr, nullptr, nullptr);
}

void RegistryUser::removeTree(Handle parent, const QByteArray &subKey) const
{
    const Handle key = opened(parent, subKey);
    for (const QByteArray &name : subKeys(key))
        removeTree(key, name);
    close(key);
    EXPECT_EQ(m_registry.RegDeleteKeyA(parent, subKey), Result::Success) << subKey.constData();
}

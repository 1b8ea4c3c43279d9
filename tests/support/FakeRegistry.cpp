#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

using Result = Registry::Result;

// clang-format off
const std::array<std::pair<Registry::Handle, const char *>, 7> hiveNames {{
    {Registry::ClassesRoot,     "HKEY_CLASSES_ROOT"},
    {Registry::CurrentUser,     "HKEY_CURRENT_USER"},
    {Registry::LocalMachine,    "HKEY_LOCAL_MACHINE"},
    {Registry::Users,           "HKEY_USERS"},
    {Registry::PerformanceData, "HKEY_PERFORMANCE_DATA"},
    {Registry::CurrentConfig,   "HKEY_CURRENT_CONFIG"},
    {Registry::DynData,         "HKEY_DYN_DATA"},
}};
// clang-format on

bool putText(const QByteArray &text, char *buffer, quint32 *length)
{
    if (text.size() >= qsizetype(*length))
        return false;
    std::memcpy(buffer, text.constData(), size_t(text.size()) + 1);
    *length = static_cast<quint32>(text.size());
    return true;
}

Result putData(const QByteArray &stored, uchar *data, quint32 *dataLength)
{
    const quint32 room = std::exchange(*dataLength, static_cast<quint32>(stored.size()));
    if (data == nullptr)
        return Result::Success;
    if (*dataLength > room)
        return Result::MoreData;
    std::memcpy(data, stored.constData(), *dataLength);
    return Result::Success;
}

} // namespace

FakeRegistry::FakeRegistry()
{
    for (const auto &[handle, name] : hiveNames)
        make(name);
    make("HKEY_LOCAL_MACHINE\\SOFTWARE");
}

FakeRegistry::~FakeRegistry()
{
    EXPECT_EQ(m_open.size(), 0) << "left open: " << m_open.values().join(", ").constData();
}

void FakeRegistry::make(const QByteArray &path)
{
    // The parts of a host's name are no keys.
    for (qsizetype end = path.indexOf("HKEY_"); end >= 0;) {
        end = path.indexOf('\\', end + 1);
        const QByteArray part = end < 0 ? path : path.first(end);
        if (!hasKey(part))
            m_keys[folded(part)] = {part, {}, {}};
    }
}

bool FakeRegistry::hasKey(const QByteArray &path) const
{
    return m_keys.count(folded(path)) > 0;
}

void FakeRegistry::set(const QByteArray &path, const QByteArray &name, const QByteArray &data, quint32 type)
{
    make(path);
    QList<StoredValue> &values = m_keys[folded(path)].values;
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&name](const StoredValue &value) { return folded(value.name) == folded(name); });
    if (found == values.end())
        values.push_back({name, type, data});
    else
        *found = {found->name, type, data};
}

std::optional<QByteArray> FakeRegistry::data(const QByteArray &path, const QByteArray &name) const
{
    const auto key = m_keys.find(folded(path));
    if (key == m_keys.end())
        return std::nullopt;
    for (const StoredValue &value : key->second.values) {
        if (folded(value.name) == folded(name))
            return value.data;
    }
    return std::nullopt;
}

quint32 FakeRegistry::type(const QByteArray &path, const QByteArray &name) const
{
    const auto key = m_keys.find(folded(path));
    if (key == m_keys.end())
        return 0;
    for (const StoredValue &value : key->second.values) {
        if (folded(value.name) == folded(name))
            return value.type;
    }
    return 0;
}

QByteArrayList FakeRegistry::paths() const
{
    QByteArrayList paths;
    for (const auto &[folded, key] : m_keys)
        paths << key.path;
    return paths;
}

Result FakeRegistry::RegConnectRegistryA(const QByteArray &machineName, Handle hive, Handle *result)
{
    calls << "RegConnectRegistryA " + machineName + ' ' + pathOf(hive);
    *result = 0;
    const QByteArray host = machineName.startsWith("\\\\") ? machineName.sliced(2) : machineName;
    if (!host.isEmpty() && !hosts.contains(host))
        return Result::BadNetPath;
    if (host.isEmpty()) {
        *result = hive;
        return Result::Success;
    }
    const QByteArray path = "\\\\" + host + '\\' + pathOf(hive);
    make(path);
    *result = newHandle(path);
    return Result::Success;
}

Result FakeRegistry::RegOpenKeyExA(Handle key, const QByteArray &subKey, quint32, quint32 access, Handle *result)
{
    *result = 0;
    const QByteArray path = pathBelow(key, subKey);
    calls << "RegOpenKeyExA " + path;
    if (pathOf(key).isEmpty())
        return Result::InvalidHandle;
    const bool isHive = key >= ClassesRoot && subKey.isEmpty();
    if (isHive) {
        *result = key;
        return Result::Success;
    }
    if (keyAt(path) == nullptr)
        return Result::FileNotFound;
    if (isDenied(path) || (isReadOnly && (access & ~ReadAccess) != 0))
        return Result::AccessDenied;
    *result = newHandle(keyAt(path)->path);
    return Result::Success;
}

Result FakeRegistry::RegCreateKeyExA(Handle key, const QByteArray &subKey, const QByteArray &className, quint32,
                                     quint32, Handle *result, quint32 *disposition)
{
    *result = 0;
    const QByteArray path = pathBelow(key, subKey);
    calls << "RegCreateKeyExA " + path;
    if (pathOf(key).isEmpty())
        return Result::InvalidHandle;
    if (isDenied(path) || isReadOnly)
        return Result::AccessDenied;
    const bool isNew = keyAt(path) == nullptr;
    make(path);
    if (isNew)
        keyAt(path)->className = className;
    if (disposition != nullptr)
        *disposition = isNew ? CreatedNewKey : OpenedExistingKey;
    *result = newHandle(path);
    return Result::Success;
}

Result FakeRegistry::RegCloseKey(Handle key)
{
    calls << "RegCloseKey " + pathOf(key);
    const bool isOpen = key >= ClassesRoot || m_open.remove(key) > 0;
    EXPECT_TRUE(isOpen) << "closed without being open: " << key;
    return isOpen ? Result::Success : Result::InvalidHandle;
}

Result FakeRegistry::RegDeleteKeyA(Handle key, const QByteArray &subKey)
{
    const QByteArray path = pathBelow(key, subKey);
    calls << "RegDeleteKeyA " + path;
    if (keyAt(path) == nullptr)
        return Result::FileNotFound;
    if (!childrenOf(path).isEmpty() || isDenied(path))
        return Result::AccessDenied;
    remove(path);
    return Result::Success;
}

Result FakeRegistry::RegDeleteValueA(Handle key, const QByteArray &name)
{
    StoredKey *found = keyOf(key, "RegDeleteValueA");
    if (found == nullptr)
        return Result::InvalidHandle;
    const auto removed =
        found->values.removeIf([&name](const StoredValue &value) { return folded(value.name) == folded(name); });
    return removed > 0 ? Result::Success : Result::FileNotFound;
}

Result FakeRegistry::RegEnumKeyExA(Handle key, quint32 index, char *name, quint32 *nameLength, char *, quint32 *,
                                   quint64 *)
{
    const StoredKey *found = keyOf(key, "RegEnumKeyExA");
    if (found == nullptr)
        return Result::InvalidHandle;
    const QByteArrayList children = childrenOf(found->path);
    if (index >= quint32(children.size()))
        return Result::NoMoreItems;
    return putText(children[qsizetype(index)], name, nameLength) ? Result::Success : Result::MoreData;
}

Result FakeRegistry::RegEnumValueA(Handle key, quint32 index, char *name, quint32 *nameLength, quint32 *type,
                                   uchar *data, quint32 *dataLength)
{
    const StoredKey *found = keyOf(key, "RegEnumValueA");
    if (found == nullptr)
        return Result::InvalidHandle;
    if (index >= quint32(found->values.size()))
        return Result::NoMoreItems;
    const StoredValue &value = found->values[qsizetype(index)];
    if (type != nullptr)
        *type = value.type;
    if (!putText(value.name, name, nameLength))
        return Result::MoreData;
    return dataLength == nullptr ? Result::Success : putData(value.data, data, dataLength);
}

Result FakeRegistry::RegQueryInfoKeyA(Handle key, char *className, quint32 *classLength, RegistryKeyInfo *info)
{
    const StoredKey *found = keyOf(key, "RegQueryInfoKeyA");
    if (found == nullptr)
        return Result::InvalidHandle;
    *info = {};
    for (const QByteArray &child : childrenOf(found->path)) {
        ++info->subKeys;
        info->longestSubKeyName = std::max(info->longestSubKeyName, quint32(child.size()));
        const QByteArray &childClass = keyAt(found->path + '\\' + child)->className;
        info->longestClassName = std::max(info->longestClassName, quint32(childClass.size()));
    }
    for (const StoredValue &value : found->values) {
        ++info->values;
        info->longestValueName = std::max(info->longestValueName, quint32(value.name.size()));
        info->longestData = std::max(info->longestData, quint32(value.data.size()));
    }
    if (className != nullptr && !putText(found->className, className, classLength))
        return Result::MoreData;
    return Result::Success;
}

Result FakeRegistry::RegQueryValueExA(Handle key, const QByteArray &name, quint32 *type, uchar *data,
                                      quint32 *dataLength)
{
    const StoredKey *found = keyOf(key, "RegQueryValueExA");
    if (found == nullptr)
        return Result::InvalidHandle;
    const auto stored = this->data(found->path, name);
    if (!stored)
        return Result::FileNotFound;
    if (type != nullptr)
        *type = this->type(found->path, name);
    return putData(*stored, data, dataLength);
}

Result FakeRegistry::RegSetValueExA(Handle key, const QByteArray &name, quint32 type, QByteArrayView data)
{
    const StoredKey *found = keyOf(key, "RegSetValueExA");
    if (found == nullptr)
        return Result::InvalidHandle;
    if (isFull)
        return Result::DiskFull;
    set(found->path, name, data.toByteArray(), type);
    return Result::Success;
}

QByteArray FakeRegistry::pathOf(Handle key) const
{
    for (const auto &[handle, name] : hiveNames) {
        if (handle == key)
            return name;
    }
    return m_open.value(key);
}

QByteArray FakeRegistry::pathBelow(Handle key, const QByteArray &subKey) const
{
    return subKey.isEmpty() ? pathOf(key) : pathOf(key) + '\\' + subKey;
}

bool FakeRegistry::isDenied(const QByteArray &path) const
{
    return std::any_of(denied.begin(), denied.end(), [&path](const QByteArray &root) {
        return (folded(path) + '\\').startsWith(folded(root) + '\\');
    });
}

FakeRegistry::StoredKey *FakeRegistry::keyAt(const QByteArray &path)
{
    const auto found = m_keys.find(folded(path));
    return found == m_keys.end() ? nullptr : &found->second;
}

FakeRegistry::StoredKey *FakeRegistry::keyOf(Handle key, const char *call)
{
    const QByteArray path = pathOf(key);
    calls << QByteArray(call) + ' ' + path;
    return path.isEmpty() ? nullptr : keyAt(path);
}

QByteArrayList FakeRegistry::childrenOf(const QByteArray &path) const
{
    QByteArrayList children;
    const QByteArray start = folded(path) + '\\';
    for (const auto &[foldedPath, key] : m_keys) {
        if (foldedPath.startsWith(start) && !foldedPath.sliced(start.size()).contains('\\'))
            children << key.path.sliced(start.size());
    }
    return children;
}

Registry::Handle FakeRegistry::newHandle(const QByteArray &path)
{
    m_lastHandle += 4;
    m_open[m_lastHandle] = path;
    return m_lastHandle;
}

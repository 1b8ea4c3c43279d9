#include "platform/linux/SqliteRegistry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

using Kind = SqliteTransaction::Kind;

// The manual, "Registry Element Size Limits".
constexpr qsizetype longestKeyName = 255;
constexpr qsizetype longestValueName = 16'383;

struct GenericAccess
{
    quint32 asked;
    quint32 meant;
};

// clang-format off
constexpr std::array<GenericAccess, 4> genericAccesses {{
    {Registry::GenericRead,    Registry::ReadAccess},
    {Registry::GenericWrite,   Registry::WriteAccess},
    {Registry::GenericExecute, Registry::ReadAccess},
    {Registry::GenericAll,     Registry::AllAccess},
}};
// clang-format on

bool isHive(Registry::Handle key)
{
    return key >= Registry::ClassesRoot && key <= Registry::DynData;
}

/// A name as the narrow functions take it: up to its first zero byte.
QByteArray upToZero(const QByteArray &name)
{
    const qsizetype zero = name.indexOf('\0');
    return zero < 0 ? name : name.first(zero);
}

QByteArrayList partsOf(Registry::Handle key, const QByteArray &subKey)
{
    const QByteArray path = upToZero(subKey);
    if (path.startsWith('\\') && key != Registry::ClassesRoot)
        throw RegistryFailure{Registry::Result::BadPathName};
    QByteArrayList parts = path.split('\\');
    parts.removeAll(QByteArray());
    for (const QByteArray &part : parts) {
        if (part.size() > longestKeyName)
            throw RegistryFailure{Registry::Result::InvalidParameter};
    }
    return parts;
}

/// @return false when the text and its end mark do not fit; then nothing is written
bool putText(const QByteArray &text, char *buffer, quint32 *length)
{
    if (text.size() >= qsizetype(*length))
        return false;
    std::memcpy(buffer, text.constData(), size_t(text.size()) + 1);
    *length = static_cast<quint32>(text.size());
    return true;
}

Registry::Result putData(const RegistryTree::Value &value, quint32 *type, uchar *data, quint32 *dataLength)
{
    if (type != nullptr)
        *type = value.type;
    if (dataLength == nullptr)
        return Registry::Result::Success;
    const quint32 room = std::exchange(*dataLength, static_cast<quint32>(value.data.size()));
    if (data == nullptr)
        return Registry::Result::Success;
    if (*dataLength > room)
        return Registry::Result::MoreData;
    std::memcpy(data, value.data.constData(), *dataLength);
    return Registry::Result::Success;
}

} // namespace

SqliteRegistry::SqliteRegistry(const QByteArray &path, std::function<QByteArray()> userKey)
    : m_database(path, std::move(userKey))
{
}

SqliteRegistry::SqliteRegistry(const QByteArray &path, const QByteArray &userKey)
    : SqliteRegistry(path, [userKey] { return userKey; })
{
}

QByteArray SqliteRegistry::toCodePage(QStringView text) const
{
    return text.toLatin1();
}

QString SqliteRegistry::fromCodePage(QByteArrayView bytes) const
{
    return QString::fromLatin1(bytes);
}

Registry::Result SqliteRegistry::RegConnectRegistryA(const QByteArray &machineName, Handle hive, Handle *result)
{
    *result = 0;
    if (!upToZero(machineName).isEmpty())
        return Result::BadNetPath;
    if (!isHive(hive))
        return Result::InvalidHandle;
    *result = hive;
    return Result::Success;
}

Registry::Result SqliteRegistry::RegOpenKeyExA(Handle key, const QByteArray &subKey, quint32, quint32 access,
                                               Handle *result)
{
    *result = 0;
    if (isHive(key) && upToZero(subKey).isEmpty()) {
        *result = key;
        return Result::Success;
    }
    return run(Kind::Read, [&](const RegistryTree &tree) {
        const RegistryPlace place = find(tree, key, partsOf(key, subKey));
        if (place.first == RegistryDatabase::None)
            return Result::FileNotFound;
        *result = newHandle(place.first, grantedAccess(access));
        return Result::Success;
    });
}

Registry::Result SqliteRegistry::RegCreateKeyExA(Handle key, const QByteArray &subKey, const QByteArray &className,
                                                 quint32 options, quint32 access, Handle *result, quint32 *disposition)
{
    quint32 outcome = OpenedExistingKey;
    quint32 &reported = disposition == nullptr ? outcome : *disposition;
    *result = 0;
    if (options != 0)
        return Result::CallNotImplemented;
    // What is there needs no right to write.
    const Result opened = RegOpenKeyExA(key, subKey, 0, access, result);
    if (opened == Result::Success)
        reported = OpenedExistingKey;
    if (opened != Result::FileNotFound)
        return opened;

    qint64 reached = RegistryDatabase::None;
    quint32 granted = 0;
    const Result made = run(Kind::Write, [&](const RegistryTree &tree) {
        RegistryPlace place = placeOf(tree, key, 0);
        Handle start = key;
        reported = OpenedExistingKey;
        for (const QByteArray &part : partsOf(key, subKey)) {
            qint64 next = tree.child(place, part);
            if (next == RegistryDatabase::None) {
                next = tree.makeChild(writtenKey(tree, start, place), part, upToZero(className));
                reported = CreatedNewKey;
            }
            place = {next, RegistryDatabase::None};
            start = 0;
        }
        reached = place.first;
        granted = grantedAccess(access);
        return Result::Success;
    });
    if (made == Result::Success)
        *result = newHandle(reached, granted);
    return made;
}

Registry::Result SqliteRegistry::RegCloseKey(Handle key)
{
    return isHive(key) || m_openKeys.remove(key) > 0 ? Result::Success : Result::InvalidHandle;
}

Registry::Result SqliteRegistry::RegDeleteKeyA(Handle key, const QByteArray &subKey)
{
    if (subKey.isNull())
        return Result::InvalidParameter;
    return run(Kind::Write, [&](const RegistryTree &tree) {
        const QByteArrayList path = partsOf(key, subKey);
        const qint64 found = find(tree, key, path).first;
        if (isHive(key) && path.isEmpty())
            return Result::AccessDenied;
        if (found == RegistryDatabase::None)
            return Result::FileNotFound;
        const bool isFixed = found <= RegistryDatabase::Software || found == m_database.userKey();
        if (isFixed || tree.hasChildren(found))
            return Result::AccessDenied;
        tree.remove(found);
        return Result::Success;
    });
}

Registry::Result SqliteRegistry::RegDeleteValueA(Handle key, const QByteArray &name)
{
    return run(Kind::Write, [&](const RegistryTree &tree) {
        const RegistryPlace place = placeOf(tree, key, SetValue);
        const QByteArray ownName = upToZero(name);
        const bool isRemoved = tree.removeValue(place.first, ownName) || tree.removeValue(place.second, ownName);
        return isRemoved ? Result::Success : Result::FileNotFound;
    });
}

Registry::Result SqliteRegistry::RegEnumKeyExA(Handle key, quint32 index, char *name, quint32 *nameLength,
                                               char *className, quint32 *classLength, quint64 *lastWrite)
{
    return run(Kind::Read, [&](const RegistryTree &tree) {
        const QList<RegistryTree::Key> &keys =
            enumerate(tree, placeOf(tree, key, EnumerateSubKeys), &RegistryTree::children, m_lastKeys);
        if (index >= quint32(keys.size()))
            return Result::NoMoreItems;
        const RegistryTree::Key *found = &keys[index];
        const bool hasClass = className != nullptr && classLength != nullptr;
        if (hasClass && found->className.size() >= qsizetype(*classLength))
            return Result::MoreData;
        if (!putText(found->name, name, nameLength))
            return Result::MoreData;
        if (hasClass)
            (void)putText(found->className, className, classLength);
        if (lastWrite != nullptr)
            *lastWrite = found->lastWrite;
        return Result::Success;
    });
}

Registry::Result SqliteRegistry::RegEnumValueA(Handle key, quint32 index, char *name, quint32 *nameLength,
                                               quint32 *type, uchar *data, quint32 *dataLength)
{
    if (data != nullptr && dataLength == nullptr)
        return Result::InvalidParameter;
    return run(Kind::Read, [&](const RegistryTree &tree) {
        const QList<qint64> &numbers =
            enumerate(tree, placeOf(tree, key, QueryValue), &RegistryTree::valueNumbers, m_lastValues);
        const auto found = index < quint32(numbers.size()) ? tree.value(numbers[index]) : std::nullopt;
        if (!found)
            return Result::NoMoreItems;
        const Result result = putData(*found, type, data, dataLength);
        if (result != Result::Success)
            return result;
        return putText(found->name, name, nameLength) ? Result::Success : Result::MoreData;
    });
}

Registry::Result SqliteRegistry::RegQueryInfoKeyA(Handle key, char *className, quint32 *classLength,
                                                  RegistryKeyInfo *info)
{
    return run(Kind::Read, [&](const RegistryTree &tree) {
        const RegistryPlace place = placeOf(tree, key, QueryValue);
        *info = tree.info(place);
        const auto own = tree.key(place.first);
        info->lastWrite = own ? own->lastWrite : 0;
        if (className == nullptr || classLength == nullptr)
            return Result::Success;
        return putText(own ? own->className : QByteArray(), className, classLength) ? Result::Success
                                                                                    : Result::MoreData;
    });
}

Registry::Result SqliteRegistry::RegQueryValueExA(Handle key, const QByteArray &name, quint32 *type, uchar *data,
                                                  quint32 *dataLength)
{
    if (data != nullptr && dataLength == nullptr)
        return Result::InvalidParameter;
    if (key == PerformanceData)
        return Result::FileNotFound;
    return run(Kind::Read, [&](const RegistryTree &tree) {
        const RegistryPlace place = placeOf(tree, key, QueryValue);
        const QByteArray ownName = upToZero(name);
        auto found = tree.value(place.first, ownName);
        if (!found)
            found = tree.value(place.second, ownName);
        return found ? putData(*found, type, data, dataLength) : Result::FileNotFound;
    });
}

Registry::Result SqliteRegistry::RegSetValueExA(Handle key, const QByteArray &name, quint32 type, QByteArrayView data)
{
    const QByteArray ownName = upToZero(name);
    if (ownName.size() > longestValueName)
        return Result::InvalidParameter;
    return run(Kind::Write, [&](const RegistryTree &tree) {
        const RegistryPlace place = placeOf(tree, key, SetValue);
        const bool isUsers = key == ClassesRoot && tree.value(place.first, ownName).has_value();
        tree.setValue(isUsers ? place.first : writtenKey(tree, key, place), ownName, type, data);
        return Result::Success;
    });
}

template<class Work>
Registry::Result SqliteRegistry::run(Kind kind, const Work &work)
{
    try {
        const SqliteConnection &connection = m_database.connection();
        SqliteTransaction transaction(connection, kind);
        const Result result = work(RegistryTree(connection));
        if (kind == Kind::Write && result == Result::Success)
            transaction.commit();
        return result;
    } catch (const RegistryFailure &failure) {
        if (failure.result == Result::Busy)
            m_database.gaveUp();
        return failure.result;
    }
}

/// The place of a key that is open. @param access what is about to be done through the handle
RegistryPlace SqliteRegistry::placeOf(const RegistryTree &tree, Handle key, quint32 access) const
{
    if (isHive(key))
        return hivePlace(tree, key);
    const auto open = m_openKeys.constFind(key);
    if (open == m_openKeys.constEnd())
        throw RegistryFailure{Result::InvalidHandle};
    if (open->generation != m_database.generation() || !tree.key(open->key))
        throw RegistryFailure{Result::KeyDeleted};
    if ((open->access & access) != access)
        throw RegistryFailure{Result::AccessDenied};
    return {open->key, RegistryDatabase::None};
}

RegistryPlace SqliteRegistry::hivePlace(const RegistryTree &tree, Handle hive) const
{
    const auto classesBelow = [&tree](qint64 software) { return tree.child(software, "Classes"); };
    switch (hive) {
    case ClassesRoot:
        return {classesBelow(tree.child(m_database.userKey(), "Software")), classesBelow(RegistryDatabase::Software)};
    case CurrentUser:
        return {m_database.userKey(), RegistryDatabase::None};
    case LocalMachine:
        return {RegistryDatabase::LocalMachine, RegistryDatabase::None};
    case Users:
        return {RegistryDatabase::Users, RegistryDatabase::None};
    case CurrentConfig:
        return {RegistryDatabase::CurrentConfig, RegistryDatabase::None};
    case DynData:
        return {RegistryDatabase::None, RegistryDatabase::None};
    default:
        throw RegistryFailure{Result::InvalidHandle};
    }
}

template<class Item>
const QList<Item> &SqliteRegistry::enumerate(const RegistryTree &tree, const RegistryPlace &place,
                                             QList<Item> (RegistryTree::*read)(const RegistryPlace &) const,
                                             std::optional<Enumerated<Item>> &last) const
{
    const quint64 generation = m_database.generation();
    const auto version = tree.version();
    if (!last || last->place != place || last->generation != generation || last->version != version)
        last = {place, generation, version, (tree.*read)(place)};
    return last->items;
}

/// The key that takes what is made at place, the place of key.
qint64 SqliteRegistry::writtenKey(const RegistryTree &tree, Handle key, const RegistryPlace &place) const
{
    if (key == ClassesRoot)
        return place.second != RegistryDatabase::None ? place.second
                                                      : tree.makeChild(RegistryDatabase::Software, "Classes", {});
    if (place.first == RegistryDatabase::None)
        throw RegistryFailure{Result::AccessDenied};
    return place.first;
}

/// The place of a key below another one; its first key is None when there is no such key.
RegistryPlace SqliteRegistry::find(const RegistryTree &tree, Handle key, const QByteArrayList &path) const
{
    RegistryPlace place = placeOf(tree, key, 0);
    for (const QByteArray &part : path)
        place = {tree.child(place, part), RegistryDatabase::None};
    return place;
}

quint32 SqliteRegistry::grantedAccess(quint32 access) const
{
    quint32 granted = access & AllAccess;
    for (const GenericAccess &generic : genericAccesses) {
        if ((access & generic.asked) != 0)
            granted |= generic.meant;
    }
    const bool isWritable = m_database.isWritable();
    if ((access & MaximumAllowed) != 0)
        granted |= isWritable ? AllAccess : ReadAccess;
    // Everything but reading: the other rights change the key or what is below it.
    if ((granted & ~ReadAccess) != 0 && !isWritable)
        throw RegistryFailure{Result::AccessDenied};
    return granted;
}

Registry::Handle SqliteRegistry::newHandle(qint64 key, quint32 access)
{
    // As the system's handles: multiples of four, below the hives. One that was closed comes again late, so that who
    // uses it by mistake is told.
    do {
        m_lastHandle = (m_lastHandle + 4) & 0x7FFFFFFC;
    } while (m_lastHandle == 0 || m_openKeys.contains(m_lastHandle));
    m_openKeys.insert(m_lastHandle, {key, access, m_database.generation()});
    return m_lastHandle;
}

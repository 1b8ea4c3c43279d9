#pragma once

#include "platform/linux/RegistryDatabase.h"
#include "platform/linux/RegistryTree.h"
#include "platform/Registry.h"

#include <QByteArrayList>
#include <QHash>

#include <functional>
#include <optional>
#include <utility>

/// A registry of this program's own where the system has none: keys and values in one database, which several programs
/// may use at once. Its code page is ISO 8859-1, a byte a character.
///
/// HKEY_CURRENT_USER is the user's key below HKEY_USERS. HKEY_CLASSES_ROOT shows the sub-keys of Software\Classes of
/// the user and of the machine as the manual says ("Merged View of HKEY_CLASSES_ROOT"): a key that both have is the
/// user's, with what is below it; a new one is the machine's. HKEY_PERFORMANCE_DATA has nothing and takes no key,
/// HKEY_DYN_DATA is always empty. Keys have no security descriptors. Whoever may write the file may write every key;
/// where the file may only be read, opening a key in order to write gives AccessDenied.
class SqliteRegistry final : public Registry
{
public:
    /// @param path the database file's
    /// @param userKey the name of the user's key below HKEY_USERS; asked for when the file is opened, because looking
    /// for a user may take the system long
    SqliteRegistry(const QByteArray &path, std::function<QByteArray()> userKey);
    SqliteRegistry(const QByteArray &path, const QByteArray &userKey);

    [[nodiscard]] bool hasStore() const override { return m_database.isThere(); }

    [[nodiscard]] QByteArray toCodePage(QStringView text) const override;
    [[nodiscard]] QString fromCodePage(QByteArrayView bytes) const override;

    /// Only this machine can be reached: any name gives BadNetPath.
    Result RegConnectRegistryA(const QByteArray &machineName, Handle hive, Handle *result) override;
    Result RegOpenKeyExA(Handle key, const QByteArray &subKey, quint32 options, quint32 access,
                         Handle *result) override;
    /// Keys that go with the machine's next start, and other options, give CallNotImplemented.
    Result RegCreateKeyExA(Handle key, const QByteArray &subKey, const QByteArray &className, quint32 options,
                           quint32 access, Handle *result, quint32 *disposition) override;
    Result RegCloseKey(Handle key) override;
    Result RegDeleteKeyA(Handle key, const QByteArray &subKey) override;
    Result RegDeleteValueA(Handle key, const QByteArray &name) override;
    Result RegEnumKeyExA(Handle key, quint32 index, char *name, quint32 *nameLength, char *className,
                         quint32 *classLength, quint64 *lastWrite) override;
    Result RegEnumValueA(Handle key, quint32 index, char *name, quint32 *nameLength, quint32 *type, uchar *data,
                         quint32 *dataLength) override;
    Result RegQueryInfoKeyA(Handle key, char *className, quint32 *classLength, RegistryKeyInfo *info) override;
    Result RegQueryValueExA(Handle key, const QByteArray &name, quint32 *type, uchar *data,
                            quint32 *dataLength) override;
    Result RegSetValueExA(Handle key, const QByteArray &name, quint32 type, QByteArrayView data) override;

private:
    struct OpenKey
    {
        qint64 key;
        quint32 access;
        quint64 generation;
    };
    /// What the key has that was enumerated last. Who enumerates asks for one after the other, and to find one takes as
    /// long as to read all.
    template<class Item>
    struct Enumerated
    {
        RegistryPlace place;
        quint64 generation;
        std::pair<qint64, qint64> version;
        QList<Item> items;
    };

    template<class Work>
    Result run(SqliteTransaction::Kind kind, const Work &work);

    [[nodiscard]] RegistryPlace placeOf(const RegistryTree &tree, Handle key, quint32 access) const;
    [[nodiscard]] RegistryPlace hivePlace(const RegistryTree &tree, Handle hive) const;
    template<class Item>
    const QList<Item> &enumerate(const RegistryTree &tree, const RegistryPlace &place,
                                 QList<Item> (RegistryTree::*read)(const RegistryPlace &) const,
                                 std::optional<Enumerated<Item>> &last) const;
    [[nodiscard]] qint64 writtenKey(const RegistryTree &tree, Handle key, const RegistryPlace &place) const;
    [[nodiscard]] RegistryPlace find(const RegistryTree &tree, Handle key, const QByteArrayList &path) const;
    [[nodiscard]] quint32 grantedAccess(quint32 access) const;
    [[nodiscard]] Handle newHandle(qint64 key, quint32 access);

    RegistryDatabase m_database;
    QHash<Handle, OpenKey> m_openKeys;
    std::optional<Enumerated<RegistryTree::Key>> m_lastKeys;
    std::optional<Enumerated<qint64>> m_lastValues;
    Handle m_lastHandle = 0;
};

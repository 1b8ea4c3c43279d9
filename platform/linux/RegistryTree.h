#pragma once

#include "platform/linux/Sqlite.h"
#include "platform/Registry.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>
#include <utility>

/// A place in the tree of keys as it is seen: a key of the database, or two of which the first hides what the second
/// has by the same name.
struct RegistryPlace
{
    qint64 first;
    qint64 second;

    [[nodiscard]] bool operator==(const RegistryPlace &) const = default;
};

/// The keys and values in the registry's database, by the keys' numbers. Names are in the registry's code page, ISO
/// 8859-1. Whatever fails raises a RegistryFailure. It is to be used within a transaction.
class RegistryTree final
{
public:
    struct Key
    {
        QByteArray name;
        QByteArray className;
        quint64 lastWrite = 0;
    };
    struct Value
    {
        QByteArray name;
        quint32 type = 0;
        QByteArray data;
    };

    explicit RegistryTree(const SqliteConnection &connection)
        : m_connection(connection)
    {
    }

    [[nodiscard]] std::optional<Key> key(qint64 key) const;
    /// RegistryDatabase::None when there is none.
    [[nodiscard]] qint64 child(qint64 parent, const QByteArray &name) const;
    [[nodiscard]] qint64 child(const RegistryPlace &place, const QByteArray &name) const;
    [[nodiscard]] bool hasChildren(qint64 key) const;
    /// @param parent RegistryDatabase::None for a hive
    [[nodiscard]] qint64 makeChild(qint64 parent, const QByteArray &name, const QByteArray &className) const;
    void remove(qint64 key) const;

    [[nodiscard]] std::optional<Value> value(qint64 key, const QByteArray &name) const;
    void setValue(qint64 key, const QByteArray &name, quint32 type, QByteArrayView data) const;
    /// @return false when there is none
    [[nodiscard]] bool removeValue(qint64 key, const QByteArray &name) const;

    /// In the order of the names.
    [[nodiscard]] QList<Key> children(const RegistryPlace &place) const;
    /// The numbers of the values in the database, in the order in which they were made.
    [[nodiscard]] QList<qint64> valueNumbers(const RegistryPlace &place) const;
    [[nodiscard]] std::optional<Value> value(qint64 number) const;
    /// See SqliteConnection::version().
    [[nodiscard]] std::pair<qint64, qint64> version() const { return m_connection.version(); }
    /// All but the security descriptor and the time.
    [[nodiscard]] RegistryKeyInfo info(const RegistryPlace &place) const;

private:
    void touch(qint64 key) const;

    const SqliteConnection &m_connection;
};

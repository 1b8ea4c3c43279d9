#include "platform/linux/RegistryTree.h"

#include "platform/linux/RegistryDatabase.h"

#include <algorithm>
#include <chrono>

namespace {

// What a place shows: what the first key has, and of the second what the first has not.
#define SHOWN_KEYS                                                                                                     \
    " FROM keys AS shown WHERE parent = ?1 OR (parent = ?2 AND NOT EXISTS"                                             \
    " (SELECT 1 FROM keys AS own WHERE own.parent = ?1 AND own.folded = shown.folded)) "
#define SHOWN_ENTRIES                                                                                                  \
    " FROM entries AS shown WHERE key = ?1 OR (key = ?2 AND NOT EXISTS"                                                \
    " (SELECT 1 FROM entries AS own WHERE own.key = ?1 AND own.folded = shown.folded)) "

QByteArray stored(const QByteArray &name)
{
    return QString::fromLatin1(name).toUtf8();
}

QByteArray given(const QByteArray &text)
{
    return QString::fromUtf8(text).toLatin1();
}

char upperCase(char c)
{
    const auto code = static_cast<uchar>(c);
    const bool isLetter = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
    return isLetter ? static_cast<char>(code - 0x20) : c;
}

/// The form in which names are compared.
QByteArray folded(QByteArray name)
{
    std::transform(name.begin(), name.end(), name.begin(), upperCase);
    return stored(name);
}

qint64 now()
{
    using Steps = std::chrono::duration<qint64, std::ratio<1, 10'000'000>>;
    // From 1601 to 1970, by the manual ("Converting a time_t Value to a File Time").
    constexpr qint64 epoch = 116'444'736'000'000'000;
    return epoch + std::chrono::duration_cast<Steps>(std::chrono::system_clock::now().time_since_epoch()).count();
}

RegistryTree::Key keyOf(const SqliteStatement &row)
{
    return {given(row.text(0)), given(row.text(1)), static_cast<quint64>(row.number(2))};
}

RegistryTree::Value valueOf(const SqliteStatement &row)
{
    return {given(row.text(0)), static_cast<quint32>(row.number(1)), row.bytes(2)};
}

} // namespace

std::optional<RegistryTree::Key> RegistryTree::key(qint64 key) const
{
    SqliteStatement statement(m_connection, "SELECT name, class, written FROM keys WHERE id = ?1");
    statement.bind(key);
    return statement.step() ? std::optional(keyOf(statement)) : std::nullopt;
}

qint64 RegistryTree::child(qint64 parent, const QByteArray &name) const
{
    SqliteStatement statement(m_connection, "SELECT id FROM keys WHERE parent = ?1 AND folded = ?2");
    statement.bind(parent).bindText(folded(name));
    return statement.step() ? statement.number(0) : RegistryDatabase::None;
}

qint64 RegistryTree::child(const RegistryPlace &place, const QByteArray &name) const
{
    const qint64 found = child(place.first, name);
    return found == RegistryDatabase::None ? child(place.second, name) : found;
}

bool RegistryTree::hasChildren(qint64 key) const
{
    SqliteStatement statement(m_connection, "SELECT 1 FROM keys WHERE parent = ?1 LIMIT 1");
    return statement.bind(key).step();
}

qint64 RegistryTree::makeChild(qint64 parent, const QByteArray &name, const QByteArray &className) const
{
    SqliteStatement statement(m_connection, "INSERT INTO keys (parent, name, folded, class, written)"
                                            " VALUES (nullif(?1, -1), ?2, ?3, ?4, ?5)");
    statement.bind(parent).bindText(stored(name)).bindText(folded(name)).bindText(stored(className)).bind(now()).run();
    const qint64 made = m_connection.lastInsertedRow();
    touch(parent);
    return made;
}

void RegistryTree::remove(qint64 key) const
{
    SqliteStatement parent(m_connection, "UPDATE keys SET written = ?1 WHERE id ="
                                         " (SELECT parent FROM keys WHERE id = ?2)");
    parent.bind(now()).bind(key).run();
    SqliteStatement statement(m_connection, "DELETE FROM keys WHERE id = ?1");
    statement.bind(key).run();
}

std::optional<RegistryTree::Value> RegistryTree::value(qint64 key, const QByteArray &name) const
{
    SqliteStatement statement(m_connection, "SELECT name, type, data FROM entries WHERE key = ?1 AND folded = ?2");
    statement.bind(key).bindText(folded(name));
    return statement.step() ? std::optional(valueOf(statement)) : std::nullopt;
}

void RegistryTree::setValue(qint64 key, const QByteArray &name, quint32 type, QByteArrayView data) const
{
    // A value keeps the name and the position that it was made with.
    SqliteStatement statement(m_connection, "INSERT INTO entries (key, name, folded, type, data)"
                                            " VALUES (?1, ?2, ?3, ?4, ?5)"
                                            " ON CONFLICT (key, folded) DO UPDATE"
                                            " SET type = excluded.type, data = excluded.data");
    statement.bind(key).bindText(stored(name)).bindText(folded(name)).bind(type).bindBytes(data).run();
    touch(key);
}

bool RegistryTree::removeValue(qint64 key, const QByteArray &name) const
{
    SqliteStatement statement(m_connection, "DELETE FROM entries WHERE key = ?1 AND folded = ?2 RETURNING id");
    statement.bind(key).bindText(folded(name));
    if (!statement.step())
        return false;
    statement.run();
    touch(key);
    return true;
}

QList<RegistryTree::Key> RegistryTree::children(const RegistryPlace &place) const
{
    SqliteStatement statement(m_connection, "SELECT name, class, written" SHOWN_KEYS "ORDER BY folded");
    statement.bind(place.first).bind(place.second);
    QList<Key> keys;
    while (statement.step())
        keys << keyOf(statement);
    return keys;
}

QList<qint64> RegistryTree::valueNumbers(const RegistryPlace &place) const
{
    SqliteStatement statement(m_connection, "SELECT id" SHOWN_ENTRIES "ORDER BY key <> ?1, id");
    statement.bind(place.first).bind(place.second);
    QList<qint64> numbers;
    while (statement.step())
        numbers << statement.number(0);
    return numbers;
}

std::optional<RegistryTree::Value> RegistryTree::value(qint64 number) const
{
    SqliteStatement statement(m_connection, "SELECT name, type, data FROM entries WHERE id = ?1");
    statement.bind(number);
    return statement.step() ? std::optional(valueOf(statement)) : std::nullopt;
}

RegistryKeyInfo RegistryTree::info(const RegistryPlace &place) const
{
    const auto number = [](const SqliteStatement &row, int column) { return static_cast<quint32>(row.number(column)); };
    RegistryKeyInfo info;
    SqliteStatement keys(m_connection, "SELECT count(*), max(length(name)), max(length(class))" SHOWN_KEYS);
    if (keys.bind(place.first).bind(place.second).step()) {
        info.subKeys = number(keys, 0);
        info.longestSubKeyName = number(keys, 1);
        info.longestClassName = number(keys, 2);
    }
    SqliteStatement entries(m_connection, "SELECT count(*), max(length(name)), max(length(data))" SHOWN_ENTRIES);
    if (entries.bind(place.first).bind(place.second).step()) {
        info.values = number(entries, 0);
        info.longestValueName = number(entries, 1);
        info.longestData = number(entries, 2);
    }
    return info;
}

void RegistryTree::touch(qint64 key) const
{
    SqliteStatement statement(m_connection, "UPDATE keys SET written = ?1 WHERE id = ?2");
    statement.bind(now()).bind(key).run();
}

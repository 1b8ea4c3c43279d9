#pragma once

#include "platform/linux/LockPatience.h"
#include "platform/linux/Sqlite.h"

#include <QByteArray>

#include <functional>
#include <optional>

/// The database file that the registry's keys and values are in. It is opened when it is first asked for, and made then
/// when it is missing; one that cannot be used stays as it is and is tried again with the next question.
///
/// Names are UTF-8 in it, so that a person can read them with SQLite's own tools; data are bytes. The journal is the
/// one that SQLite rolls back (not its write-ahead log), which also works in a home folder on another machine.
class RegistryDatabase final
{
public:
    // clang-format off
    /// The keys that every database has.
    static constexpr qint64 LocalMachine  = 1;
    static constexpr qint64 Users         = 2;
    static constexpr qint64 CurrentConfig = 3;
    static constexpr qint64 Software      = 4;
    /// A number that no key has.
    static constexpr qint64 None          = -1;
    // clang-format on

    /// @param userKey the name of the user's key below HKEY_USERS, UTF-8; asked for when the file is opened
    RegistryDatabase(const QByteArray &path, std::function<QByteArray()> userKey);

    /// @throws RegistryFailure
    [[nodiscard]] const SqliteConnection &connection();

    /// To be told when another program has kept the database locked until an operation gave up.
    void gaveUp() { m_patience.gaveUp(LockPatience::Clock::now()); }

    /// Whether there is a file, which may prove unusable. Asking makes none.
    [[nodiscard]] bool isThere() const;

    /// How often the file has been opened. What was learned from an earlier file means nothing in a later one.
    [[nodiscard]] quint64 generation() const { return m_generation; }

    /// False when the file or its folder may not be written. Nothing is tried out, so that true may prove wrong.
    [[nodiscard]] bool isWritable() const;

    /// The user's key, or None where it is missing and cannot be made.
    [[nodiscard]] qint64 userKey() const { return m_userKey; }

private:
    void makeFolder() const;
    [[nodiscard]] bool isFolderWritable() const;
    void open(std::chrono::milliseconds patience);
    void prepareTables() const;
    void prepareUserKey();

    QByteArray m_path;
    std::function<QByteArray()> m_userKeyName;
    LockPatience m_patience;
    std::optional<SqliteConnection> m_connection;
    quint64 m_generation = 0;
    qint64 m_userKey = None;
};

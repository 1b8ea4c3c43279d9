#pragma once

#include "platform/Registry.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDeadlineTimer>

#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <utility>

/// Raised within the registry's store when an operation cannot go on; the store's own operations turn it into their
/// result.
struct RegistryFailure
{
    Registry::Result result;
};

/// The failure that an errno value stands for.
[[nodiscard]] RegistryFailure failureOfSystem(int error);

/// A connection to a database file, which is closed with it.
class SqliteConnection final
{
public:
    /// Opens the database at path, and makes it an empty one when it is missing.
    /// @param patience see setPatience()
    /// @throws RegistryFailure
    SqliteConnection(const QByteArray &path, std::chrono::milliseconds patience);
    SqliteConnection(const SqliteConnection &) = delete;
    SqliteConnection &operator=(const SqliteConnection &) = delete;
    ~SqliteConnection() = default;

    /// How long each statement waits while another program has the database locked.
    void setPatience(std::chrono::milliseconds patience);

    /// @throws RegistryFailure
    void run(const char *statements) const;

    /// True when the file may only be read.
    [[nodiscard]] bool isReadOnly() const;
    /// True when another file, or none, has the database's name by now.
    [[nodiscard]] bool hasMoved() const;
    [[nodiscard]] bool isInTransaction() const;
    [[nodiscard]] qint64 lastInsertedRow() const;
    /// Another pair of numbers after every change, whoever has made it. To be asked for within a transaction.
    [[nodiscard]] std::pair<qint64, qint64> version() const;
    [[nodiscard]] sqlite3 *get() const { return m_connection.get(); }

    /// The failure that the result of a call stands for.
    [[nodiscard]] RegistryFailure failureOf(int code) const;

private:
    struct Close
    {
        void operator()(sqlite3 *connection) const { sqlite3_close(connection); }
    };

    static int waitForLock(void *connection, int times);

    std::unique_ptr<sqlite3, Close> m_connection;
    std::chrono::milliseconds m_patience{0};
    QDeadlineTimer m_deadline;
};

/// One statement with its parameters. Whatever fails raises a RegistryFailure.
class SqliteStatement final
{
public:
    SqliteStatement(const SqliteConnection &connection, const char *text);

    /// The next parameter, in the order of their numbers. Bytes that are bound have to stay until the last step.
    SqliteStatement &bind(qint64 number);
    SqliteStatement &bindText(const QByteArray &utf8);
    SqliteStatement &bindBytes(QByteArrayView bytes);

    /// @return true when there is a row to be read; false at the end
    [[nodiscard]] bool step();
    /// To the end, for statements without rows.
    void run();

    [[nodiscard]] qint64 number(int column) const;
    [[nodiscard]] QByteArray text(int column) const;
    [[nodiscard]] QByteArray bytes(int column) const;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    };

    void check(int code) const;

    const SqliteConnection &m_connection;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_parameter = 0;
};

/// What is done while it lives is done as one, or undone unless commit() was called. One that reads sees the database
/// as it is at its first statement.
class SqliteTransaction final
{
public:
    enum class Kind { Read, Write };

    SqliteTransaction(const SqliteConnection &connection, Kind kind);
    SqliteTransaction(const SqliteTransaction &) = delete;
    SqliteTransaction &operator=(const SqliteTransaction &) = delete;
    ~SqliteTransaction();

    /// When it has returned, what was written is on the disk. @throws RegistryFailure
    void commit();

private:
    const SqliteConnection &m_connection;
};

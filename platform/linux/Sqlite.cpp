#include "platform/linux/Sqlite.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <thread>

namespace {

constexpr std::chrono::milliseconds lockPoll{2};

struct CodeRow
{
    int code;
    Registry::Result result;
};

// clang-format off
constexpr std::array<CodeRow, 13> codeTable {{
    {SQLITE_PERM,     Registry::Result::AccessDenied},
    {SQLITE_AUTH,     Registry::Result::AccessDenied},
    {SQLITE_READONLY, Registry::Result::AccessDenied},
    {SQLITE_BUSY,     Registry::Result::Busy},
    {SQLITE_LOCKED,   Registry::Result::Busy},
    {SQLITE_PROTOCOL, Registry::Result::Busy},
    {SQLITE_NOMEM,    Registry::Result::NotEnoughMemory},
    {SQLITE_FULL,     Registry::Result::DiskFull},
    {SQLITE_CANTOPEN, Registry::Result::CannotOpen},
    {SQLITE_CORRUPT,  Registry::Result::RegistryCorrupt},
    {SQLITE_NOTADB,   Registry::Result::RegistryCorrupt},
    {SQLITE_TOOBIG,   Registry::Result::NoSystemResources},
    {SQLITE_IOERR,    Registry::Result::RegistryIoFailed},
}};
// clang-format on

std::optional<Registry::Result> resultOfSystem(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
        return Registry::Result::AccessDenied;
    case ENOSPC:
    case EDQUOT:
        return Registry::Result::DiskFull;
    default:
        return std::nullopt;
    }
}

} // namespace

RegistryFailure failureOfSystem(int error)
{
    return {resultOfSystem(error).value_or(Registry::Result::CannotOpen)};
}

SqliteConnection::SqliteConnection(const QByteArray &path, std::chrono::milliseconds patience)
{
    sqlite3 *connection = nullptr;
    const int code =
        sqlite3_open_v2(path.constData(), &connection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    m_connection.reset(connection);
    if (code != SQLITE_OK)
        throw failureOf(code);
    setPatience(patience);
    // EXTRA waits for the folder too, without which a change could come undone when the machine stops.
    run("PRAGMA synchronous=EXTRA; PRAGMA foreign_keys=ON; PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON");
}

void SqliteConnection::run(const char *statements) const
{
    const int code = sqlite3_exec(get(), statements, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw failureOf(code);
}

void SqliteConnection::setPatience(std::chrono::milliseconds patience)
{
    m_patience = patience;
    sqlite3_busy_handler(get(), waitForLock, this);
}

/// Called again and again while another program has the lock. The library's own way looks ever more rarely; beside
/// programs that store one value after the other it would not get in between before its time is up.
/// @param times how often it has been called for this lock
/// @return 0 to give up
int SqliteConnection::waitForLock(void *connection, int times)
{
    auto &self = *static_cast<SqliteConnection *>(connection);
    if (times == 0)
        self.m_deadline.setRemainingTime(self.m_patience);
    if (self.m_deadline.hasExpired())
        return 0;
    std::this_thread::sleep_for(lockPoll);
    return 1;
}

bool SqliteConnection::isReadOnly() const
{
    return sqlite3_db_readonly(get(), "main") != 0;
}

bool SqliteConnection::hasMoved() const
{
    int isMoved = 0;
    return sqlite3_file_control(get(), "main", SQLITE_FCNTL_HAS_MOVED, &isMoved) == SQLITE_OK && isMoved != 0;
}

bool SqliteConnection::isInTransaction() const
{
    return sqlite3_get_autocommit(get()) == 0;
}

qint64 SqliteConnection::lastInsertedRow() const
{
    return sqlite3_last_insert_rowid(get());
}

std::pair<qint64, qint64> SqliteConnection::version() const
{
    // The first number tells of the changes of others, the second of those of this connection.
    SqliteStatement version(*this, "PRAGMA data_version");
    if (!version.step())
        throw failureOf(SQLITE_ERROR);
    return {version.number(0), sqlite3_total_changes64(get())};
}

RegistryFailure SqliteConnection::failureOf(int code) const
{
    if (get() == nullptr)
        return {Registry::Result::NotEnoughMemory};
    const int primary = code & 0xFF;
    if (primary == SQLITE_CANTOPEN || primary == SQLITE_IOERR) {
        if (const auto result = resultOfSystem(sqlite3_system_errno(get())))
            return {*result};
    }
    const auto *row = std::find_if(codeTable.begin(), codeTable.end(),
                                   [primary](const CodeRow &candidate) { return candidate.code == primary; });
    // What is left says that the tables are not those that this program makes.
    return {row == codeTable.end() ? Registry::Result::BadDatabase : row->result};
}

SqliteStatement::SqliteStatement(const SqliteConnection &connection, const char *text)
    : m_connection(connection)
{
    sqlite3_stmt *statement = nullptr;
    check(sqlite3_prepare_v2(connection.get(), text, -1, &statement, nullptr));
    m_statement.reset(statement);
}

SqliteStatement &SqliteStatement::bind(qint64 number)
{
    check(sqlite3_bind_int64(m_statement.get(), ++m_parameter, number));
    return *this;
}

SqliteStatement &SqliteStatement::bindText(const QByteArray &utf8)
{
    check(sqlite3_bind_text64(m_statement.get(), ++m_parameter, utf8.constData(),
                              static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

SqliteStatement &SqliteStatement::bindBytes(QByteArrayView bytes)
{
    // A null pointer would be stored as NULL and not as no bytes.
    const void *data = bytes.isNull() ? "" : bytes.data();
    check(sqlite3_bind_blob64(m_statement.get(), ++m_parameter, data, static_cast<sqlite3_uint64>(bytes.size()),
                              SQLITE_STATIC));
    return *this;
}

bool SqliteStatement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        throw m_connection.failureOf(code);
    return code == SQLITE_ROW;
}

void SqliteStatement::run()
{
    while (step()) {
    }
}

qint64 SqliteStatement::number(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

QByteArray SqliteStatement::text(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    return {text, sqlite3_column_bytes(m_statement.get(), column)};
}

QByteArray SqliteStatement::bytes(int column) const
{
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(m_statement.get(), column));
    return {bytes, sqlite3_column_bytes(m_statement.get(), column)};
}

void SqliteStatement::check(int code) const
{
    if (code != SQLITE_OK)
        throw m_connection.failureOf(code);
}

SqliteTransaction::SqliteTransaction(const SqliteConnection &connection, Kind kind)
    : m_connection(connection)
{
    m_connection.run(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

SqliteTransaction::~SqliteTransaction()
{
    // Some failures have undone everything already.
    if (m_connection.isInTransaction())
        sqlite3_exec(m_connection.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteTransaction::commit()
{
    m_connection.run("COMMIT");
}

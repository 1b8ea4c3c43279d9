#include "platform/linux/RegistryDatabase.h"

#include "platform/linux/RegistryTree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace {

// "Zreg", by which the file is known as this program's; and the version of its tables.
constexpr qint64 applicationId = 0x5A726567;
constexpr qint64 tablesVersion = 1;

constexpr mode_t folderMode = 0700;

constexpr const char *makeTables = R"(
CREATE TABLE keys (
    id      INTEGER PRIMARY KEY AUTOINCREMENT,
    parent  INTEGER REFERENCES keys (id),
    name    TEXT NOT NULL,
    folded  TEXT NOT NULL,
    class   TEXT NOT NULL,
    written INTEGER NOT NULL,
    UNIQUE (parent, folded)
) STRICT;
CREATE TABLE entries (
    id      INTEGER PRIMARY KEY AUTOINCREMENT,
    key     INTEGER NOT NULL REFERENCES keys (id) ON DELETE CASCADE,
    name    TEXT NOT NULL,
    folded  TEXT NOT NULL,
    type    INTEGER NOT NULL,
    data    BLOB NOT NULL,
    UNIQUE (key, folded)
) STRICT;
)";

struct FixedKey
{
    qint64 id;
    qint64 parent;
    const char *name;
};

// clang-format off
constexpr std::array<FixedKey, 4> fixedKeys {{
    {RegistryDatabase::LocalMachine,  RegistryDatabase::None,         "HKEY_LOCAL_MACHINE"},
    {RegistryDatabase::Users,         RegistryDatabase::None,         "HKEY_USERS"},
    {RegistryDatabase::CurrentConfig, RegistryDatabase::None,         "HKEY_CURRENT_CONFIG"},
    {RegistryDatabase::Software,      RegistryDatabase::LocalMachine, "SOFTWARE"},
}};
// clang-format on

qint64 numberOf(const SqliteConnection &connection, const char *question)
{
    SqliteStatement statement(connection, question);
    return statement.step() ? statement.number(0) : 0;
}

bool hasTables(const SqliteConnection &connection)
{
    const qint64 id = numberOf(connection, "PRAGMA application_id");
    const qint64 version = numberOf(connection, "PRAGMA user_version");
    if (id == applicationId && version == tablesVersion)
        return true;
    // A database of something else, or of a later version of this program, is left alone.
    if (id != 0 || version != 0 || numberOf(connection, "SELECT count(*) FROM sqlite_schema") != 0)
        throw RegistryFailure{Registry::Result::BadDatabase};
    return false;
}

QByteArray folderOf(const QByteArray &path)
{
    return path.first(std::max<qsizetype>(path.lastIndexOf('/'), 1));
}

} // namespace

RegistryDatabase::RegistryDatabase(const QByteArray &path, std::function<QByteArray()> userKey)
    : m_path(path)
    , m_userKeyName(std::move(userKey))
{
}

const SqliteConnection &RegistryDatabase::connection()
{
    // Written to a file that has no name any more, a value would be lost without a word.
    if (m_connection && m_connection->hasMoved())
        m_connection.reset();
    const std::chrono::milliseconds patience = m_patience.at(LockPatience::Clock::now());
    if (m_connection) {
        m_connection->setPatience(patience);
        return *m_connection;
    }
    try {
        open(patience);
    } catch (const RegistryFailure &) {
        m_connection.reset();
        throw;
    }
    return *m_connection;
}

bool RegistryDatabase::isThere() const
{
    struct stat status = {};
    return stat(m_path.constData(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

bool RegistryDatabase::isWritable() const
{
    return m_connection && !m_connection->isReadOnly() && isFolderWritable();
}

/// errno says why when it is not.
bool RegistryDatabase::isFolderWritable() const
{
    return faccessat(AT_FDCWD, folderOf(m_path).constData(), W_OK | X_OK, AT_EACCESS) == 0;
}

void RegistryDatabase::open(std::chrono::milliseconds patience)
{
    makeFolder();
    try {
        m_connection.emplace(m_path, patience);
    } catch (const RegistryFailure &failure) {
        // The reason that SQLite gives is that of its second try, for reading alone.
        if (failure.result == Registry::Result::CannotOpen && !isFolderWritable())
            throw failureOfSystem(errno);
        throw;
    }
    ++m_generation;
    prepareTables();
    prepareUserKey();
}

void RegistryDatabase::makeFolder() const
{
    const QByteArray folder = folderOf(m_path);
    for (qsizetype end = folder.indexOf('/', 1);; end = folder.indexOf('/', end + 1)) {
        const QByteArray part = end < 0 ? folder : folder.first(end);
        if (mkdir(part.constData(), folderMode) != 0) {
            // What is there fails too, and not always because it is there.
            const int error = errno;
            struct stat status = {};
            if (stat(part.constData(), &status) != 0)
                throw failureOfSystem(error);
            if (!S_ISDIR(status.st_mode))
                throw failureOfSystem(ENOTDIR);
        }
        if (end < 0)
            return;
    }
}

void RegistryDatabase::prepareTables() const
{
    if (hasTables(*m_connection))
        return;
    SqliteTransaction transaction(*m_connection, SqliteTransaction::Kind::Write);
    // Another program may have been faster.
    if (hasTables(*m_connection))
        return;
    m_connection->run(makeTables);
    const RegistryTree tree(*m_connection);
    for (const FixedKey &key : fixedKeys) {
        if (tree.makeChild(key.parent, key.name, {}) != key.id)
            throw RegistryFailure{Registry::Result::BadDatabase};
    }
    m_connection->run(("PRAGMA application_id=" + QByteArray::number(applicationId) +
                       "; PRAGMA user_version=" + QByteArray::number(tablesVersion))
                          .constData());
    transaction.commit();
}

void RegistryDatabase::prepareUserKey()
{
    const QByteArray name = m_userKeyName();
    const RegistryTree tree(*m_connection);
    m_userKey = tree.child(Users, name);
    if (m_userKey != None || !isWritable())
        return;
    SqliteTransaction transaction(*m_connection, SqliteTransaction::Kind::Write);
    m_userKey = tree.child(Users, name);
    if (m_userKey == None) {
        m_userKey = tree.makeChild(Users, name, {});
        transaction.commit();
    }
}

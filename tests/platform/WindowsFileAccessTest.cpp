#include "tests/platform/WindowsFileFixture.h"

#include "platform/RuntimeError.h"
#include "platform/windows/WindowsPath.h"
#include "tests/support/Errors.h"

#include <QFile>

#include <limits>
#include <utility>

namespace {

/// Large content in a few words, for the report of a test that fails.
std::string brief(const QByteArray &bytes)
{
    if (bytes.size() < 40)
        return bytes.toStdString();
    return (QByteArray::number(bytes.size()) + " bytes from " + bytes.first(8) + " to " + bytes.last(8)).toStdString();
}

/// The real calls, of which one goes wrong.
class TroubledCalls final : public WindowsCalls
{
public:
    enum class Trouble { Fails, ProcessEnds };

    /// @param at the number of the call, counted from 1, that fails or that the process does not live to make
    TroubledCalls(Trouble trouble, int at, DWORD error = ERROR_DISK_FULL)
        : m_trouble(trouble)
        , m_at(at)
        , m_error(error)
    {
    }

    [[nodiscard]] int count() const { return m_count; }

    HANDLE createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security, DWORD disposition,
                      DWORD flags) override
    {
        return isTroubled() ? INVALID_HANDLE_VALUE
                            : WindowsCalls::createFile(path, access, share, security, disposition, flags);
    }
    bool closeHandle(HANDLE file) override
    {
        // Whatever happens to the process, the system closes its files.
        const bool isFailing = isTroubled();
        return WindowsCalls::closeHandle(file) && !isFailing;
    }
    bool readFile(HANDLE file, void *buffer, DWORD size, DWORD *count) override
    {
        return !isTroubled() && WindowsCalls::readFile(file, buffer, size, count);
    }
    bool writeFile(HANDLE file, const void *bytes, DWORD size, DWORD *count) override
    {
        if (!isTroubled())
            return WindowsCalls::writeFile(file, bytes, size, count);
        // It ends half way.
        if (m_count == m_at)
            (void)WindowsCalls::writeFile(file, bytes, size / 2, count);
        SetLastError(m_error);
        return false;
    }
    bool setFilePointer(HANDLE file, qint64 offset) override
    {
        return !isTroubled() && WindowsCalls::setFilePointer(file, offset);
    }
    bool setEndOfFile(HANDLE file) override { return !isTroubled() && WindowsCalls::setEndOfFile(file); }
    bool flushFileBuffers(HANDLE file) override { return !isTroubled() && WindowsCalls::flushFileBuffers(file); }
    DWORD getFileType(HANDLE file) override
    {
        return isTroubled() ? DWORD(FILE_TYPE_UNKNOWN) : WindowsCalls::getFileType(file);
    }
    bool getFileInformation(HANDLE file, BY_HANDLE_FILE_INFORMATION *information) override
    {
        return !isTroubled() && WindowsCalls::getFileInformation(file, information);
    }
    bool setDeleteOnClose(HANDLE file, bool isDeleted) override
    {
        return !isTroubled() && WindowsCalls::setDeleteOnClose(file, isDeleted);
    }
    DWORD getFinalPathName(HANDLE file, wchar_t *buffer, DWORD size) override
    {
        return isTroubled() ? 0 : WindowsCalls::getFinalPathName(file, buffer, size);
    }
    DWORD getFileAttributes(const QString &path) override
    {
        return isTroubled() ? INVALID_FILE_ATTRIBUTES : WindowsCalls::getFileAttributes(path);
    }
    bool getFileSecurity(const QString &path, SECURITY_INFORMATION parts, void *descriptor, DWORD size,
                         DWORD *needed) override
    {
        return !isTroubled() && WindowsCalls::getFileSecurity(path, parts, descriptor, size, needed);
    }
    bool createDirectory(const QString &path) override { return !isTroubled() && WindowsCalls::createDirectory(path); }
    bool deleteFile(const QString &path) override { return !isTroubled() && WindowsCalls::deleteFile(path); }
    bool moveFile(const QString &from, const QString &to, DWORD flags) override
    {
        return !isTroubled() && WindowsCalls::moveFile(from, to, flags);
    }
    bool replaceFile(const QString &replaced, const QString &replacement, const QString &backup) override
    {
        if (!isTroubled())
            return WindowsCalls::replaceFile(replaced, replacement, backup);
        // The replacement is two renames: it may get no further than the first.
        if (m_count == m_at && m_trouble == Trouble::ProcessEnds)
            (void)WindowsCalls::moveFile(replaced, backup, 0);
        SetLastError(m_error);
        return false;
    }

private:
    bool isTroubled()
    {
        ++m_count;
        const bool result = m_trouble == Trouble::Fails ? m_count == m_at : m_count >= m_at;
        if (result)
            SetLastError(m_error);
        return result;
    }

    Trouble m_trouble;
    int m_at;
    DWORD m_error;
    int m_count = 0;
};

class WindowsFileAccessTest : public WindowsFileFixture
{
protected:
    const QByteArray m_old = QByteArray(700'000, 'o') + "old end\r\n";
    const QByteArray m_new = QByteArray(900'000, 'n') + "new end\r\n";
};

/// ReplaceFile refuses with one of its own error codes, after what the Windows documentation says of that code.
class RefusingCalls final : public WindowsCalls
{
public:
    /// @param isHalfDone whether the old file has its other name by then
    RefusingCalls(DWORD error, bool isHalfDone)
        : m_error(error)
        , m_isHalfDone(isHalfDone)
    {
    }

    bool replaceFile(const QString &replaced, const QString &, const QString &backup) override
    {
        if (m_isHalfDone)
            (void)WindowsCalls::moveFile(replaced, backup, 0);
        SetLastError(m_error);
        return false;
    }

private:
    DWORD m_error;
    bool m_isHalfDone;
};

/// ReplaceFile stops half way, and the old file does not get back its name.
class StuckCalls final : public WindowsCalls
{
public:
    bool moveFile(const QString &, const QString &, DWORD) override
    {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }

    bool replaceFile(const QString &replaced, const QString &, const QString &backup) override
    {
        (void)WindowsCalls::moveFile(replaced, backup, 0);
        SetLastError(ERROR_UNABLE_TO_MOVE_REPLACEMENT_2);
        return false;
    }
};

/// One kind of call fails for one reason.
class FailingCalls final : public WindowsCalls
{
public:
    enum class Call { Open, Make, Write };

    FailingCalls(Call call, DWORD error)
        : m_call(call)
        , m_error(error)
    {
    }

    HANDLE createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security, DWORD disposition,
                      DWORD flags) override
    {
        if (m_call != (disposition == CREATE_NEW ? Call::Make : Call::Open))
            return WindowsCalls::createFile(path, access, share, security, disposition, flags);
        SetLastError(m_error);
        return INVALID_HANDLE_VALUE;
    }

    bool writeFile(HANDLE file, const void *bytes, DWORD size, DWORD *count) override
    {
        if (m_call != Call::Write)
            return WindowsCalls::writeFile(file, bytes, size, count);
        SetLastError(m_error);
        return false;
    }

private:
    Call m_call;
    DWORD m_error;
};

/// Finds out whether the system would ask the user for the medium of an empty drive.
class WatchedCalls final : public WindowsCalls
{
public:
    explicit WatchedCalls(int &questions)
        : m_questions(questions)
    {
    }

    HANDLE createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security, DWORD disposition,
                      DWORD flags) override
    {
        watch();
        return WindowsCalls::createFile(path, access, share, security, disposition, flags);
    }

    DWORD getFileAttributes(const QString &path) override
    {
        watch();
        return WindowsCalls::getFileAttributes(path);
    }

private:
    void watch() { m_questions += (GetThreadErrorMode() & SEM_FAILCRITICALERRORS) == 0 ? 1 : 0; }

    int &m_questions;
};

// Every way in which a save can find the file: to be made, to be replaced, to be written in place; longer and shorter.
enum class Kind { Missing, Plain, Linked };

struct Save
{
    const char *name;
    Kind kind;
    bool isShrinking;
};

class WindowsSaveTest : public WindowsFileAccessTest, public testing::WithParamInterface<Save>
{
protected:
    [[nodiscard]] QByteArray before() const { return GetParam().isShrinking ? m_new : m_old; }
    [[nodiscard]] QByteArray after() const { return GetParam().isShrinking ? m_old : m_new; }

    void prepare() const
    {
        const QString link = path(QStringLiteral("link.zcf"));
        QFile::remove(link);
        QFile::remove(path());
        QFile::remove(path() + QStringLiteral(".zentilconf-old"));
        if (GetParam().kind == Kind::Missing)
            return;
        store(path(), before());
        if (GetParam().kind == Kind::Plain)
            return;
        ASSERT_TRUE(CreateHardLinkW(wide(link), wide(path()), nullptr));
    }

    [[nodiscard]] QByteArray bytesBefore() const
    {
        return GetParam().kind == Kind::Missing ? QByteArrayLiteral("<no file>") : before();
    }

    /// Saves with one call in trouble. @return the error's number and the number of calls made
    [[nodiscard]] std::pair<int, int> saveInTrouble(TroubledCalls::Trouble trouble, int at) const
    {
        auto calls = std::make_unique<TroubledCalls>(trouble, at);
        const TroubledCalls &counted = *calls;
        WindowsFileAccess files = access(std::move(calls));
        const int error = errorNumberOf([&] { files.writeFile(path(), after()); });
        return {error, counted.count()};
    }

    [[nodiscard]] int callsOfASave() const
    {
        prepare();
        const auto [error, count] = saveInTrouble(TroubledCalls::Trouble::Fails, std::numeric_limits<int>::max());
        EXPECT_EQ(error, 0);
        EXPECT_GT(count, 8);
        return count;
    }
};

INSTANTIATE_TEST_SUITE_P(, WindowsSaveTest,
                         testing::Values(Save{"NewFile", Kind::Missing, false}, Save{"LongerFile", Kind::Plain, false},
                                         Save{"ShorterFile", Kind::Plain, true},
                                         Save{"LongerFileWithTwoNames", Kind::Linked, false},
                                         Save{"ShorterFileWithTwoNames", Kind::Linked, true}),
                         [](const auto &tag) { return std::string(tag.param.name); });

TEST_P(WindowsSaveTest, StoresTheBytesAndLeavesNothingBehind)
{
    prepare();
    const QStringList before = names();
    access().writeFile(path(), after());
    EXPECT_TRUE(bytesOf(path()) == after()) << brief(bytesOf(path()));
    EXPECT_TRUE(read(path()) == after());
    EXPECT_EQ(names(), GetParam().kind == Kind::Missing ? QStringList{QStringLiteral("server.zcf")} : before);
    EXPECT_EQ(copies(), 0);
}

TEST_P(WindowsSaveTest, KeepsBothNamesOfAFile)
{
    if (GetParam().kind != Kind::Linked)
        return;
    prepare();
    access().writeFile(path(), after());
    EXPECT_TRUE(bytesOf(path(QStringLiteral("link.zcf"))) == after());
}

TEST_P(WindowsSaveTest, LeavesTheOldFileOrTheNewOneWhateverCallFails)
{
    int failures = 0;
    const int count = callsOfASave();
    for (int at = 1; at <= count; ++at) {
        SCOPED_TRACE(at);
        prepare();
        const int error = saveInTrouble(TroubledCalls::Trouble::Fails, at).first;
        failures += error != 0;
        // With an error it is the old one, and it is the new one without.
        const QByteArray expected = error != 0 ? bytesBefore() : after();
        EXPECT_TRUE(bytesOf(path()) == expected) << brief(bytesOf(path())) << ", not " << brief(expected);
    }
    EXPECT_GT(failures, 3);
}

TEST_P(WindowsSaveTest, LeavesTheOldFileOrTheNewOneWhereverTheProcessEnds)
{
    const int count = callsOfASave();
    for (int at = 1; at <= count; ++at) {
        SCOPED_TRACE(at);
        prepare();
        (void)saveInTrouble(TroubledCalls::Trouble::ProcessEnds, at);
        // The next one who reads it brings it to an end.
        const QByteArray found = access().fileExists(path()) ? read(path()) : QByteArrayLiteral("<no file>");
        EXPECT_TRUE(found == bytesBefore() || found == after()) << brief(found);
        EXPECT_TRUE(bytesOf(path()) == found) << brief(bytesOf(path())) << ", not " << brief(found);
    }
}

TEST_P(WindowsSaveTest, CanBeRepeatedAfterTheProcessEnded)
{
    const int count = callsOfASave();
    for (int at = 1; at <= count; ++at) {
        SCOPED_TRACE(at);
        prepare();
        (void)saveInTrouble(TroubledCalls::Trouble::ProcessEnds, at);
        access().writeFile(path(), "again\r\n");
        EXPECT_EQ(bytesOf(path()), "again\r\n");
        EXPECT_EQ(read(path()), "again\r\n");
    }
}

TEST_F(WindowsFileAccessTest, WritesInPlaceWhatTheSystemDoesNotReplace)
{
    const std::pair<DWORD, bool> rows[] = {
        {ERROR_UNABLE_TO_REMOVE_REPLACED, false},
        {ERROR_UNABLE_TO_MOVE_REPLACEMENT, false},
        {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2, true},
        {ERROR_INVALID_PARAMETER, false},
        // As a file server may have it that knows no such error.
        {ERROR_ACCESS_DENIED, true},
    };
    for (const auto &[error, isHalfDone] : rows) {
        SCOPED_TRACE(error);
        store(path(), m_old);
        access(std::make_unique<RefusingCalls>(error, isHalfDone)).writeFile(path(), m_new);
        EXPECT_TRUE(bytesOf(path()) == m_new) << brief(bytesOf(path()));
        EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
        EXPECT_EQ(copies(), 0);
    }
}

TEST_F(WindowsFileAccessTest, TellsWhereTheOldFileIsWhenItHasLostItsName)
{
    store(path(), m_old);
    const auto error = errorOf([this] { access(std::make_unique<StuckCalls>()).writeFile(path(), m_new); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), RuntimeError::PermissionDenied);
    EXPECT_EQ(error->path(), path());
    EXPECT_EQ(error->detail(), QStringLiteral("The file is now called \"%1.zentilconf-old\".").arg(path()));
    // Whoever reads it next gives it back its name.
    EXPECT_TRUE(access().fileExists(path()));
    EXPECT_TRUE(read(path()) == m_old);
    EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
}

struct Reason
{
    DWORD error;
    RuntimeError::Number number;
};

// clang-format off
constexpr Reason reasons[] = {
    {ERROR_PATH_NOT_FOUND,       RuntimeError::PathNotFound},
    {ERROR_INVALID_DRIVE,        RuntimeError::PathNotFound},
    {ERROR_BAD_NETPATH,          RuntimeError::PathNotFound},
    {ERROR_BAD_NET_NAME,         RuntimeError::PathNotFound},
    {ERROR_ACCESS_DENIED,        RuntimeError::PermissionDenied},
    {ERROR_SHARING_VIOLATION,    RuntimeError::PermissionDenied},
    {ERROR_LOCK_VIOLATION,       RuntimeError::PermissionDenied},
    {ERROR_LOGON_FAILURE,        RuntimeError::PermissionDenied},
    {ERROR_DISK_FULL,            RuntimeError::DiskFull},
    {ERROR_HANDLE_DISK_FULL,     RuntimeError::DiskFull},
    {1295,                       RuntimeError::DiskFull}, // ERROR_DISK_QUOTA_EXCEEDED
    {ERROR_FILE_TOO_LARGE,       RuntimeError::DiskFull},
    {ERROR_WRITE_PROTECT,        RuntimeError::PathAccess},
    {ERROR_INVALID_NAME,         RuntimeError::PathAccess},
    {ERROR_FILENAME_EXCED_RANGE, RuntimeError::PathAccess},
    {ERROR_CRC,                  RuntimeError::DeviceError},
    {ERROR_NOT_READY,            RuntimeError::DeviceError},
    {ERROR_IO_DEVICE,            RuntimeError::DeviceError},
};
// clang-format on

TEST_F(WindowsFileAccessTest, GivesEveryReasonItsNumber)
{
    using Call = FailingCalls::Call;
    for (const auto &[error, number] : reasons) {
        SCOPED_TRACE(error);
        store(path(), "old");
        const auto access = [this, error = error](Call call) {
            return this->access(std::make_unique<FailingCalls>(call, error));
        };
        EXPECT_EQ(errorNumberOf([&] { access(Call::Open).readFile(path(), [](QByteArrayView) {}); }), number);
        EXPECT_EQ(errorNumberOf([&] { access(Call::Open).writeFile(path(), "new"); }), number);
        EXPECT_EQ(errorNumberOf([&] { access(Call::Write).writeFile(path(), "new"); }), number);
        EXPECT_EQ(bytesOf(path()), "old");
        EXPECT_EQ(errorNumberOf([&] { access(Call::Make).writeFile(path(QStringLiteral("made.zcf")), "new"); }),
                  number);
        EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
        EXPECT_EQ(copies(), 0);
    }
}

TEST_F(WindowsFileAccessTest, FindsFiles)
{
    store(path(), "a");
    EXPECT_TRUE(access().fileExists(path()));
    EXPECT_TRUE(access().fileExists(path().replace(QLatin1Char('\\'), QLatin1Char('/'))));
    EXPECT_FALSE(access().fileExists(path(QStringLiteral("none"))));
    EXPECT_FALSE(access().fileExists(path(QStringLiteral("."))));
    EXPECT_FALSE(access().fileExists(QString()));
    EXPECT_FALSE(access().fileExists(path() + QChar(u'\0')));
}

TEST_F(WindowsFileAccessTest, TellsWhyAFileCannotBeRead)
{
    EXPECT_EQ(readError(path(QStringLiteral("none"))), RuntimeError::FileNotFound);
    EXPECT_EQ(readError(path(QStringLiteral("none\\none"))), RuntimeError::PathNotFound);
    EXPECT_EQ(readError(path(QStringLiteral("."))), RuntimeError::PathAccess);
    EXPECT_EQ(readError(path(QStringLiteral("a?b"))), RuntimeError::PathAccess);
    EXPECT_EQ(readError(QString()), RuntimeError::PathAccess);
    EXPECT_EQ(readError(QStringLiteral("nul")), RuntimeError::PathAccess);
}

TEST_F(WindowsFileAccessTest, TellsWhyAFileCannotBeWritten)
{
    EXPECT_EQ(writeError(path(QStringLiteral("none\\none"))), RuntimeError::PathNotFound);
    EXPECT_EQ(writeError(path(QStringLiteral("."))), RuntimeError::PathAccess);
    EXPECT_EQ(writeError(QString()), RuntimeError::PathAccess);
    EXPECT_EQ(writeError(QStringLiteral("nul")), RuntimeError::PathAccess);

    store(path(), "old");
    ASSERT_TRUE(SetFileAttributesW(wide(path()), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(writeError(path()), RuntimeError::PermissionDenied);
    ASSERT_TRUE(SetFileAttributesW(wide(path()), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(bytesOf(path()), "old");
}

TEST_F(WindowsFileAccessTest, KeepsOffAFileThatAnotherProgramHasForItself)
{
    store(path(), "old");
    const HANDLE other = CreateFileW(wide(path()), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(readError(path()), RuntimeError::PermissionDenied);
    EXPECT_EQ(writeError(path()), RuntimeError::PermissionDenied);
    EXPECT_TRUE(CloseHandle(other));
    EXPECT_EQ(bytesOf(path()), "old");
}

TEST_F(WindowsFileAccessTest, SavesAFileThatAnotherProgramIsReading)
{
    store(path(), "old");
    // It does not let the file be renamed or removed, so the file is written in place.
    const HANDLE other =
        CreateFileW(wide(path()), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(writeError(path()), 0);
    EXPECT_TRUE(CloseHandle(other));
    EXPECT_EQ(bytesOf(path()), "new");
    EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
}

TEST_F(WindowsFileAccessTest, NeverAsksForAMedium)
{
    const DWORD before = GetThreadErrorMode();
    ASSERT_EQ(before & SEM_FAILCRITICALERRORS, 0U);
    int questions = 0;
    WindowsFileAccess files = access(std::make_unique<WatchedCalls>(questions));
    files.writeFile(path(), m_old);
    files.writeFile(path(), m_new);
    EXPECT_TRUE(files.fileExists(path()));
    files.readFile(path(), [](QByteArrayView) {});
    EXPECT_EQ(questions, 0);
    EXPECT_EQ(GetThreadErrorMode(), before) << "the rest of the program stays as it was";
}

TEST_F(WindowsFileAccessTest, TakesPathsLongerThan260Characters)
{
    QString folder;
    for (int i = 0; i < 10; ++i) {
        folder += QStringLiteral("%1\\").arg(i, 40, 10, QLatin1Char('x'));
        ASSERT_TRUE(CreateDirectoryW(wide(WindowsPath(path(folder)).native()), nullptr)) << GetLastError();
    }
    const QString file = path(folder + QStringLiteral("server.zcf"));
    ASSERT_GT(file.size(), 400);
    access().writeFile(file, "first");
    access().writeFile(file, "second");
    EXPECT_TRUE(access().fileExists(file));
    EXPECT_EQ(read(file), "second");
}

TEST_F(WindowsFileAccessTest, TakesNamesInAnyScript)
{
    for (const QString &name : {QStringLiteral(u"\u00e4\u00df"), QStringLiteral(u"\u0416\u0443\u043a"),
                                QStringLiteral(u"\u6587\u4ef6"), QStringLiteral(u"\U0001F4C4")}) {
        const QString file = path(name + QStringLiteral(".zcf"));
        access().writeFile(file, "first");
        access().writeFile(file, "second");
        EXPECT_EQ(read(file), "second");
        EXPECT_TRUE(names().contains(name + QStringLiteral(".zcf")));
    }
}

} // namespace

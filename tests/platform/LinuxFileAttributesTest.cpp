#include "platform/linux/LinuxFileAccess.h"

#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"

#include <QMap>
#include <QtEndian>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr const char *accessListName = "system.posix_acl_access";
constexpr const char *defaultListName = "system.posix_acl_default";
constexpr uid_t strangeOwner = 12'345;
constexpr gid_t strangeGroup = 23'456;

struct Entry
{
    enum Tag : quint16 { Owner = 1, User = 2, OwningGroup = 4, Group = 8, Mask = 16, Other = 32 };
    Tag tag;
    quint16 rights;
    quint32 id = 0xFFFFFFFF;
};

/// An access control list as the kernel takes and gives it: a version and entries of tag, rights and user or group, all
/// little-endian (acl(5) says what they mean).
QByteArray accessList(const std::vector<Entry> &entries)
{
    QByteArray bytes;
    const auto add = [&bytes](auto number) {
        const auto stored = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
    };
    add(quint32(2));
    for (const Entry &entry : entries) {
        add(quint16(entry.tag));
        add(entry.rights);
        add(entry.id);
    }
    return bytes;
}

const QByteArray sharedList = accessList({{Entry::Owner, 6},
                                          {Entry::User, 4, strangeOwner},
                                          {Entry::OwningGroup, 4},
                                          {Entry::Group, 6, strangeGroup},
                                          {Entry::Mask, 6},
                                          {Entry::Other, 0}});

void setAttribute(const QByteArray &path, const char *name, const QByteArray &value)
{
    ASSERT_EQ(setxattr(path.constData(), name, value.constData(), size_t(value.size()), 0), 0)
        << name << ": " << std::strerror(errno);
}

/// All extended attributes with their values.
QMap<QByteArray, QByteArray> attributesOf(const QByteArray &path)
{
    QByteArray names(65'536, '\0');
    const ssize_t size = listxattr(path.constData(), names.data(), size_t(names.size()));
    EXPECT_GE(size, 0);
    QMap<QByteArray, QByteArray> result;
    for (const QByteArray &name : names.first(size).split('\0')) {
        if (name.isEmpty())
            continue;
        QByteArray value(65'536, '\0');
        const ssize_t length = getxattr(path.constData(), name.constData(), value.data(), size_t(value.size()));
        EXPECT_GE(length, 0);
        result[name] = value.first(length);
    }
    return result;
}

class LinuxFileAttributes : public FileWorld
{
protected:
    /// Saves and looks at everything that belongs to a file beside its bytes.
    void expectAttributesStay(const QByteArray &path) const { expectAttributesStay(path, *access()); }

    static void expectAttributesStay(const QByteArray &path, LinuxFileAccess &files)
    {
        const struct stat before = statusOf(path);
        const auto attributes = attributesOf(path);
        for (const int length : {12'000, 700}) {
            EXPECT_NO_THROW(files.writeFile(decodeBytes(path), content(length, 9)));
            EXPECT_EQ(bytesOf(path), content(length, 9));
            const struct stat after = statusOf(path);
            EXPECT_EQ(after.st_uid, before.st_uid);
            EXPECT_EQ(after.st_gid, before.st_gid);
            EXPECT_EQ(after.st_mode, before.st_mode);
            EXPECT_EQ(attributesOf(path), attributes);
        }
    }
};

TEST_F(LinuxFileAttributes, ModesStay)
{
    asOrdinaryUser([this] {
        store(at("replaced"), "old");
        store(at("inPlace"), "old");
        ASSERT_EQ(link(at("inPlace").constData(), at("other").constData()), 0);
        umask(077);
        for (const mode_t mode : {0644U, 0600U, 0666U, 0640U, 0755U, 04755U, 02750U, 02644U, 01644U, 07777U}) {
            for (const char *name : {"replaced", "inPlace"}) {
                ASSERT_EQ(chmod(at(name).constData(), mode), 0);
                ASSERT_EQ(modeOf(at(name)), mode);
                // A write in place by an ordinary user takes the set-user bit away; it has to be put back.
                EXPECT_EQ(writeError(at(name), QByteArray::number(mode, 8)), 0);
                EXPECT_EQ(modeOf(at(name)), mode) << name << ' ' << std::oct << mode;
            }
        }
    });
}

TEST_F(LinuxFileAttributes, ListsAndUserAttributesStay)
{
    asOrdinaryUser([this] {
        for (const char *name : {"replaced", "inPlace"}) {
            store(at(name), "old");
            setAttribute(at(name), accessListName, sharedList);
            setAttribute(at(name), "user.origin", "head office");
            setAttribute(at(name), "user.empty", "");
            setAttribute(at(name), "user.long", content(1'000, 4));
        }
        ASSERT_EQ(link(at("inPlace").constData(), at("other").constData()), 0);
        EXPECT_EQ(attributesOf(at("replaced")).size(), 4);
        expectAttributesStay(at("replaced"));
        expectAttributesStay(at("inPlace"));
        EXPECT_EQ(namesIn(folder()), (QByteArrayList{"inPlace", "other", "replaced"}));
    });
}

TEST_F(LinuxFileAttributes, FileDoesNotCatchTheFoldersDefaultList)
{
    asOrdinaryUser([this] {
        store(at("file"), "old");
        ASSERT_EQ(chmod(at("file").constData(), 0640), 0);
        setAttribute(folder(), defaultListName, sharedList);
        expectAttributesStay(at("file"));
        EXPECT_FALSE(attributesOf(at("file")).contains(accessListName));
        EXPECT_EQ(modeOf(at("file")), 0640U);
    });
}

TEST_F(LinuxFileAttributes, NewFileIsWhatAnyProgramWouldMake)
{
    asOrdinaryUser([this] {
        const auto makeOther = [this](const QByteArray &name) {
            const int file = open(at(name).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
            ASSERT_GE(file, 0);
            EXPECT_EQ(close(file), 0);
        };
        for (const mode_t mask : {022U, 077U, 0U, 002U, 0777U}) {
            umask(mask);
            const QByteArray name = "mask" + QByteArray::number(mask, 8);
            EXPECT_EQ(writeError(at(name)), 0);
            EXPECT_EQ(modeOf(at(name)), 0666U & ~mask);
        }
        umask(022);
        setAttribute(folder(), defaultListName, sharedList);
        EXPECT_EQ(writeError(at("ours")), 0);
        makeOther("theirs");
        EXPECT_TRUE(attributesOf(at("ours")).contains(accessListName));
        EXPECT_EQ(attributesOf(at("ours")), attributesOf(at("theirs")));
        EXPECT_EQ(modeOf(at("ours")), modeOf(at("theirs")));

        ASSERT_EQ(chmod(folder().constData(), 02755), 0);
        EXPECT_EQ(writeError(at("oursInGroupFolder")), 0);
        makeOther("theirsInGroupFolder");
        EXPECT_EQ(statusOf(at("oursInGroupFolder")).st_gid, statusOf(at("theirsInGroupFolder")).st_gid);
    });
}

/// The owners of files by their numbers, beside those that the kernel knows.
using Owners = std::map<ino_t, std::pair<uid_t, gid_t>>;

/// Calls that say of some files that they are somebody else's, where the kernel lets nobody make such files.
class OwnersCalls final : public SystemCalls
{
public:
    /// @param mayGive whether files can be given to others, as the administrator can
    OwnersCalls(const std::shared_ptr<Owners> &owners, bool mayGive)
        : m_owners(owners)
        , m_mayGive(mayGive)
    {
    }

    int fstat(int file, struct stat *result) override
    {
        const int code = SystemCalls::fstat(file, result);
        const auto owner = code == 0 ? m_owners->find(result->st_ino) : m_owners->end();
        if (owner != m_owners->end())
            std::tie(result->st_uid, result->st_gid) = owner->second;
        return code;
    }
    int fchown(int file, uid_t owner, gid_t group) override
    {
        struct stat status = {};
        if (!m_mayGive || SystemCalls::fstat(file, &status) != 0) {
            errno = EPERM;
            return -1;
        }
        (*m_owners)[status.st_ino] = {owner, group};
        // What is given away loses these bits: chown(2).
        return SystemCalls::fchmod(file, status.st_mode & ~mode_t(06000));
    }

private:
    std::shared_ptr<Owners> m_owners;
    bool m_mayGive;
};

/// A file of somebody else. The administrator makes one; an ordinary user is told by the calls that there is one.
class AnotherOwnersFile : public LinuxFileAttributes
{
protected:
    void giveAway(const QByteArray &path)
    {
        if (isAdministrator())
            ASSERT_EQ(chown(path.constData(), strangeOwner, strangeGroup), 0);
        else
            (*owners)[statusOf(path).st_ino] = {strangeOwner, strangeGroup};
    }

    [[nodiscard]] std::pair<uid_t, gid_t> ownerOf(const QByteArray &path) const
    {
        const struct stat status = statusOf(path);
        const auto told = owners->find(status.st_ino);
        return told == owners->end() ? std::pair(status.st_uid, status.st_gid) : told->second;
    }

    /// @param mayGive as in OwnersCalls, which the administrator does without
    [[nodiscard]] std::unique_ptr<LinuxFileAccess> accessOf(bool mayGive) const
    {
        if (isAdministrator())
            return access();
        return std::make_unique<LinuxFileAccess>(std::make_unique<OwnersCalls>(owners, mayGive), recoveryFolder());
    }

    const std::pair<uid_t, gid_t> stranger{strangeOwner, strangeGroup};
    const std::shared_ptr<Owners> owners = std::make_shared<Owners>();
};

TEST_F(AnotherOwnersFile, StaysTheirs)
{
    store(at("file"), "old");
    giveAway(at("file"));
    ASSERT_EQ(chmod(at("file").constData(), 06754), 0);
    setAttribute(at("file"), accessListName, sharedList);
    setAttribute(at("file"), "user.origin", "head office");
    // The kernel lets the administrator alone have these.
    if (isAdministrator())
        setAttribute(at("file"), "trusted.origin", "head office");
    expectAttributesStay(at("file"), *accessOf(true));
    EXPECT_EQ(ownerOf(at("file")), stranger);
    EXPECT_EQ(attributesOf(at("file")).size(), isAdministrator() ? 3 : 2);
    // It was replaced: a write in place would have made the folder of the copies.
    EXPECT_EQ(namesIn(stateFolder()), QByteArrayList());
}

TEST_F(AnotherOwnersFile, ThatMayBeWrittenStaysTheirs)
{
    // As in a folder for everybody, where nobody can replace another's file.
    if (isAdministrator()) {
        ASSERT_EQ(chown(folder().constData(), 0, 0), 0);
    }
    ASSERT_EQ(chmod(folder().constData(), 01777), 0);
    store(at("file"), "old");
    setAttribute(at("file"), "user.origin", "head office");
    giveAway(at("file"));
    ASSERT_EQ(chmod(at("file").constData(), 0666), 0);
    const auto number = statusOf(at("file")).st_ino;
    const std::unique_ptr<LinuxFileAccess> files = accessOf(false);
    asOrdinaryUser([&] { expectAttributesStay(at("file"), *files); });
    EXPECT_EQ(ownerOf(at("file")), stranger);
    EXPECT_EQ(statusOf(at("file")).st_ino, number);
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
}

/// Says that one file belongs to another group, which cannot be given.
class AnotherGroupCalls final : public SystemCalls
{
public:
    /// @param result of giving; some file systems say that they did it and did nothing
    AnotherGroupCalls(ino_t number, int result)
        : m_number(number)
        , m_result(result)
    {
    }

    int fstat(int file, struct stat *result) override
    {
        const int code = SystemCalls::fstat(file, result);
        if (code == 0 && result->st_ino == m_number)
            result->st_gid = strangeGroup;
        return code;
    }
    int fchown(int, uid_t, gid_t) override
    {
        errno = EPERM;
        return m_result;
    }

private:
    ino_t m_number;
    int m_result;
};

TEST_F(LinuxFileAttributes, OwnerThatCannotBeKeptIsWrittenInPlace)
{
    store(at("file"), "old");
    setAttribute(at("file"), "user.origin", "head office");
    const auto attributes = attributesOf(at("file"));
    const auto number = statusOf(at("file")).st_ino;
    for (const int result : {-1, 0}) {
        const QByteArray bytes = "new " + QByteArray::number(result);
        LinuxFileAccess files(std::make_unique<AnotherGroupCalls>(number, result), recoveryFolder());
        files.writeFile(decodeBytes(at("file")), bytes);
        EXPECT_EQ(bytesOf(at("file")), bytes);
        EXPECT_EQ(statusOf(at("file")).st_ino, number);
        EXPECT_EQ(attributesOf(at("file")), attributes);
        EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
    }
}

class LostAttribute : public LinuxFileAttributes, public testing::WithParamInterface<const char *>
{
};

TEST_P(LostAttribute, IsReasonToWriteInPlace)
{
    // An attribute that the new file cannot be given (a full disk, a label that only the system may set).
    store(at("file"), "old");
    setAttribute(at("file"), "user.origin", "head office");
    setAttribute(folder(), defaultListName, sharedList);
    const auto attributes = attributesOf(at("file"));
    const auto number = statusOf(at("file")).st_ino;
    const auto interruption = std::make_shared<Interruption>();
    interruption->errorOf = [](const Interruption::Call &call) {
        return call.name == QByteArray(GetParam()) ? EPERM : 0;
    };
    access(interruption)->writeFile(decodeBytes(at("file")), "new");
    EXPECT_EQ(bytesOf(at("file")), "new");
    EXPECT_EQ(statusOf(at("file")).st_ino, number);
    EXPECT_EQ(attributesOf(at("file")), attributes);
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

INSTANTIATE_TEST_SUITE_P(Calls, LostAttribute,
                         testing::Values("fsetxattr", "fgetxattr", "flistxattr", "fremovexattr", "fchmod"),
                         [](const auto &test) { return std::string(test.param); });

TEST_F(LinuxFileAttributes, FileSystemWithoutAttributesIsNoObstacle)
{
    store(at("file"), "old");
    const auto number = statusOf(at("file")).st_ino;
    const auto interruption = std::make_shared<Interruption>();
    interruption->errorOf = [](const Interruption::Call &call) {
        return QByteArray(call.name).endsWith("xattr") ? ENOTSUP : 0;
    };
    access(interruption)->writeFile(decodeBytes(at("file")), "new");
    EXPECT_EQ(bytesOf(at("file")), "new");
    EXPECT_NE(statusOf(at("file")).st_ino, number);
}

} // namespace

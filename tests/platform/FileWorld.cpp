#include "tests/platform/FileWorld.h"

#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/support/Random.h"

#include <QByteArrayList>
#include <QDir>

#include <dirent.h>
#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace {

/// Memory file systems of older kernels have no attributes for users; where tests are built, a disk is near.
std::unique_ptr<QTemporaryDir> temporaryFolder()
{
    for (const QString &parent : {QDir::tempPath(), QDir::currentPath(), QStringLiteral("/var/tmp")}) {
        auto candidate = std::make_unique<QTemporaryDir>(parent + QStringLiteral("/zentilconf-test-XXXXXX"));
        const QByteArray path = encodeText(candidate->path());
        if (candidate->isValid() && setxattr(path.constData(), "user.trial", "1", 1, 0) == 0)
            return candidate;
    }
    return nullptr;
}

void makeFolder(const QByteArray &path)
{
    ASSERT_EQ(mkdir(path.constData(), 0755), 0) << path.constData();
    giveToOrdinaryUser(path);
}

void openUp(const std::filesystem::path &folder)
{
    std::error_code ignored;
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, ignored);
    for (const auto &entry : std::filesystem::directory_iterator(folder, ignored)) {
        if (entry.is_directory(ignored) && !entry.is_symlink(ignored))
            openUp(entry.path());
    }
}

void empty(const QByteArray &folder)
{
    const std::filesystem::path path(folder.toStdString());
    openUp(path);
    std::filesystem::permissions(path, std::filesystem::perms(0755));
    for (const auto &entry : std::filesystem::directory_iterator(path))
        std::filesystem::remove_all(entry.path());
}

} // namespace

void FileWorld::SetUp()
{
    m_temporary = temporaryFolder();
    ASSERT_TRUE(m_temporary) << "no folder here keeps extended attributes";
    m_root = encodeText(m_temporary->path());
    ASSERT_EQ(chmod(m_root.constData(), 0755), 0);
    makeFolder(folder());
    makeFolder(stateFolder());
}

void FileWorld::TearDown()
{
    if (m_temporary)
        clear();
}

void FileWorld::clear() const
{
    empty(folder());
    empty(stateFolder());
}

std::unique_ptr<LinuxFileAccess> FileWorld::access() const
{
    return access(std::make_shared<Interruption>());
}

std::unique_ptr<LinuxFileAccess> FileWorld::access(const std::shared_ptr<Interruption> &interruption) const
{
    return std::make_unique<LinuxFileAccess>(std::make_unique<InterruptedCalls>(interruption), recoveryFolder());
}

QByteArray FileWorld::read(const QByteArray &path) const
{
    QByteArray bytes;
    access()->readFile(decodeBytes(path), [&bytes](QByteArrayView piece) { bytes += piece; });
    return bytes;
}

void FileWorld::write(const QByteArray &path, QByteArrayView bytes) const
{
    access()->writeFile(decodeBytes(path), bytes);
}

int FileWorld::readError(const QByteArray &path) const
{
    return errorNumberOf([&] { (void)read(path); });
}

int FileWorld::writeError(const QByteArray &path, QByteArrayView bytes) const
{
    return errorNumberOf([&] { write(path, bytes); });
}

void store(const QByteArray &path, const QByteArray &bytes)
{
    const int file = open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    ASSERT_GE(file, 0) << path.constData();
    EXPECT_EQ(write(file, bytes.constData(), size_t(bytes.size())), bytes.size());
    EXPECT_EQ(close(file), 0);
}

QByteArray bytesOf(const QByteArray &path)
{
    const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return "<no file>";
    struct stat status = {};
    EXPECT_EQ(fstat(file, &status), 0);
    QByteArray bytes(status.st_size, Qt::Uninitialized);
    EXPECT_EQ(read(file, bytes.data(), size_t(bytes.size())), bytes.size());
    EXPECT_EQ(close(file), 0);
    return bytes;
}

struct stat statusOf(const QByteArray &path)
{
    struct stat status = {};
    EXPECT_EQ(lstat(path.constData(), &status), 0) << path.constData();
    return status;
}

mode_t modeOf(const QByteArray &path)
{
    return statusOf(path).st_mode & 07777;
}

QByteArrayList namesIn(const QByteArray &folder)
{
    QByteArrayList names;
    DIR *handle = opendir(folder.constData());
    if (!handle)
        return names;
    while (const dirent *entry = readdir(handle)) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names << name;
    }
    closedir(handle);
    std::sort(names.begin(), names.end());
    return names;
}

QByteArrayList draftsIn(const QByteArray &folder)
{
    QByteArrayList drafts = namesIn(folder);
    drafts.removeIf([](const QByteArray &name) { return !name.startsWith(".zentilconf-") || !name.endsWith(".tmp"); });
    return drafts;
}

int openFiles()
{
    // One of them is the listing's own.
    return int(namesIn("/proc/self/fd").size()) - 1;
}

QByteArray content(int length, unsigned seed)
{
    Random random(seed);
    QByteArray bytes;
    bytes.reserve(length);
    while (bytes.size() < length)
        bytes += static_cast<char>(random.number(1, 255));
    return bytes;
}

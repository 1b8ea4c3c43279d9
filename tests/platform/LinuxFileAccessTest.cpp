#include "platform/linux/LinuxFileAccess.h"

#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>

namespace {

class LinuxFileAccessTest : public FileWorld
{
protected:
    void link(const QByteArray &to, const QByteArray &name) const
    {
        ASSERT_EQ(symlink(to.constData(), at(name).constData()), 0);
    }

    /// A folder of the ordinary user's in which nothing can be made or removed, with a file that may be written.
    void makeClosedFolder(const QByteArray &bytes) const
    {
        ASSERT_EQ(mkdir(at("closed").constData(), 0755), 0);
        store(at("closed/file"), bytes);
        ASSERT_EQ(chmod(at("closed").constData(), 0555), 0);
    }

    void expectWhole(const QByteArray &path, const QByteArray &bytes) const
    {
        EXPECT_EQ(read(path), bytes);
        EXPECT_EQ(bytesOf(path), bytes);
    }
};

TEST_F(LinuxFileAccessTest, WhatIsWrittenIsRead)
{
    // Longer than the pieces in which files are read.
    const QByteArray big = content(3'000'000, 1);
    for (const QByteArray &bytes : {big, QByteArray(), QByteArray("a\0b", 3), big.first(262'144), QByteArray("x")}) {
        write(at("file"), bytes);
        expectWhole(at("file"), bytes);
    }
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

TEST_F(LinuxFileAccessTest, ReadingStopsWithWhatTheTakerRaises)
{
    store(at("file"), content(3'000'000, 1));
    int pieces = 0;
    const auto error = errorOf([&] {
        access()->readFile(decodeBytes(at("file")), [&pieces](QByteArrayView) {
            ++pieces;
            throw RuntimeError(RuntimeError::Overflow);
        });
    });
    EXPECT_EQ(error.value().number(), RuntimeError::Overflow);
    EXPECT_EQ(pieces, 1);
}

TEST_F(LinuxFileAccessTest, FilesAreClosed)
{
    const int before = openFiles();
    write(at("file"), "1");
    write(at("file"), "2");
    ASSERT_EQ(::link(at("file").constData(), at("other").constData()), 0);
    write(at("file"), "3");
    (void)read(at("file"));
    (void)readError(at("none"));
    (void)writeError(at("none/file"));
    EXPECT_EQ(openFiles(), before);
}

TEST_F(LinuxFileAccessTest, MissingThingsHaveTheirNumbers)
{
    store(at("file"), "old");
    EXPECT_EQ(readError(at("none")), RuntimeError::FileNotFound);
    EXPECT_EQ(readError(at("none/file")), RuntimeError::PathNotFound);
    EXPECT_EQ(writeError(at("none/file")), RuntimeError::PathNotFound);
    EXPECT_EQ(readError(at("file/file")), RuntimeError::PathNotFound);
    EXPECT_EQ(writeError(at("file/file")), RuntimeError::PathNotFound);
    EXPECT_EQ(writeError(at("none/")), RuntimeError::PathNotFound);
    EXPECT_EQ(writeError(at("file/")), RuntimeError::PathNotFound);
    EXPECT_EQ(readError(folder()), RuntimeError::PathAccess);
    EXPECT_EQ(writeError(folder()), RuntimeError::PathAccess);
    EXPECT_EQ(writeError(folder() + '/'), RuntimeError::PathAccess);
    EXPECT_EQ(readError(at(QByteArray(300, 'n'))), RuntimeError::PathAccess);
    EXPECT_EQ(writeError(at(QByteArray(300, 'n'))), RuntimeError::PathAccess);
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
    EXPECT_EQ(bytesOf(at("file")), "old");
}

TEST_F(LinuxFileAccessTest, ErrorsNameTheFile)
{
    const QByteArray path = at("none/caf\xE9");
    EXPECT_EQ(errorOf([&] { (void)read(path); }).value().path(), decodeBytes(path));
    EXPECT_EQ(errorOf([&] { write(path, "new"); }).value().path(), decodeBytes(path));
}

TEST_F(LinuxFileAccessTest, TextThatIsNoPathIsRefused)
{
    const auto files = access();
    // Were it cut at the character, the file would be read and overwritten.
    store(at("file"), "old");
    for (const QString &path : {decodeBytes(at("file")) + QChar(u'\0'), decodeBytes(at("file")) + QChar(u'\0') + "x",
                                QString(QChar(u'\0')), QString()}) {
        EXPECT_FALSE(files->fileExists(path));
        const auto readError = errorOf([&] { files->readFile(path, [](QByteArrayView) {}); });
        const auto writeError = errorOf([&] { files->writeFile(path, "new"); });
        EXPECT_EQ(readError.value().number(), RuntimeError::PathAccess);
        EXPECT_EQ(readError.value().path(), path);
        EXPECT_EQ(writeError.value().number(), RuntimeError::PathAccess);
        EXPECT_EQ(writeError.value().path(), path);
    }
    EXPECT_EQ(bytesOf(at("file")), "old");
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

TEST_F(LinuxFileAccessTest, NamesNeedNotBeUtf8)
{
    const QByteArray name("caf\xE9 \x80\xFF \xF0\x9F\x92\x80");
    write(at(name), "first");
    EXPECT_EQ(namesIn(folder()), QByteArrayList{name});
    EXPECT_TRUE(access()->fileExists(decodeBytes(at(name))));
    write(at(name), "second");
    expectWhole(at(name), "second");
    EXPECT_EQ(namesIn(folder()), QByteArrayList{name});
}

TEST_F(LinuxFileAccessTest, PathsMayBeRelative)
{
    inChild([this] {
        ASSERT_EQ(chdir(folder().constData()), 0);
        write("file", "1");
        write("./file", "2");
        ASSERT_EQ(mkdir("sub", 0755), 0);
        write("sub/../file", "3");
        ASSERT_EQ(::link("file", "other"), 0);
        write("file", "4");
        EXPECT_EQ(read("file"), "4");
        EXPECT_EQ(readError("none"), RuntimeError::FileNotFound);
        EXPECT_EQ(namesIn("."), (QByteArrayList{"file", "other", "sub"}));
    });
    EXPECT_EQ(bytesOf(at("other")), "4");
}

TEST_F(LinuxFileAccessTest, SomethingThatIsNoFolderExists)
{
    store(at("file"), "old");
    ASSERT_EQ(mkdir(at("folder").constData(), 0755), 0);
    ASSERT_EQ(mkfifo(at("pipe").constData(), 0644), 0);
    link("file", "toFile");
    link("folder", "toFolder");
    link("nothing", "toNothing");
    const auto exists = [this](const QByteArray &name) { return access()->fileExists(decodeBytes(at(name))); };
    EXPECT_TRUE(exists("file"));
    EXPECT_TRUE(exists("toFile"));
    EXPECT_TRUE(exists("pipe"));
    EXPECT_FALSE(exists("folder"));
    EXPECT_FALSE(exists("toFolder"));
    EXPECT_FALSE(exists("toNothing"));
    EXPECT_FALSE(exists("none"));
    EXPECT_FALSE(exists("none/file"));
    EXPECT_FALSE(exists("file/file"));
    asOrdinaryUser([&] {
        ASSERT_EQ(mkdir(at("secret").constData(), 0700), 0);
        store(at("secret/file"), "old");
        EXPECT_TRUE(exists("secret/file"));
        ASSERT_EQ(chmod(at("secret").constData(), 0600), 0);
        EXPECT_FALSE(exists("secret/file"));
    });
}

TEST_F(LinuxFileAccessTest, PipesAndDevicesAreRefusedAtOnce)
{
    // A pipe that is opened without care waits for its other end; the child is given a time limit.
    asOrdinaryUser([this] {
        ASSERT_EQ(mkfifo(at("pipe").constData(), 0666), 0);
        link("pipe", "toPipe");
        for (const QByteArray &path :
             {at("pipe"), at("toPipe"), QByteArray("/dev/null"), QByteArray("/dev/zero"), QByteArray("/dev/full")}) {
            EXPECT_EQ(readError(path), RuntimeError::PathAccess) << path.constData();
            EXPECT_EQ(writeError(path), RuntimeError::PathAccess) << path.constData();
        }
        EXPECT_TRUE(S_ISFIFO(statusOf(at("pipe")).st_mode));
        EXPECT_EQ(namesIn(folder()), (QByteArrayList{"pipe", "toPipe"}));
    });
}

TEST_F(LinuxFileAccessTest, SymbolicLinksAreFollowedAndStay)
{
    ASSERT_EQ(mkdir(at("sub").constData(), 0755), 0);
    store(at("sub/file"), "old");
    link("sub/file", "relative");
    link(at("sub/file"), "absolute");
    link("relative", "chain");
    link("../chain", "sub/longChain");
    link("sub", "toFolder");
    int round = 0;
    for (const char *name : {"relative", "absolute", "chain", "sub/longChain", "toFolder/file"}) {
        const QByteArray bytes = "new " + QByteArray::number(++round);
        write(at(name), bytes);
        EXPECT_EQ(bytesOf(at("sub/file")), bytes) << name;
        EXPECT_EQ(read(at(name)), bytes) << name;
    }
    EXPECT_TRUE(S_ISREG(statusOf(at("sub/file")).st_mode));
    for (const char *name : {"relative", "absolute", "chain", "sub/longChain", "toFolder"})
        EXPECT_TRUE(S_ISLNK(statusOf(at(name)).st_mode)) << name;
    EXPECT_EQ(namesIn(at("sub")), (QByteArrayList{"file", "longChain"}));
}

TEST_F(LinuxFileAccessTest, DanglingLinkGetsItsFile)
{
    link("missing", "dangling");
    EXPECT_EQ(readError(at("dangling")), RuntimeError::FileNotFound);
    write(at("dangling"), "new");
    EXPECT_TRUE(S_ISLNK(statusOf(at("dangling")).st_mode));
    EXPECT_TRUE(S_ISREG(statusOf(at("missing")).st_mode));
    expectWhole(at("dangling"), "new");
    EXPECT_EQ(namesIn(folder()), (QByteArrayList{"dangling", "missing"}));

    link("none/missing", "farDangling");
    EXPECT_EQ(writeError(at("farDangling")), RuntimeError::PathNotFound);
}

TEST_F(LinuxFileAccessTest, LinksInACircleAreRefused)
{
    link("two", "one");
    link("one", "two");
    link("self", "self");
    for (const char *name : {"one", "two", "self"}) {
        EXPECT_EQ(readError(at(name)), RuntimeError::PathAccess) << name;
        EXPECT_EQ(writeError(at(name)), RuntimeError::PathAccess) << name;
        EXPECT_FALSE(access()->fileExists(decodeBytes(at(name)))) << name;
        EXPECT_TRUE(S_ISLNK(statusOf(at(name)).st_mode)) << name;
    }
}

TEST_F(LinuxFileAccessTest, LinkThatCannotBeReadIsNotReplaced)
{
    store(at("file"), "old");
    link("file", "toFile");
    const auto interruption = std::make_shared<Interruption>();
    interruption->errorOf = [](const Interruption::Call &call) {
        return call.name == QByteArray("readlink") ? EIO : 0;
    };
    const auto error = errorOf([&] { access(interruption)->writeFile(decodeBytes(at("toFile")), "new"); });
    EXPECT_EQ(error.value().number(), RuntimeError::DeviceError);
    EXPECT_TRUE(S_ISLNK(statusOf(at("toFile")).st_mode));
    EXPECT_EQ(bytesOf(at("file")), "old");
}

TEST_F(LinuxFileAccessTest, FileThatBecomesSomethingElseInBetweenIsRefused)
{
    // Somebody changes what is there after it was looked at and before it is opened.
    const auto swapBeforeOpening = [this](const std::function<void()> &make) {
        store(at("file"), "old");
        store(at("precious"), "precious");
        auto interruption = std::make_shared<Interruption>();
        interruption->errorOf = [this, make, isSwapped = false](const Interruption::Call &call) mutable {
            if (!isSwapped && call.name == QByteArray("open") && call.path == at("file")) {
                isSwapped = true;
                EXPECT_EQ(unlink(at("file").constData()), 0);
                make();
            }
            return 0;
        };
        return interruption;
    };
    const auto makeLink = [this] { link("precious", "file"); };
    const auto makePipe = [this] { EXPECT_EQ(mkfifo(at("file").constData(), 0644), 0); };
    for (const std::function<void()> &make : {std::function<void()>(makeLink), std::function<void()>(makePipe)}) {
        const auto writing = swapBeforeOpening(make);
        const auto error = errorOf([&] { access(writing)->writeFile(decodeBytes(at("file")), "new"); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), RuntimeError::PathAccess);
        EXPECT_EQ(bytesOf(at("precious")), "precious");
        clear();
    }
    const auto reading = swapBeforeOpening(makePipe);
    const auto error = errorOf([&] { access(reading)->readFile(decodeBytes(at("file")), [](QByteArrayView) {}); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), RuntimeError::PathAccess);
}

TEST_F(LinuxFileAccessTest, FileThatComesInBetweenKeepsItsNames)
{
    // When the save began, there was none.
    const auto interruption = std::make_shared<Interruption>();
    interruption->errorOf = [this, isMade = false](const Interruption::Call &call) mutable {
        if (!isMade && call.name == QByteArray("link")) {
            isMade = true;
            store(at("file"), "theirs");
            EXPECT_EQ(::link(at("file").constData(), at("other").constData()), 0);
        }
        return 0;
    };
    access(interruption)->writeFile(decodeBytes(at("file")), "new");
    EXPECT_EQ(bytesOf(at("file")), "new");
    EXPECT_EQ(bytesOf(at("other")), "new");
    EXPECT_EQ(namesIn(folder()), (QByteArrayList{"file", "other"}));
}

TEST_F(LinuxFileAccessTest, HardLinksStayLinked)
{
    store(at("file"), content(5'000, 1));
    ASSERT_EQ(::link(at("file").constData(), at("other").constData()), 0);
    const auto number = statusOf(at("file")).st_ino;
    for (const int length : {12'000, 700, 0, 5'000}) {
        write(at("file"), content(length, 2));
        expectWhole(at("file"), content(length, 2));
        expectWhole(at("other"), content(length, 2));
    }
    EXPECT_EQ(statusOf(at("file")).st_ino, number);
    EXPECT_EQ(statusOf(at("other")).st_ino, number);
    EXPECT_EQ(namesIn(folder()), (QByteArrayList{"file", "other"}));
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
}

TEST_F(LinuxFileAccessTest, CopiesAreForTheUserAlone)
{
    store(at("file"), "old");
    ASSERT_EQ(::link(at("file").constData(), at("other").constData()), 0);
    inChild([this] {
        umask(0);
        const auto interruption = std::make_shared<Interruption>();
        interruption->errorOf = [](const Interruption::Call &call) {
            return call.name == QByteArray("ftruncate") ? EIO : 0;
        };
        EXPECT_TRUE(errorOf([&] { access(interruption)->writeFile(decodeBytes(at("file")), "new"); }));
        const QByteArrayList names = namesIn(recoveryFolder());
        ASSERT_EQ(names.size(), 1);
        EXPECT_EQ(modeOf(recoveryFolder() + '/' + names.first()), 0600U);
        EXPECT_EQ(modeOf(recoveryFolder()), 0700U);
        EXPECT_EQ(modeOf(stateFolder() + "/ZentilConf"), 0700U);
    });
}

TEST_F(LinuxFileAccessTest, FileInAClosedFolderIsWrittenInPlace)
{
    asOrdinaryUser([this] {
        makeClosedFolder(content(5'000, 1));
        const auto number = statusOf(at("closed/file")).st_ino;
        for (const int length : {12'000, 700, 0, 5'000}) {
            write(at("closed/file"), content(length, 2));
            expectWhole(at("closed/file"), content(length, 2));
        }
        EXPECT_EQ(statusOf(at("closed/file")).st_ino, number);
        EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
        EXPECT_EQ(writeError(at("closed/none")), RuntimeError::PermissionDenied);
        EXPECT_EQ(namesIn(at("closed")), QByteArrayList{"file"});
    });
}

TEST_F(LinuxFileAccessTest, WithoutAPlaceForTheCopyNothingIsWritten)
{
    asOrdinaryUser([this] {
        makeClosedFolder("old");
        ASSERT_EQ(chmod(stateFolder().constData(), 0555), 0);
        const auto error = errorOf([this] { write(at("closed/file"), "new"); });
        EXPECT_EQ(error.value().number(), RuntimeError::PermissionDenied);
        EXPECT_EQ(bytesOf(at("closed/file")), "old");
        // An ordinary save needs no such place.
        write(at("file"), "1");
        write(at("file"), "2");
        EXPECT_EQ(read(at("file")), "2");
    });
}

TEST_F(LinuxFileAccessTest, FolderThatMayNotBeListedIsWrittenIn)
{
    asOrdinaryUser([this] {
        ASSERT_EQ(mkdir(at("unlisted").constData(), 0755), 0);
        store(at("unlisted/file"), "old");
        ASSERT_EQ(chmod(at("unlisted").constData(), 0300), 0);
        EXPECT_EQ(writeError(at("unlisted/file"), "new"), 0);
        EXPECT_EQ(writeError(at("unlisted/other"), "new"), 0);
        expectWhole(at("unlisted/file"), "new");
        expectWhole(at("unlisted/other"), "new");
        ASSERT_EQ(chmod(at("unlisted").constData(), 0700), 0);
        EXPECT_EQ(namesIn(at("unlisted")), (QByteArrayList{"file", "other"}));
    });
}

TEST_F(LinuxFileAccessTest, RightsAreKept)
{
    asOrdinaryUser([this] {
        store(at("readOnly"), "old");
        ASSERT_EQ(chmod(at("readOnly").constData(), 0444), 0);
        // The folder would allow to replace it.
        EXPECT_EQ(writeError(at("readOnly")), RuntimeError::PermissionDenied);
        expectWhole(at("readOnly"), "old");
        EXPECT_EQ(modeOf(at("readOnly")), 0444U);

        store(at("secret"), "old");
        ASSERT_EQ(chmod(at("secret").constData(), 0), 0);
        EXPECT_EQ(readError(at("secret")), RuntimeError::PermissionDenied);
        EXPECT_EQ(writeError(at("secret")), RuntimeError::PermissionDenied);
        EXPECT_TRUE(access()->fileExists(decodeBytes(at("secret"))));

        ASSERT_EQ(mkdir(at("unsearchable").constData(), 0600), 0);
        EXPECT_EQ(readError(at("unsearchable/file")), RuntimeError::PermissionDenied);
        EXPECT_EQ(writeError(at("unsearchable/file")), RuntimeError::PermissionDenied);
        EXPECT_EQ(namesIn(folder()), (QByteArrayList{"readOnly", "secret", "unsearchable"}));
    });
}

TEST_F(LinuxFileAccessTest, LockedFileIsNotWrittenInPlace)
{
    store(at("file"), "old");
    ASSERT_EQ(::link(at("file").constData(), at("other").constData()), 0);
    const int other = open(at("file").constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_EQ(writeError(at("file")), RuntimeError::PermissionDenied);
    EXPECT_EQ(bytesOf(at("file")), "old");
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
    ASSERT_EQ(close(other), 0);
    EXPECT_EQ(writeError(at("file")), 0);
    expectWhole(at("other"), "new");
}

// 16 KiB are four pages: 5,000 bytes take two of them, 12,000 three and 20,000 five.
constexpr const char *smallDisk = "size=16k,mode=0777";

void mountSmallDisk(const QByteArray &folder)
{
    ASSERT_EQ(mkdir(folder.constData(), 0777), 0);
    ASSERT_EQ(mount("none", folder.constData(), "tmpfs", 0, smallDisk), 0) << std::strerror(errno);
}

TEST_F(LinuxFileAccessTest, FullDiskLeavesTheFile)
{
    withOwnMounts([this] {
        mountSmallDisk(at("disk"));
        store(at("disk/file"), content(5'000, 1));
        const auto error = errorOf([this] { write(at("disk/file"), content(12'000, 2)); });
        ASSERT_TRUE(error) << "12,000 bytes beside 5,000 in four pages";
        EXPECT_EQ(error->number(), RuntimeError::DiskFull);
        EXPECT_EQ(error->path(), decodeBytes(at("disk/file")));
        expectWhole(at("disk/file"), content(5'000, 1));
        EXPECT_EQ(namesIn(at("disk")), QByteArrayList{"file"});
        // What fits is written then.
        EXPECT_EQ(writeError(at("disk/file"), content(4'000, 3)), 0);
        expectWhole(at("disk/file"), content(4'000, 3));
    });
}

TEST_F(LinuxFileAccessTest, FullDiskLeavesNothingOfANewFile)
{
    withOwnMounts([this] {
        mountSmallDisk(at("disk"));
        EXPECT_EQ(writeError(at("disk/new"), content(20'000, 2)), RuntimeError::DiskFull);
        EXPECT_EQ(namesIn(at("disk")), QByteArrayList());
        EXPECT_EQ(writeError(at("disk/new"), content(12'000, 2)), 0);
        expectWhole(at("disk/new"), content(12'000, 2));
    });
}

TEST_F(LinuxFileAccessTest, FullDiskLeavesTheFileThatIsWrittenInPlace)
{
    withOwnMounts([this] {
        mountSmallDisk(at("disk"));
        store(at("disk/file"), content(5'000, 1));
        ASSERT_EQ(::link(at("disk/file").constData(), at("disk/other").constData()), 0);
        EXPECT_EQ(writeError(at("disk/file"), content(20'000, 2)), RuntimeError::DiskFull);
        expectWhole(at("disk/file"), content(5'000, 1));

        // A file system that cannot reserve space: the disk is full when the file is half written.
        const auto interruption = std::make_shared<Interruption>();
        interruption->errorOf = [](const Interruption::Call &call) {
            return call.name == QByteArray("fallocate") ? EOPNOTSUPP : 0;
        };
        const auto error =
            errorOf([&] { access(interruption)->writeFile(decodeBytes(at("disk/file")), content(20'000, 2)); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), RuntimeError::DiskFull);
        expectWhole(at("disk/file"), content(5'000, 1));
        EXPECT_EQ(namesIn(at("disk")), (QByteArrayList{"file", "other"}));
        EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());

        EXPECT_EQ(writeError(at("disk/file"), content(12'000, 3)), 0);
        expectWhole(at("disk/other"), content(12'000, 3));
    });
}

TEST_F(LinuxFileAccessTest, FullDiskForTheCopyLeavesTheFile)
{
    withOwnMounts([this] {
        ASSERT_EQ(mount("none", stateFolder().constData(), "tmpfs", 0, smallDisk), 0);
        store(at("file"), content(5'000, 1));
        ASSERT_EQ(::link(at("file").constData(), at("other").constData()), 0);
        EXPECT_EQ(writeError(at("file"), content(12'000, 2)), RuntimeError::DiskFull);
        expectWhole(at("file"), content(5'000, 1));
        EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
        EXPECT_EQ(writeError(at("file"), content(5'000, 2)), 0);
        expectWhole(at("other"), content(5'000, 2));
    });
}

TEST_F(LinuxFileAccessTest, MountedFileIsWrittenInPlace)
{
    // As containers are given their configuration: the file is a mount point, which nothing can be renamed over.
    withOwnMounts([this] {
        store(at("source"), "old");
        store(at("file"), "");
        ASSERT_EQ(mount(at("source").constData(), at("file").constData(), nullptr, MS_BIND, nullptr), 0);
        EXPECT_EQ(writeError(at("file"), "new and longer"), 0);
        expectWhole(at("file"), "new and longer");
        expectWhole(at("source"), "new and longer");
        EXPECT_EQ(namesIn(folder()), (QByteArrayList{"file", "source"}));
    });
}

TEST_F(LinuxFileAccessTest, ReadOnlyFileSystemIsAPathError)
{
    withOwnMounts([this] {
        const QByteArray disk = at("disk");
        mountSmallDisk(disk);
        store(at("disk/file"), "old");
        ASSERT_EQ(mount("none", disk.constData(), nullptr, MS_REMOUNT | MS_RDONLY, smallDisk), 0);
        EXPECT_EQ(writeError(at("disk/file")), RuntimeError::PathAccess);
        EXPECT_EQ(writeError(at("disk/new")), RuntimeError::PathAccess);
        expectWhole(at("disk/file"), "old");
    });
}

TEST_F(LinuxFileAccessTest, NamelessFilesAreNotUsedWhereTheyCannotBeNamed)
{
    withOwnMounts([this] {
        store(at("file"), "old");
        ASSERT_EQ(mount("none", "/proc", "tmpfs", 0, smallDisk), 0);
        EXPECT_EQ(writeError(at("file")), 0);
        EXPECT_EQ(writeError(at("another")), 0);
        expectWhole(at("file"), "new");
        expectWhole(at("another"), "new");
        EXPECT_EQ(namesIn(folder()), (QByteArrayList{"another", "file"}));
        // Beside it, not in place.
        EXPECT_EQ(namesIn(stateFolder()), QByteArrayList());
    });
}

} // namespace

#include "app/Placement.h"
#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"
#include "tests/platform/ChildProcess.h"

#include <QAction>
#include <QDir>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

constexpr auto critical = Messages::Icon::Critical;

/// The program over the system's own files and settings, where the system has little to give. It is used in child
/// processes only: these have no thread that their parent began, such as one of a file dialog.
class HardSurroundings : public Program
{
protected:
    HardSurroundings() { optional.associations = nullptr; }

    /// To be called once the surroundings are as the test wants them.
    void startProgram(const QStringList &paths = {})
    {
        platform.emplace(makePlatform("ZentilConf", 0, nullptr));
        window = std::make_unique<frmMain>(
            frmMain::Services{*platform->files, *platform->userSettings, messages, editors, preferences}, programPath);
        window->LoadAll(paths);
        showActive(*window);
        settle();
    }

    [[nodiscard]] QString at(const QString &name) const { return folder.filePath(name); }

    static void mountDisk(const QString &path, const char *options, unsigned long flags = 0)
    {
        ASSERT_TRUE(QDir().mkpath(path));
        ASSERT_EQ(mount("none", path.toUtf8().constData(), "tmpfs", flags, options), 0) << std::strerror(errno);
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
        EXPECT_TRUE(isWritten) << path.toStdString();
    }

    [[nodiscard]] static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "<no file>";
    }

    [[nodiscard]] static QStringList namesIn(const QString &path)
    {
        return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    /// Makes the active document twice as long.
    void doubleRows()
    {
        ConfigListView &rows = list(*window->activeDocument());
        rows.setFocus();
        key(rows, Qt::Key_A, Qt::ControlModifier);
        trigger(*window, "mnuEditCopy");
        trigger(*window, "mnuEditPaste");
    }

    void saveAs(const QString &path)
    {
        const auto asked = onNextDialog([&](QWidget &dialog) { chooseInFileDialog(dialog, path); });
        trigger(*window, "mnuFileSaveAs");
        EXPECT_TRUE(asked->handled);
    }

    QTemporaryDir folder;
    std::optional<Platform> platform;
};

class FullDisk : public HardSurroundings
{
protected:
    /// On a disk with 16 pages of 4 KiB: a file that takes 8 of them, which is open.
    void onSmallDisk(const std::function<void()> &work)
    {
        withOwnMounts([&] {
            mountDisk(at("disk"), "size=64k");
            write(path, bytes);
            startProgram({path});
            ASSERT_EQ(window->documents().size(), 1U);
            work();
            messages.verify();
            window.reset();
        });
    }

    void expectDiskFull(const QString &where)
    {
        messages.expectShow("Run-time error '61':\n\nDisk full\n\n" + where, critical);
    }

    void expectUnsaved(int rows)
    {
        messages.verify();
        EXPECT_EQ(bytesOf(path), bytes);
        EXPECT_EQ(document(0).changed(), -1);
        EXPECT_EQ(document(0).rowList().rows().size(), rows);
        EXPECT_EQ(captions(), QStringList{path});
        EXPECT_EQ(document(0).file().path(), path);
    }

    static constexpr int rowCount = 1'000;
    const QByteArray bytes = QByteArray("C:\\Windows\\System32\\drivers R\r\n").repeated(rowCount);
    const QString path = at("disk/a.zcf");
};

TEST_F(FullDisk, WhileSavingLeavesTheFileAndTheDocument)
{
    onSmallDisk([this] {
        doubleRows();
        expectDiskFull(path);
        trigger(*window, "mnuFileSave");
        expectUnsaved(2 * rowCount);
        EXPECT_EQ(namesIn(at("disk")), QStringList{"a.zcf"});
        // With room again it is saved.
        ASSERT_EQ(mount("none", at("disk").toUtf8().constData(), "tmpfs", MS_REMOUNT, "size=256k"), 0);
        trigger(*window, "mnuFileSave");
        EXPECT_EQ(bytesOf(path), bytes + bytes);
        EXPECT_EQ(document(0).changed(), 0);
    });
}

TEST_F(FullDisk, WhileSavingAsLeavesNoFile)
{
    onSmallDisk([this] {
        doubleRows();
        expectDiskFull(at("disk/new.zcf"));
        saveAs(at("disk/new.zcf"));
        expectUnsaved(2 * rowCount);
        EXPECT_EQ(namesIn(at("disk")), QStringList{"a.zcf"});
        // There is room elsewhere.
        saveAs(at("new.zcf"));
        EXPECT_EQ(bytesOf(at("new.zcf")), bytes + bytes);
        EXPECT_EQ(captions(), QStringList{at("new.zcf")});
    });
}

TEST_F(FullDisk, WhileClosingKeepsTheDocumentOpen)
{
    onSmallDisk([this] {
        doubleRows();
        expectQuestion(Messages::Answer::Yes);
        expectDiskFull(path);
        EXPECT_FALSE(endsAfterClosing());
        expectUnsaved(2 * rowCount);
    });
}

TEST_F(FullDisk, ForTheCopyOfAFileThatIsWrittenInPlaceLeavesTheFile)
{
    onSmallDisk([this] {
        ASSERT_EQ(link(path.toUtf8().constData(), at("disk/other").toUtf8().constData()), 0);
        mountDisk(qEnvironmentVariable("XDG_STATE_HOME"), "size=16k");
        doubleRows();
        const QString copies = qEnvironmentVariable("XDG_STATE_HOME") + "/ZentilConf/unfinished";
        struct stat status = {};
        ASSERT_EQ(stat(path.toUtf8().constData(), &status), 0);
        expectDiskFull(QString("%1/%2-%3.new").arg(copies).arg(status.st_dev).arg(status.st_ino));
        trigger(*window, "mnuFileSave");
        expectUnsaved(2 * rowCount);
        EXPECT_EQ(bytesOf(at("disk/other")), bytes);
        EXPECT_EQ(namesIn(copies), QStringList());
    });
}

TEST_F(FullDisk, ForTheSettingsIsToldAtTheEnd)
{
    onSmallDisk([this] {
        const QString configuration = qEnvironmentVariable("XDG_CONFIG_HOME");
        mountDisk(configuration, "size=8k,nr_inodes=4");
        ASSERT_TRUE(storePlacement(*platform->userSettings, {1, 2, 300, 400}));
        const QString file = configuration + "/ZentilConf/ZentilConf.ini";
        const QByteArray before = bytesOf(file);
        // The last page is gone.
        write(configuration + "/filler", QByteArray(4'096, 'x'));
        messages.expectShow("The place of the window cannot be stored.", Messages::Icon::Exclamation);
        EXPECT_TRUE(endsAfterClosing());
        EXPECT_EQ(bytesOf(file), before);
        EXPECT_EQ(namesIn(configuration + "/ZentilConf"), QStringList{"ZentilConf.ini"});
    });
}

/// A home in which nothing can be stored.
class PoorHome : public HardSurroundings
{
protected:
    /// Works as on any day; what cannot be stored is told once, at the end.
    void useProgram()
    {
        write(at("a.zcf"), "a\r\nb\r\n");
        startProgram({at("a.zcf")});
        ASSERT_EQ(captions(), QStringList{at("a.zcf")});
        doubleRows();
        trigger(*window, "mnuFileSave");
        EXPECT_EQ(bytesOf(at("a.zcf")), "a\r\nb\r\na\r\nb\r\n");
        trigger(*window, "mnuFileNew");
        saveAs(at("b.zcf"));
        EXPECT_EQ(bytesOf(at("b.zcf")), "");
        messages.verify();
        messages.expectShow("The place of the window cannot be stored.", Messages::Icon::Exclamation);
        EXPECT_TRUE(endsAfterClosing());
        messages.verify();
        EXPECT_EQ(namesIn(folder.path()), (QStringList{"a.zcf", "b.zcf"} + m_before));
    }

    void expectNames(const QStringList &names) { m_before = names; }

    static void setHome(const QString &path)
    {
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
            qunsetenv(variable);
        qputenv("HOME", path.toUtf8());
    }

private:
    QStringList m_before;
};

TEST_F(PoorHome, ThatIsNotThereAndCannotBeMade)
{
    // Not for the administrator either: a folder cannot be made where a file is.
    write(at("no folder"), "");
    inChild([this] {
        expectNames({"no folder"});
        setHome(at("no folder/home"));
        useProgram();
    });
}

TEST_F(PoorHome, ThatIsReadOnly)
{
    withOwnMounts([this] {
        mountDisk(at("home"), "size=64k", MS_RDONLY);
        expectNames({"home"});
        setHome(at("home"));
        useProgram();
    });
}

TEST_F(PoorHome, ThatMayNotBeWritten)
{
    ASSERT_TRUE(QDir().mkpath(at("home")));
    ASSERT_EQ(chmod(at("home").toUtf8().constData(), 0555), 0);
    ASSERT_EQ(chmod(folder.path().toUtf8().constData(), 0777), 0);
    asOrdinaryUser([this] {
        expectNames({"home"});
        setHome(at("home"));
        useProgram();
    });
}

TEST_F(PoorHome, FileThatIsWrittenInPlaceNeedsAPlaceForTheCopy)
{
    write(at("no folder"), "");
    write(at("a.zcf"), "a\r\n");
    ASSERT_EQ(link(at("a.zcf").toUtf8().constData(), at("other").toUtf8().constData()), 0);
    inChild([this] {
        setHome(at("no folder/home"));
        startProgram({at("a.zcf")});
        doubleRows();
        messages.expectShow("Run-time error '76':\n\nPath not found\n\n" +
                                at("no folder/home/.local/state/ZentilConf/unfinished"),
                            critical);
        trigger(*window, "mnuFileSave");
        messages.verify();
        EXPECT_EQ(document(0).changed(), -1);
        // In a file of its own the document is safe.
        saveAs(at("b.zcf"));
    });
    EXPECT_EQ(bytesOf(at("other")), "a\r\n");
    EXPECT_EQ(bytesOf(at("b.zcf")), "a\r\na\r\n");
}

} // namespace

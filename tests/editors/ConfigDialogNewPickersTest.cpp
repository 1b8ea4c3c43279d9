#include "tests/editors/FileEditorFixture.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QListWidget>
#include <QTemporaryDir>

namespace {

const QString flagMessage = "You must select at least one flag.";

// Choosing a file

class FileDialogTest : public FileEditor
{
protected:
    FileDialogTest()
    {
        EXPECT_TRUE(QDir(root.path()).mkpath("c/Windows"));
        EXPECT_TRUE(QDir(root.path()).mkpath("share"));
        for (const char *name : {"c/Windows/notepad.exe", "c/Windows/other", "share/boot.ini", "outside"}) {
            QFile file(root.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        }
        fileSystem.systemFolders[root.filePath("c")] = "C:";
        fileSystem.systemFolders[root.filePath("share")] = "\\\\host\\C$";
    }

    const QTemporaryDir root;
};

TEST_F(FileDialogTest, AFileThatIsChosenTakesTheFieldsPlace)
{
    const ItemEditorForm &form = editLine("C:\\Windows\\notepad.exe t");
    const auto chosen = onNextDialog([this](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open");
        const auto &fileDialog = dynamic_cast<QFileDialog &>(dialog);
        EXPECT_EQ(fileDialog.nameFilters(), QStringList{"All Files (*.*) (*)"});
        EXPECT_TRUE(fileDialog.testOption(QFileDialog::HideNameFilterDetails));
        EXPECT_EQ(fileDialog.directory(), QDir(root.filePath("c/Windows")));
        EXPECT_EQ(fileDialog.selectedFiles(), QStringList{root.filePath("c/Windows/notepad.exe")});
        chooseInFileDialog(dialog, "other");
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(objectOf(form), "C:\\Windows\\other");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"C:\\Windows\\other t"});
}

TEST_F(FileDialogTest, ItStartsInAFolderThatTheFieldNames)
{
    const ItemEditorForm &form = addFile();
    for (const char *object : {"C:\\Windows", "C:\\Windows\\none", "C:\\Windows\\"}) {
        enter(form, "ObjectName", object);
        const auto opened = onNextDialog([&](QWidget &dialog) {
            EXPECT_EQ(dynamic_cast<QFileDialog &>(dialog).directory(), QDir(root.filePath("c/Windows"))) << object;
        });
        press(form, "ObjBrowse");
        EXPECT_TRUE(opened->handled);
        // Cancelled.
        EXPECT_EQ(objectOf(form), object);
    }
}

TEST_F(FileDialogTest, ItOpensWhateverTheFieldHolds)
{
    const ItemEditorForm &form = addFile();
    for (const char *object : {"", "word", "Q:\\x", "\\\\srv\\x", "%TEMP%\\x"}) {
        enter(form, "ObjectName", object);
        const auto opened = onNextDialog([](QWidget &) {});
        press(form, "ObjBrowse");
        EXPECT_TRUE(opened->handled) << object;
    }
}

TEST_F(FileDialogTest, AFileOfAHostIsWrittenAsTheHostKnowsIt)
{
    host = "host";
    const ItemEditorForm &form = editLine("C:\\ t");
    const auto chosen = onNextDialog([this](QWidget &dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog &>(dialog).directory(), QDir(root.filePath("share")));
        chooseInFileDialog(dialog, "boot.ini");
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(objectOf(form), "C:\\boot.ini");
}

TEST_F(FileDialogTest, AFileThatNoDriveLeadsToIsReported)
{
    const ItemEditorForm &form = addFile();
    const QString outside = root.filePath("outside");
    messages.expectShow("No drive leads to \"" + outside + "\".", Messages::Icon::Exclamation);
    const auto chosen = onNextDialog([&](QWidget &dialog) { chooseInFileDialog(dialog, outside); });
    press(form, "ObjBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(objectOf(form), "C:\\");
}

// Choosing drives

class DrivePickerTest : public FileEditor
{
protected:
    /// Presses the button, and in the picker selects exactly these rows and confirms.
    void chooseDrives(const ItemEditorForm &form, const QList<int> &rows)
    {
        const auto chosen = onNextDialog([&](QWidget &dialog) {
            EXPECT_EQ(dialog.objectName(), "BrowseDrives");
            auto *drives = control<QListWidget>(dialog, "DriveList");
            drives->clearSelection();
            for (const int row : rows)
                clickRow(*drives, row);
            press(dialog, "OKButton");
        });
        press(form, "DriveBrowse");
        EXPECT_TRUE(chosen->handled);
    }
};

TEST_F(DrivePickerTest, SeveralDrivesBecomeAnItemEachWithTheFlagsAsSet)
{
    const ItemEditorForm &form = addFile();
    enter(form, "Prefix", "=");
    press(form, "Button_Flag_Log");
    chooseDrives(form, {3, 2, 25});
    EXPECT_EQ(document.rows, (QStringList{"=C:\\ $(LOG)", "=D:\\ $(LOG)", "=Z:\\ $(LOG)"}));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(objectOf(form), "C:\\");
}

TEST_F(DrivePickerTest, TheFixedDisksAreSelectedAtFirst)
{
    fileSystem.addDrive("E:\\");
    const ItemEditorForm &form = addFile();
    press(form, "flag_t");
    const auto chosen = onNextDialog([](QWidget &dialog) { press(dialog, "OKButton"); });
    press(form, "DriveBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(document.rows, (QStringList{"C:\\ t", "E:\\ t"}));
}

TEST_F(DrivePickerTest, SeveralDrivesWithoutFlagsAreRefused)
{
    const ItemEditorForm &form = addFile();
    messages.expectShow(flagMessage, Messages::Icon::Exclamation);
    chooseDrives(form, {2, 3});
    messages.verify();
    EXPECT_EQ(document.rows, QStringList());
    enter(form, "Prefix", "!");
    chooseDrives(form, {2, 3});
    EXPECT_EQ(document.rows, (QStringList{"!C:\\", "!D:\\"}));
}

TEST_F(DrivePickerTest, ADocumentThatIsFullSaysSo)
{
    const ItemEditorForm &form = addFile();
    press(form, "flag_t");
    document.error = RuntimeError(RuntimeError::Overflow);
    messages.expectShow("Run-time error '6':\n\nOverflow", Messages::Icon::Critical);
    chooseDrives(form, {2, 3});
    EXPECT_TRUE(form.isVisible());
}

TEST_F(DrivePickerTest, OneDriveIsTaken)
{
    const ItemEditorForm &form = addFile();
    chooseDrives(form, {3});
    EXPECT_EQ(objectOf(form), "D:\\");
    EXPECT_EQ(shownDrive(form), "D:");
    EXPECT_EQ(folders(form), (QStringList{"D:\\", "data"}));
    EXPECT_EQ(document.rows, QStringList());
}

TEST_F(DrivePickerTest, AChangedItemTakesTheFirst)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    chooseDrives(form, {25, 3});
    EXPECT_EQ(objectOf(form), "D:\\");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"D:\\ t"});
}

TEST_F(DrivePickerTest, ADriveThatIsMissingIsReportedAndTaken)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    messages.expectShow("Cannot access file system Q:\\");
    chooseDrives(form, {16});
    EXPECT_EQ(objectOf(form), "Q:\\");
    EXPECT_EQ(selectedIn(form, "DirList"), "Windows");
}

TEST_F(DrivePickerTest, WithoutAChoiceNothingChanges)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    chooseDrives(form, {});
    EXPECT_EQ(objectOf(form), "C:\\Windows");
    const auto cancelled = onNextDialog([](QWidget &dialog) { press(dialog, "CancelButton"); });
    press(form, "DriveBrowse");
    EXPECT_TRUE(cancelled->handled);
    EXPECT_EQ(objectOf(form), "C:\\Windows");
}

TEST_F(DrivePickerTest, AHostsDrivesAreOffered)
{
    host = "host";
    fileSystem.addDrive("\\\\host\\C:\\");
    const ItemEditorForm &form = addFile();
    const auto chosen = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Drives (\\\\host)");
        press(dialog, "OKButton");
    });
    press(form, "DriveBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(objectOf(form), "C:\\");
    EXPECT_EQ(folders(form).first(), "\\\\host\\C$\\");
}

} // namespace

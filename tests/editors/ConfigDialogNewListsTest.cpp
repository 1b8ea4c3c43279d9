#include "platform/ByteText.h"
#include "tests/editors/FileEditorFixture.h"

#include <QPushButton>

namespace {

using FileListsTest = FileEditor;

TEST_F(FileListsTest, TheDriveListHoldsAToZWhateverDrivesThereAre)
{
    const auto *drives = control<QComboBox>(addFile(), "AllDriveList");
    ASSERT_EQ(drives->count(), 26);
    for (int i = 0; i < 26; ++i)
        EXPECT_EQ(drives->itemText(i), QString(QChar('A' + i)) + ':');
}

TEST_F(FileListsTest, ChoosingAMissingDriveIsReportedAndTheListsStayWhereTheyWere)
{
    const ItemEditorForm &form = editLine("C:\\Windows\\notepad.exe t");
    messages.expectShow("Cannot access file system Q:\\");
    chooseDrive(form, 'q');
    messages.verify();
    EXPECT_EQ(shownDrive(form), "C:");
    EXPECT_EQ(selectedIn(form, "DirList"), "Windows");
    EXPECT_EQ(selectedIn(form, "FileList"), "notepad.exe");
    EXPECT_EQ(objectOf(form), "C:\\Windows\\notepad.exe");
    EXPECT_EQ(form.windowTitle(), "File System (C:\\)");
}

TEST_F(FileListsTest, ChoosingADriveOpensIt)
{
    const ItemEditorForm &form = addFile();
    chooseDrive(form, 'd');
    EXPECT_EQ(form.windowTitle(), "File System (D:\\)");
    EXPECT_EQ(folders(form), (QStringList{"D:\\", "data"}));
    EXPECT_EQ(files(form), QStringList());
    EXPECT_EQ(objectOf(form), "D:\\");
}

TEST_F(FileListsTest, ChoosingTheSameDriveGoesBackToItsRoot)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    auto *drives = control<QComboBox>(form, "AllDriveList");
    QTest::mouseClick(drives, Qt::LeftButton);
    QTest::keyClick(drives->view(), Qt::Key_Return);
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Temp", "Windows"}));
    EXPECT_EQ(objectOf(form), "C:\\");
}

// A step must not be a choice: the first drive that is not there would be refused, again and again.
TEST_F(FileListsTest, TheKeysPassOverMissingDrives)
{
    fileSystem.addDrive("F:\\");
    const ItemEditorForm &form = addFile();
    auto *drives = control<QComboBox>(form, "AllDriveList");
    QTest::keyClick(drives, Qt::Key_Down);
    ASSERT_TRUE(drives->view()->isVisible());
    EXPECT_EQ(shownDrive(form), "C:");
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(drives->view(), Qt::Key_Down);
    EXPECT_EQ(objectOf(form), "C:\\");
    QTest::keyClick(drives->view(), Qt::Key_Return);
    EXPECT_EQ(shownDrive(form), "F:");
    EXPECT_EQ(objectOf(form), "F:\\");
}

TEST_F(FileListsTest, TheWheelOverTheDriveListChoosesNothing)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    auto *drives = control<QComboBox>(form, "AllDriveList");
    const QPointF at = drives->rect().center();
    QWheelEvent turned(at, drives->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                       false);
    QCoreApplication::sendEvent(drives, &turned);
    EXPECT_FALSE(turned.isAccepted());
    EXPECT_EQ(shownDrive(form), "C:");
    EXPECT_EQ(objectOf(form), "C:\\Windows");
}

TEST_F(FileListsTest, ADriveThatIsAFileIsRememberedToo)
{
    fileSystem.addFile("E:\\");
    const ItemEditorForm &form = addFile();
    chooseDrive(form, 'e');
    EXPECT_EQ(form.windowTitle(), "File System (E:\\)");
    EXPECT_EQ(objectOf(form), "E:\\");
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Temp", "Windows"}));
}

TEST_F(FileListsTest, AClickOpensAFolder)
{
    const ItemEditorForm &form = addFile();
    clickName(form, "DirList", "Windows");
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Windows", "System32"}));
    EXPECT_EQ(selectedIn(form, "DirList"), "Windows");
    EXPECT_EQ(files(form), (QStringList{"notepad.exe", "WIN.INI"}));
    EXPECT_EQ(objectOf(form), "C:\\Windows");
    clickName(form, "DirList", "System32");
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Windows", "System32", "drivers"}));
    EXPECT_EQ(objectOf(form), "C:\\Windows\\System32");
    // And those that it is in.
    clickName(form, "DirList", "C:\\");
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Temp", "Windows"}));
    EXPECT_EQ(objectOf(form), "C:\\");
    EXPECT_EQ(form.windowTitle(), "File System (C:\\)");
}

TEST_F(FileListsTest, ADoubleClickOpensOneFolderOnly)
{
    fileSystem.addFolder("C:\\Temp\\under the mouse");
    const ItemEditorForm &form = addFile();
    QListView &folderList = list(form, "DirList");
    const QPoint at = folderList.visualRect(folderList.model()->index(1, 0)).center();
    QTest::mouseClick(folderList.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(folderList.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_EQ(objectOf(form), "C:\\Temp");
    const QPoint below = folderList.visualRect(folderList.model()->index(2, 0)).center();
    QTest::mouseClick(folderList.viewport(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_EQ(objectOf(form), "C:\\Temp\\under the mouse");
}

TEST_F(FileListsTest, AClickOnAFileTakesIt)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    clickName(form, "FileList", "notepad.exe");
    EXPECT_EQ(objectOf(form), "C:\\Windows\\notepad.exe");
    clickName(form, "FileList", "WIN.INI");
    EXPECT_EQ(objectOf(form), "C:\\Windows\\WIN.INI");
    // Over a text of the user's own too.
    enter(form, "ObjectName", "mine");
    clickName(form, "FileList", "WIN.INI");
    EXPECT_EQ(objectOf(form), "C:\\Windows\\WIN.INI");
    // In the root no separator is doubled.
    clickName(form, "DirList", "C:\\");
    clickName(form, "FileList", "boot.ini");
    EXPECT_EQ(objectOf(form), "C:\\boot.ini");
}

TEST_F(FileListsTest, AFolderThatIsGoneIsReported)
{
    const ItemEditorForm &form = addFile();
    fileSystem.remove("C:\\Temp");
    messages.expectShow("Cannot find file C:\\Temp");
    clickName(form, "DirList", "Temp");
    EXPECT_EQ(objectOf(form), "C:\\");
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Temp", "Windows"}));
}

TEST_F(FileListsTest, NamesAreInOrderWhateverTheirCase)
{
    for (const char *name : {"b", "A", "c", "Ä", "10", "9"})
        fileSystem.addFile("C:\\many\\file " + QString(name));
    for (const char *name : {"y", "X"})
        fileSystem.addFolder("C:\\many\\" + QString(name));
    const ItemEditorForm &form = editLine("C:\\many t");
    EXPECT_EQ(files(form), (QStringList{"file 10", "file 9", "file A", "file b", "file c", "file Ä"}));
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "many", "X", "y"}));
}

TEST_F(FileListsTest, FilesOfEveryNameAreListed)
{
    fileSystem.addFile("C:\\Temp\\no dot");
    fileSystem.addFile("C:\\Temp\\.dot");
    EXPECT_EQ(files(editLine("C:\\Temp t")), (QStringList{".dot", "no dot"}));
}

TEST_F(FileListsTest, ANameThatIsNoTextIsCarriedIntoTheLine)
{
    const QString name = decodeBytes("caf\xE9");
    fileSystem.addFile("C:\\Temp\\" + name);
    const ItemEditorForm &form = editLine("C:\\Temp t");
    EXPECT_EQ(files(form), QStringList{"caf\u00E9"});
    clickName(form, "FileList", "caf\u00E9");
    EXPECT_EQ(objectOf(form), "C:\\Temp\\caf\u00E9");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"C:\\Temp\\caf\\u0x00E9 t"});
}

TEST_F(FileListsTest, ALineBreakInANameIsEscapedInTheLine)
{
    // As a blank, as one that is entered is, it would be the name of another file.
    fileSystem.addFile("C:\\Temp\\two\nlines");
    const ItemEditorForm &form = editLine("C:\\Temp t");
    // A picture of the line break stands on the same line, where the name is as high as others.
    clickName(form, "FileList", "two\u240Alines");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"C:\\Temp\\two\\u0x000Alines t"});
}

TEST_F(FileListsTest, ALineOfAnOldFileFindsTheCharactersThatItsBytesStandFor)
{
    fileSystem.addFile("C:\\Gr\u00F6\u00DFe\\\u00FC.txt");
    fileSystem.addFile("C:\\Temp\\\u00FC.txt");
    const auto show = [this](const QByteArray &line) -> const ItemEditorForm & { return editLine(decodeBytes(line)); };
    EXPECT_EQ(selectedIn(show("C:\\Gr\xF6\xDF"
                              "e t"),
                         "DirList"),
              "Gr\u00F6\u00DFe");
    EXPECT_EQ(selectedIn(show("C:\\Gr\xF6\xDF"
                              "e\\\xFC.txt t"),
                         "FileList"),
              "\u00FC.txt");
    EXPECT_EQ(selectedIn(show("C:\\Temp\\\xFC.txt t"), "FileList"), "\u00FC.txt");
    // Missing in a folder that is there, which nobody minds.
    EXPECT_EQ(selectedIn(show("C:\\Gr\xF6\xDF"
                              "e\\new t"),
                         "DirList"),
              "Gr\u00F6\u00DFe");
    messages.expectShow("Cannot find file C:\\\u00FC\\x");
    show("C:\\\xFC\\x t");
}

TEST_F(FileListsTest, ALineFindsTheNameOfItsVeryBytesFirst)
{
    fileSystem.addFile("C:\\Temp\\" + decodeBytes("\xFC"));
    fileSystem.addFile("C:\\Temp\\\u00FC");
    const ItemEditorForm &form = editLine(decodeBytes("C:\\Temp\\\xFC t"));
    // Both are shown so.
    EXPECT_EQ(files(form), (QStringList{"\u00FC", "\u00FC"}));
    EXPECT_EQ(list(form, "FileList").currentIndex().row(), 1);
}

TEST_F(FileListsTest, ALineIsShownAgainAfterAnother)
{
    const ItemEditorForm &form = editLine("C:\\Windows\\notepad.exe t");
    editLine("C:\\Windows t");
    EXPECT_EQ(selectedIn(form, "FileList"), "");
    editLine("C:\\Windows\\WIN.INI t");
    EXPECT_EQ(selectedIn(form, "FileList"), "WIN.INI");
}

TEST_F(FileListsTest, TheKeyboardIsEnough)
{
    ItemEditorForm &form = addFile();
    EXPECT_EQ(form.focusWidget()->objectName(), "ObjectName");
    // To the folders and into one of them.
    key(form, Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(form.focusWidget()->objectName(), "DirList");
    key(form, Qt::Key_Down);
    key(form, Qt::Key_Down);
    EXPECT_EQ(objectOf(form), "C:\\");
    key(form, Qt::Key_Return);
    EXPECT_EQ(objectOf(form), "C:\\Windows");
    EXPECT_EQ(document.rows, QStringList());
    // From there on to those below it.
    key(form, Qt::Key_Down);
    key(form, Qt::Key_Enter);
    EXPECT_EQ(objectOf(form), "C:\\Windows\\System32");
    key(form, Qt::Key_Up);
    key(form, Qt::Key_Return);
    // To the files: a row that the keys go to is taken.
    key(form, Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget()->objectName(), "FileList");
    EXPECT_EQ(objectOf(form), "C:\\Windows");
    key(form, Qt::Key_Down);
    EXPECT_EQ(objectOf(form), "C:\\Windows\\WIN.INI");
    key(form, Qt::Key_Up);
    EXPECT_EQ(objectOf(form), "C:\\Windows\\notepad.exe");
    // To the drives.
    key(form, Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(form.focusWidget()->objectName(), "AllDriveList");
    chooseDrive(form, 'd');
    EXPECT_EQ(objectOf(form), "D:\\");
    // A flag, and the button of the form.
    control<QWidget>(form, "flag_t")->setFocus();
    key(form, Qt::Key_Space);
    key(form, Qt::Key_Return);
    EXPECT_EQ(document.rows, QStringList{"D:\\ t"});
}

TEST_F(FileListsTest, TheListsTakeTheRoomOfABiggerForm)
{
    ItemEditorForm &form = addFile();
    const int before = list(form, "DirList").height();
    const int button = control<QPushButton>(form, "OKButton")->height();
    form.resize(form.size() + QSize(0, 150));
    EXPECT_TRUE(QTest::qWaitFor([&] { return list(form, "DirList").height() == before + 150; }));
    EXPECT_EQ(list(form, "FileList").height(), before + 150);
    EXPECT_EQ(control<QPushButton>(form, "OKButton")->height(), button);
}

} // namespace

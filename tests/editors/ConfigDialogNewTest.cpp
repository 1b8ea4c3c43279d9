#include "editors/FlagAlphabet.h"
#include "editors/FlagAlphabets.h"
#include "tests/editors/FileEditorFixture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

namespace {

const QString flagMessage = "You must select at least one flag.";
const QString lastAccessQuestion = "The last access flag will always return true because Zentil will access the file "
                                   "in every run. Are you sure you want to set this flag?";

using ConfigDialogNewTest = FileEditor;

// Texts

TEST_F(ConfigDialogNewTest, HasItsTexts)
{
    ItemEditor &editor = editors.newEditor(ItemKind::File);
    const auto &form = dynamic_cast<ItemEditorForm &>(editor);
    EXPECT_EQ(form.windowTitle(), "File");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "Object to monitor");
    EXPECT_EQ(control<QLabel>(form, "Label2")->text(), "Prefix");
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(control<QWidget>(form, "ObjectName")->toolTip(), "Full path of object to check");
    EXPECT_EQ(control<QWidget>(form, "Prefix")->toolTip(), "Modify how the object and its children will be checked");
    EXPECT_EQ(control<QWidget>(form, "ButtonPrefixQuery")->toolTip(), "Show a list of available prefixes");
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "Properties to monitor");
    EXPECT_EQ(control<QCheckBox>(form, "flag_EVT")->text(), "Event ID:");
    EXPECT_EQ(control<QAbstractButton>(form, "Button_Flag_All")->text(), "All $(A)");
    EXPECT_EQ(control<QAbstractButton>(form, "Button_Flag_Log")->text(), "Log $(LOG)");
    EXPECT_EQ(control<QAbstractButton>(form, "ClearButton")->text(), "Clear");
    EXPECT_EQ(control<QAbstractButton>(form, "OKButton")->text(), "&Apply");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "&Close");
    // With two blanks; it has always been so.
    EXPECT_EQ(control<QCheckBox>(form, "flag_1")->text(), "Store MD5  signature of file or value");
}

// New items

TEST_F(ConfigDialogNewTest, ANewItemIsTheRootOfCWithoutFlagsAndIsRefused)
{
    const ItemEditorForm &form = addFile();
    EXPECT_EQ(objectOf(form), "C:\\");
    EXPECT_EQ(textOf(form, "Prefix"), "");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
    for (const QCheckBox *box : form.findChildren<QCheckBox *>())
        EXPECT_FALSE(box->isChecked()) << box->objectName().toStdString();
    messages.expectShow(flagMessage, Messages::Icon::Exclamation);
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, QStringList());
}

TEST_F(ConfigDialogNewTest, NewItemsAreAddedOneAfterAnother)
{
    const ItemEditorForm &form = addFile();
    press(form, "flag_t");
    press(form, "OKButton");
    enter(form, "ObjectName", "C:\\my files\\x");
    enter(form, "Prefix", "=");
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, (QStringList{"C:\\ t", "=\"C:\\my files\\x\" t"}));
}

TEST_F(ConfigDialogNewTest, AnExclusionNeedsNoFlags)
{
    const ItemEditorForm &form = addFile();
    enter(form, "Prefix", "!!");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"!!C:\\"});
}

// Flags

TEST_F(ConfigDialogNewTest, TheLettersOfTheLogSetAreWrittenAsLogAndWithMOneByOne)
{
    const ItemEditorForm &form = addFile();
    for (const char *box : {"flag_t", "flag_c", "flag_n", "flag_o", "flag_g", "flag_p", "flag_z"})
        press(form, box);
    press(form, "OKButton");
    press(form, "flag_m");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"C:\\ $(LOG)", "C:\\ tcmnogpz"}));
}

TEST_F(ConfigDialogNewTest, AllBoxesAreWrittenAsLettersNotAsA)
{
    const ItemEditorForm &form = addFile();
    messages.expectAsk(lastAccessQuestion, Messages::Buttons::YesNo, Messages::Answer::Yes);
    for (const FlagLetter &letter : fileFlags.letters)
        press(form, letter.control.data());
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"C:\\ tcamvsniogpz12"});
}

TEST_F(ConfigDialogNewTest, AFillsAllBoxesButAccessTimeAndMd5)
{
    const ItemEditorForm &form = editLine("C:\\Temp $(A)");
    for (const FlagLetter &letter : fileFlags.letters)
        EXPECT_EQ(control<QCheckBox>(form, letter.control.data())->isChecked(),
                  letter.letter != 'a' && letter.letter != '1')
            << letter.letter;
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"C:\\Temp $(A)"});
    EXPECT_EQ(rewritten("C:\\Temp tcmvsniogpz2,EVT5"), "C:\\Temp $(A),EVT5");
    EXPECT_EQ(rewritten("C:\\Temp ct"), "C:\\Temp tc");
    EXPECT_EQ(rewritten("C:\\Temp xyz"), "C:\\Temp z,xy");
}

// The last access flag

TEST_F(ConfigDialogNewTest, SettingAccessTimeIsAskedAbout)
{
    const ItemEditorForm &form = addFile();
    const auto *box = control<QCheckBox>(form, "flag_a");
    messages.expectAsk(lastAccessQuestion, Messages::Buttons::YesNo, Messages::Answer::No);
    press(form, "flag_a");
    EXPECT_FALSE(box->isChecked());
    messages.expectAsk(lastAccessQuestion, Messages::Buttons::YesNo, Messages::Answer::Yes);
    press(form, "flag_a");
    EXPECT_TRUE(box->isChecked());
    messages.verify();
    // Clearing it is not asked about.
    press(form, "flag_a");
    EXPECT_FALSE(box->isChecked());
}

TEST_F(ConfigDialogNewTest, SettingAccessTimeWithTheKeysIsAskedAboutToo)
{
    const ItemEditorForm &form = addFile();
    auto *box = control<QCheckBox>(form, "flag_a");
    messages.expectAsk(lastAccessQuestion, Messages::Buttons::YesNo, Messages::Answer::Cancel);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_FALSE(box->isChecked());
}

TEST_F(ConfigDialogNewTest, ReadingALineWithAccessTimeAsksNothing)
{
    const ItemEditorForm &form = editLine("C:\\Temp ta");
    EXPECT_TRUE(control<QCheckBox>(form, "flag_a")->isChecked());
    // Neither do the buttons; both sets are without it.
    press(form, "Button_Flag_All");
    EXPECT_FALSE(control<QCheckBox>(form, "flag_a")->isChecked());
    press(form, "Button_Flag_Log");
    press(form, "ClearButton");
}

// The object

TEST_F(ConfigDialogNewTest, ASeparatorAtTheEndIsDroppedBelowTheRootOnly)
{
    const ItemEditorForm &form = addFile();
    press(form, "flag_t");
    for (const char *object : {"C:\\Temp\\", "D:\\", "C:\\Temp\\\\", "\\", "\\\\srv\\x\\", "a:\\b:\\"}) {
        enter(form, "ObjectName", object);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, (QStringList{"C:\\Temp t", "D:\\ t", "C:\\Temp\\ t", " t", "\\\\srv\\x t", "a:\\b:\\ t"}));
}

// Showing a line

TEST_F(ConfigDialogNewTest, AFolderIsOpened)
{
    const ItemEditorForm &form = editLine("C:\\Windows t");
    EXPECT_EQ(form.windowTitle(), "File System (C:\\)");
    EXPECT_EQ(shownDrive(form), "C:");
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Windows", "System32"}));
    EXPECT_EQ(selectedIn(form, "DirList"), "Windows");
    EXPECT_EQ(files(form), (QStringList{"notepad.exe", "WIN.INI"}));
    EXPECT_EQ(selectedIn(form, "FileList"), "");
    EXPECT_EQ(objectOf(form), "C:\\Windows");
}

TEST_F(ConfigDialogNewTest, AFileIsSelectedInItsFolder)
{
    const ItemEditorForm &form = editLine("=C:\\Windows\\notepad.exe t");
    EXPECT_EQ(selectedIn(form, "DirList"), "Windows");
    EXPECT_EQ(selectedIn(form, "FileList"), "notepad.exe");
    EXPECT_EQ(objectOf(form), "C:\\Windows\\notepad.exe");
    EXPECT_EQ(textOf(form, "Prefix"), "=");
}

TEST_F(ConfigDialogNewTest, WhatIsFoundInAnotherCaseStaysAsTheLineHasIt)
{
    const ItemEditorForm &form = editLine("c:\\WINDOWS\\NotePad.EXE t");
    EXPECT_EQ(shownDrive(form), "C:");
    EXPECT_EQ(form.windowTitle(), "File System (C:\\)");
    EXPECT_EQ(selectedIn(form, "FileList"), "notepad.exe");
    EXPECT_EQ(objectOf(form), "c:\\WINDOWS\\NotePad.EXE");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"c:\\WINDOWS\\NotePad.EXE t"});
}

TEST_F(ConfigDialogNewTest, AMissingFileInAFolderThatIsThereIsNotReported)
{
    const ItemEditorForm &form = editLine("C:\\Windows\\none.txt t");
    EXPECT_EQ(selectedIn(form, "DirList"), "Windows");
    EXPECT_EQ(selectedIn(form, "FileList"), "");
    EXPECT_EQ(objectOf(form), "C:\\Windows\\none.txt");
}

TEST_F(ConfigDialogNewTest, AMissingFolderIsReportedWithThePathOfTheLine)
{
    messages.expectShow("Cannot find file C:\\none\\file");
    const ItemEditorForm &form = editLine("!C:\\none\\file t");
    messages.verify();
    // The drive has been found.
    EXPECT_EQ(folders(form), (QStringList{"C:\\", "Temp", "Windows"}));
    EXPECT_EQ(objectOf(form), "C:\\none\\file");
    EXPECT_EQ(textOf(form, "Prefix"), "!");
    EXPECT_TRUE(control<QCheckBox>(form, "flag_t")->isChecked());
}

TEST_F(ConfigDialogNewTest, AFileInTheRootIsNeitherSelectedNorMissed)
{
    for (const char *object : {"C:\\boot.ini", "C:\\none"}) {
        const ItemEditorForm &form = editLine(object);
        EXPECT_EQ(selectedIn(form, "DirList"), "C:\\");
        EXPECT_EQ(files(form), QStringList{"boot.ini"});
        EXPECT_EQ(selectedIn(form, "FileList"), "");
        EXPECT_EQ(objectOf(form), object);
    }
}

TEST_F(ConfigDialogNewTest, APathWithoutASeparatorIsReported)
{
    messages.expectShow("Cannot find file C:file");
    EXPECT_EQ(objectOf(editLine("C:file t")), "C:file");
    messages.expectShow("Cannot find file word");
    EXPECT_EQ(objectOf(editLine("word t")), "word");
    messages.expectShow("Cannot find file \\word");
    EXPECT_EQ(objectOf(editLine("\\word t")), "\\word");
    messages.expectShow("Cannot find file ");
    EXPECT_EQ(objectOf(editLine("")), "");
}

TEST_F(ConfigDialogNewTest, AMissingDriveIsReportedAndNothingElseIs)
{
    messages.expectShow("Cannot access file system Q:\\");
    const ItemEditorForm &form = editLine("!q:\\dir\\file t");
    EXPECT_EQ(objectOf(form), "q:\\dir\\file");
    EXPECT_EQ(textOf(form, "Prefix"), "!");
    EXPECT_TRUE(control<QCheckBox>(form, "flag_t")->isChecked());
    EXPECT_EQ(form.windowTitle(), "File");
    EXPECT_EQ(folders(form), QStringList());
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"!q:\\dir\\file t"});
}

TEST_F(ConfigDialogNewTest, AFailedDriveIsNotRememberedForTheNextLine)
{
    messages.expectShow("Cannot access file system Q:\\");
    const ItemEditorForm &form = editLine("Q:\\x t");
    EXPECT_EQ(&editLine("D:\\data t"), &form);
    EXPECT_EQ(shownDrive(form), "D:");
    EXPECT_EQ(folders(form), (QStringList{"D:\\", "data"}));
}

TEST_F(ConfigDialogNewTest, WhatHasNoDriveIsLookedForAsItStands)
{
    fileSystem.addDrive("\\\\srv\\share\\");
    fileSystem.addFile("\\\\srv\\share\\dir\\file");
    const ItemEditorForm &form = editLine("\\\\srv\\share\\dir\\file t");
    EXPECT_EQ(folders(form), (QStringList{"\\\\srv\\share\\", "dir"}));
    EXPECT_EQ(selectedIn(form, "FileList"), "file");
    EXPECT_EQ(objectOf(form), "\\\\srv\\share\\dir\\file");
    EXPECT_EQ(form.windowTitle(), "File");
    // A character in front of ":" that is no drive.
    EXPECT_EQ(objectOf(editLine("1:\\x t")), "1:\\x");
    messages.expectShow("Cannot find file %TEMP%\\x");
    editLine("%TEMP%\\x t");
}

// Another host

TEST_F(ConfigDialogNewTest, ForARemoteDocumentBootIniIsBrowsedThroughTheHostsShare)
{
    host = "host";
    const ItemEditorForm &form = editLine("C:\\boot.ini t");
    EXPECT_EQ(document.askedDrives, QStringList{"C:"});
    EXPECT_EQ(form.windowTitle(), "File System (\\\\host\\C$\\)");
    EXPECT_EQ(folders(form), (QStringList{"\\\\host\\C$\\", "there"}));
    EXPECT_EQ(selectedIn(form, "FileList"), "boot.ini");
    for (const QString &path : fileSystem.asked)
        EXPECT_TRUE(path.startsWith("\\\\host\\C$")) << path.toStdString();
    EXPECT_EQ(objectOf(form), "C:\\boot.ini");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"C:\\boot.ini t"});
}

TEST_F(ConfigDialogNewTest, AHostsListsWriteThePathAsTheHostKnowsIt)
{
    host = "host";
    const ItemEditorForm &form = addFile();
    EXPECT_EQ(objectOf(form), "C:\\");
    clickName(form, "DirList", "there");
    EXPECT_EQ(objectOf(form), "C:\\there");
    clickName(form, "FileList", "file");
    EXPECT_EQ(objectOf(form), "C:\\there\\file");
    clickName(form, "DirList", "\\\\host\\C$\\");
    EXPECT_EQ(objectOf(form), "C:\\");
    clickName(form, "FileList", "boot.ini");
    EXPECT_EQ(objectOf(form), "C:\\boot.ini");
}

TEST_F(ConfigDialogNewTest, WhatIsMissingOnAHostIsReportedWithItsShare)
{
    host = "host";
    messages.expectShow("Cannot find file \\\\host\\C$\\none\\x");
    editLine("C:\\none\\x t");
    messages.expectShow("Cannot access file system \\\\host\\D$\\");
    const ItemEditorForm &form = editLine("D:\\x t");
    EXPECT_EQ(shownDrive(form), "C:");
    EXPECT_EQ(objectOf(form), "D:\\x");
}

TEST_F(ConfigDialogNewTest, AConnectionOfTheDocumentSaysWhereADriveIs)
{
    host = "host";
    document.connections["D:"] = "\\\\10.0.0.1\\data\\";
    fileSystem.addDrive("\\\\10.0.0.1\\data\\");
    fileSystem.addFile("\\\\10.0.0.1\\data\\dir\\file");
    const ItemEditorForm &form = editLine("D:\\dir\\file t");
    EXPECT_EQ(form.windowTitle(), "File System (\\\\10.0.0.1\\data\\)");
    EXPECT_EQ(selectedIn(form, "FileList"), "file");
    clickName(form, "DirList", "dir");
    EXPECT_EQ(objectOf(form), "D:\\dir");
    clickName(form, "DirList", "\\\\10.0.0.1\\data\\");
    EXPECT_EQ(objectOf(form), "D:\\");
    // The next drive has no connection, but a share.
    chooseDrive(form, 'c');
    clickName(form, "DirList", "there");
    EXPECT_EQ(objectOf(form), "C:\\there");
}

TEST_F(ConfigDialogNewTest, AnEditorServesDocumentsOfThisMachineAndOfOthers)
{
    host = "host";
    const ItemEditorForm &form = editLine("C:\\there t");
    host.clear();
    EXPECT_EQ(&editLine("C:\\Windows t"), &form);
    EXPECT_EQ(form.windowTitle(), "File System (C:\\)");
    EXPECT_EQ(document.askedDrives, QStringList{"C:"});
}

} // namespace

#include "tests/integration/ProgramWithEditors.h"

namespace {

TEST_F(ProgramWithEditors, ARowIsEditedAndSaved)
{
    open();
    doubleClickRow(1);
    ItemEditorForm &other = editor();
    EXPECT_EQ(other.objectName(), "ConfigDialogOther");
    EXPECT_EQ(control<QLineEdit>(other, "ObjectName")->text(), "\\\\server\\x");
    // The row travels with the editor.
    clickRow(list(document(0)), 0);
    enter(other, "ObjectName", "\\\\server\\a b");
    press(other, "OKButton");
    settle();
    EXPECT_TRUE(openEditors().isEmpty());
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(fakeFiles.content["/a.zcf"], "; a\r\n\"\\\\server\\a b\" t\r\n");
}

TEST_F(ProgramWithEditors, NewItemsAreAddedOneAfterTheOther)
{
    open();
    trigger(*window, "mnuItemNewLine");
    for (const char *line : {"; b", "", "; c"}) {
        enter(editor(), "Item", line);
        press(editor(), "OKButton");
    }
    EXPECT_EQ(document(0).rowList().rows(), (QStringList{"; a", "\\\\server\\x t", "; b", "", "; c"}));
}

TEST_F(ProgramWithEditors, FilesAndKeysAreAddedAndChanged)
{
    fileSystem.addDrive("C:\\");
    fileSystem.addFolder("C:\\my files");
    open();
    trigger(*window, "mnuItemNewFile");
    press(editor(), "flag_t");
    press(editor(), "OKButton");
    clickRow(list(document(0)), 0);
    enter(editor(), "ObjectName", "C:\\my files\\");
    press(editor(), "OKButton");
    key(editor(), Qt::Key_Escape);
    settle();
    trigger(*window, "mnuItemNewReg");
    enter(editor(), "ObjectName", "HKLM");
    press(editor(), "Button_Flag_All");
    press(editor(), "OKButton");
    key(editor(), Qt::Key_Escape);
    settle();
    // The first came while no row was current, so that it has no space before its flags.
    EXPECT_EQ(document(0).rowList().rows(),
              (QStringList{"\"C:\\my files\" t", "HKLM\\ $(RA)", "; a", "\\\\server\\x t", "C:\\t"}));
    doubleClickRow(0);
    EXPECT_EQ(editor().objectName(), "ConfigDialogNew");
    EXPECT_EQ(editor().windowTitle(), "File System (C:\\)");
    press(editor(), "Button_Flag_Log");
    press(editor(), "OKButton");
    settle();
    EXPECT_EQ(document(0).rowList().rows()[0], "\"C:\\my files\" $(LOG)");
}

TEST_F(ProgramWithEditors, PastedLinesStayOneRow)
{
    open();
    trigger(*window, "mnuItemNewLine");
    enter(editor(), "Item", "; b\r\n; c");
    press(editor(), "OKButton");
    EXPECT_EQ(document(0).rowList().rows().mid(2), QStringList{"; b  ; c"});
}

TEST_F(ProgramWithEditors, ARowThatIsGoneIsReported)
{
    open();
    doubleClickRow(1);
    clickRow(list(document(0)), 1);
    document(0).Remove_Other();
    messages.expectShow("Run-time error '5':\n\nInvalid procedure call or argument\n\n"
                        "The line that was edited is not there any more.",
                        Messages::Icon::Critical);
    press(editor(), "OKButton");
    EXPECT_EQ(document(0).rowList().rows(), QStringList{"; a"});
    EXPECT_EQ(openEditors().size(), 1);
}

TEST_F(ProgramWithEditors, AnEditorClosesWithItsDocument)
{
    fakeFiles.content["/b.zcf"] = "; b\r\n";
    open();
    window->Load("/b.zcf");
    settle();
    trigger(*window, "mnuItemNewLine");
    trigger(*window, "mnuItemNewOther");
    EXPECT_EQ(openEditors().size(), 2);
    activate(document(0));
    trigger(*window, "mnuItemNewLine");
    EXPECT_EQ(openEditors().size(), 3);
    activate(document(1));
    trigger(*window, "mnuFileClose");
    settle();
    ASSERT_EQ(openEditors().size(), 1);
    enter(editor(), "Item", "; to a");
    press(editor(), "OKButton");
    EXPECT_EQ(document(0).rowList().rows().last(), "; to a");
}

TEST_F(ProgramWithEditors, TheProgramEndsWithEditorsOpen)
{
    open();
    doubleClickRow(0);
    trigger(*window, "mnuItemNewOther");
    EXPECT_EQ(openEditors().size(), 2);
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_TRUE(window->documents().empty());
    EXPECT_TRUE(openEditors().isEmpty());
}

TEST_F(ProgramWithEditors, GlobalSettingsAreOneUndoStep)
{
    fakeFiles.content["/a.zcf"] = "; a\r\n#define MAILTO x\r\nc:\\ t\r\n";
    open();
    clickRow(list(document(0)), 1);
    trigger(*window, "mnuItemWizard");
    ASSERT_EQ(openWizards().size(), 1);
    ConfigWizardInfo &wizard = *openWizards().first();
    EXPECT_EQ(wizard.focusWidget()->objectName(), "def_MAILTO");
    enter(wizard, "def_MAILTO", "two words");
    enter(wizard, "def_MAILFROM", "me");
    press(wizard, "cmdApply");
    EXPECT_EQ(document(0).rowList().rows(),
              (QStringList{"; a", "#define MAILTO \"two words\"", "c:\\ t", "#define MAILFROM me"}));
    EXPECT_EQ(document(0).changed(), -1);
    // The row that was current is the one still.
    EXPECT_EQ(list(document(0)).listIndex(), 1);
    trigger(*window, "mnuEditUndo");
    EXPECT_EQ(document(0).rowList().rows(), (QStringList{"; a", "#define MAILTO x", "c:\\ t"}));
    messages.expectShow("Cannot undo");
    document(0).mnuEditUndo_Click();
    // What was taken back in the document is not written again.
    press(wizard, "cmdOK");
    EXPECT_EQ(document(0).rowList().rows(), (QStringList{"; a", "#define MAILTO x", "c:\\ t"}));
    settle();
    EXPECT_TRUE(openWizards().isEmpty());
}

TEST_F(ProgramWithEditors, EachDocumentHasOneWizardWhichClosesWithIt)
{
    fakeFiles.content["/b.zcf"] = "; b\r\n";
    open();
    trigger(*window, "mnuItemWizard");
    trigger(*window, "mnuItemWizard");
    EXPECT_EQ(openWizards().size(), 1);
    window->Load("/b.zcf");
    settle();
    trigger(*window, "mnuItemWizard");
    EXPECT_EQ(openWizards().size(), 2);
    activate(document(1));
    trigger(*window, "mnuFileClose");
    settle();
    ASSERT_EQ(openWizards().size(), 1);
    enter(*openWizards().first(), "def_MAILTO", "a");
    press(*openWizards().first(), "cmdOK");
    EXPECT_EQ(document(0).rowList().rows().last(), "#define MAILTO a");
}

TEST_F(ProgramWithEditors, KindsWithoutAnEditorCannotBeChosen)
{
    open();
    doubleClickRow(0);
    EXPECT_EQ(editor().objectName(), "ConfigDialogMisc");
    for (const ItemKindRow &row : itemKinds) {
        if (!itemEditors.hasEditor(row.kind))
            document(0).AddNew(row.displayName);
    }
    EXPECT_EQ(openEditors().size(), 1);
}

} // namespace

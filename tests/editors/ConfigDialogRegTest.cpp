#include "editors/FlagAlphabet.h"
#include "editors/FlagAlphabets.h"
#include "tests/editors/EditorFixture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QTreeWidget>

namespace {

const QString flagMessage = "You must select at least one flag.";

class ConfigDialogRegTest : public Editors
{
protected:
    ConfigDialogRegTest()
    {
        registry.make("HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor");
        registry.make("HKEY_CURRENT_USER\\Software");
    }

    ItemEditorForm &editLine(const QString &line) { return Editors::editLine(ItemKind::Registry, line); }
    QString rewritten(const QString &line) { return Editors::rewritten(ItemKind::Registry, line); }
};

// Texts

TEST_F(ConfigDialogRegTest, HasItsTexts)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    EXPECT_EQ(form.windowTitle(), "Registry");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "Object to affect");
    EXPECT_EQ(control<QLabel>(form, "Label2")->text(), "Prefix");
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(control<QAbstractButton>(form, "ObjBrowse")->text(), "Browse...");
    EXPECT_EQ(control<QWidget>(form, "Prefix")->toolTip(), "Modify how the object and its children will be checked");
    EXPECT_EQ(control<QWidget>(form, "ButtonPrefixQuery")->toolTip(), "Show a list of available prefixes");
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "Properties to monitor");
    EXPECT_EQ(control<QCheckBox>(form, "flag_EVT")->text(), "Event ID");
    EXPECT_EQ(control<QCheckBox>(form, "flag_XG")->text(), "Group values by");
    EXPECT_EQ(control<QAbstractButton>(form, "Button_Flag_All")->text(), "All $(RA)");
    EXPECT_EQ(control<QAbstractButton>(form, "Button_Flag_Log")->text(), "Log");
    EXPECT_EQ(control<QWidget>(form, "Button_Flag_Log")->toolTip(), "Settings suitable for log files");
    EXPECT_EQ(control<QAbstractButton>(form, "ClearButton")->text(), "Clear");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "&Close");
}

TEST_F(ConfigDialogRegTest, TheToolTipOfAllSpeaksOfFilesHereToo)
{
    EXPECT_EQ(control<QWidget>(add(ItemKind::Registry), "Button_Flag_All")->toolTip(),
              "Settings suitable for most files and directories");
}

// New items

TEST_F(ConfigDialogRegTest, ANewItemIsEmptyAndIsRefused)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    for (const char *field : {"ObjectName", "Prefix", "OtherFlags", "val_EVT", "val_XG"})
        EXPECT_EQ(textOf(form, field), "") << field;
    for (const QCheckBox *box : form.findChildren<QCheckBox *>())
        EXPECT_FALSE(box->isChecked()) << box->objectName().toStdString();
    messages.expectShow(flagMessage, Messages::Icon::Exclamation);
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, QStringList());
}

TEST_F(ConfigDialogRegTest, NewItemsAreAddedOneAfterAnother)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    press(form, "Button_Flag_Log");
    enter(form, "ObjectName", "HKLM\\Software");
    press(form, "OKButton");
    enter(form, "ObjectName", "HKLM\\Some key");
    enter(form, "Prefix", "==");
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, (QStringList{"HKLM\\Software ckogpz", "==\"HKLM\\Some key\" ckogpz"}));
}

TEST_F(ConfigDialogRegTest, AnExclusionNeedsNoFlags)
{
    EXPECT_EQ(rewritten("!HKLM\\x"), "!HKLM\\x");
}

// Flags

TEST_F(ConfigDialogRegTest, AllBoxesButMd5AreWrittenAsRaAndAllAsLetters)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    enter(form, "ObjectName", "HKLM\\x");
    for (const FlagLetter &letter : registryFlags.letters) {
        if (letter.letter != '1')
            press(form, letter.control.data());
    }
    press(form, "OKButton");
    press(form, "flag_1");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"HKLM\\x $(RA)", "HKLM\\x ckmogpz12"}));
}

TEST_F(ConfigDialogRegTest, TheEventIsWrittenBeforeTheGroup)
{
    const ItemEditorForm &form = editLine("HKLM\\x $(RA),G2,EVT9");
    for (const FlagLetter &letter : registryFlags.letters)
        EXPECT_EQ(control<QCheckBox>(form, letter.control.data())->isChecked(), letter.letter != '1') << letter.letter;
    EXPECT_TRUE(control<QCheckBox>(form, "flag_XG")->isChecked());
    EXPECT_EQ(textOf(form, "val_XG"), "2");
    EXPECT_TRUE(control<QCheckBox>(form, "flag_EVT")->isChecked());
    EXPECT_EQ(textOf(form, "val_EVT"), "9");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"HKLM\\x $(RA),EVT9,G2"});
}

TEST_F(ConfigDialogRegTest, AnyOtherGIsTakenAsTheGroup)
{
    EXPECT_EQ(rewritten("HKLM\\x cG7x"), "HKLM\\x c,G7,x");
    // Also one without a number: it is gone then.
    EXPECT_EQ(rewritten("HKLM\\x cGx"), "HKLM\\x c,x");
}

TEST_F(ConfigDialogRegTest, TheLogSetHasNoMacro)
{
    const ItemEditorForm &form = editLine("HKLM\\x ckmogpz12,x");
    press(form, "Button_Flag_Log");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"HKLM\\x ckogpz"});
}

TEST_F(ConfigDialogRegTest, AnOptionsFieldIsEnabledWhileItsBoxIsChecked)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    for (const char *option : {"EVT", "XG"}) {
        const auto *field = control<QWidget>(form, QByteArray("val_").append(option));
        EXPECT_FALSE(field->isEnabled());
        press(form, QByteArray("flag_").append(option));
        EXPECT_TRUE(field->isEnabled());
        press(form, QByteArray("flag_").append(option));
        EXPECT_FALSE(field->isEnabled());
    }
}

// The key

TEST_F(ConfigDialogRegTest, ABareHiveGetsASeparatorAndOthersKeepTheirs)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    press(form, "flag_c");
    for (const char *key : {"HKLM", "HKLM\\Software\\", "HKLM\\", "HKLM\\x", ""}) {
        enter(form, "ObjectName", key);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, (QStringList{"HKLM\\ c", "HKLM\\Software\\ c", "HKLM\\ c", "HKLM\\x c", "\\ c"}));
}

TEST_F(ConfigDialogRegTest, AKeyOfALineIsNotLookedFor)
{
    const ItemEditorForm &form = editLine("=HKLM\\none\\at\\all c");
    EXPECT_EQ(textOf(form, "ObjectName"), "HKLM\\none\\at\\all");
    EXPECT_EQ(textOf(form, "Prefix"), "=");
    EXPECT_EQ(registry.calls, QByteArrayList());
}

// The browser

TEST_F(ConfigDialogRegTest, TheBrowserStartsAtTheKeyAndGivesItsOwn)
{
    const ItemEditorForm &form = editLine("HKLM\\SOFTWARE c");
    const auto chosen = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "BrowseReg");
        EXPECT_EQ(dialog.windowTitle(), "Registry [resizable]");
        EXPECT_EQ(textOf(dialog, "ObjectName"), "HKLM\\SOFTWARE");
        EXPECT_EQ(dialog.focusWidget()->objectName(), "KeyList");
        // With the keys alone.
        key(dialog, Qt::Key_Right);
        EXPECT_EQ(textOf(dialog, "ObjectName"), "HKLM\\SOFTWARE\\Vendor");
        key(dialog, Qt::Key_Return);
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "HKLM\\SOFTWARE\\Vendor");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"HKLM\\SOFTWARE\\Vendor c"});
}

TEST_F(ConfigDialogRegTest, TheBrowserOfANewItemStartsAtTheHives)
{
    const ItemEditorForm &form = add(ItemKind::Registry);
    const auto opened = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(textOf(dialog, "ObjectName"), "");
        EXPECT_EQ(control<QTreeWidget>(dialog, "KeyList")->topLevelItemCount(), 5);
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(opened->handled);
}

TEST_F(ConfigDialogRegTest, ACancelledBrowserChangesNothing)
{
    const ItemEditorForm &form = editLine("HKCU\\Software c");
    const auto cancelled = onNextDialog([](QWidget &dialog) {
        enter(dialog, "ObjectName", "HKU");
        press(dialog, "CancelButton");
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(cancelled->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "HKCU\\Software");
}

TEST_F(ConfigDialogRegTest, AMissingKeyIsReportedByTheBrowserAndKept)
{
    const ItemEditorForm &form = editLine("HKLM\\none c");
    messages.expectShow("Unable to read key HKLM\\none");
    const auto confirmedAsItIs = onNextDialog([](QWidget &dialog) { press(dialog, "OKButton"); });
    press(form, "ObjBrowse");
    EXPECT_TRUE(confirmedAsItIs->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "HKLM\\none");
}

TEST_F(ConfigDialogRegTest, AHostsRegistryIsBrowsed)
{
    host = "srv";
    registry.hosts << "srv";
    registry.make("\\\\srv\\HKEY_LOCAL_MACHINE\\There");
    const ItemEditorForm &form = editLine("HKLM\\ c");
    const auto chosen = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Registry (\\\\srv) [resizable]");
        key(dialog, Qt::Key_Down);
        press(dialog, "OKButton");
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "HKLM\\There");
}

TEST_F(ConfigDialogRegTest, TheKeyboardIsEnough)
{
    ItemEditorForm &form = add(ItemKind::Registry);
    EXPECT_EQ(form.focusWidget()->objectName(), "ObjectName");
    QTest::keyClicks(form.focusWidget(), "HKLM");
    for (const char *next : {"ObjBrowse", "Prefix", "ButtonPrefixQuery", "flag_c"}) {
        key(form, Qt::Key_Tab);
        EXPECT_EQ(form.focusWidget()->objectName(), next);
    }
    key(form, Qt::Key_Space);
    key(form, Qt::Key_Return);
    EXPECT_EQ(document.rows, QStringList{"HKLM\\ c"});
    key(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

} // namespace

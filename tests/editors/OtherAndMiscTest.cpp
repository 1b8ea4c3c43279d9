#include "tests/config/PlainGrammar.h"
#include "tests/editors/EditorFixture.h"
#include "tests/support/Random.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>

namespace {

const QString flagMessage = "You must select at least one flag.";

// Other

class ConfigDialogOtherTest : public Editors
{
protected:
    /// Adds an item with these texts.
    void confirm(const QString &object, const QString &prefix, const QString &flags)
    {
        const ItemEditorForm &form = add(ItemKind::Other);
        enter(form, "ObjectName", object);
        enter(form, "Prefix", prefix);
        enter(form, "ObjectFlags", flags);
        press(form, "OKButton");
        EXPECT_TRUE(form.isVisible());
    }

    void refuse(const QString &object, const QString &prefix, const QString &flags)
    {
        messages.expectShow(flagMessage, Messages::Icon::Exclamation);
        confirm(object, prefix, flags);
        messages.verify();
        EXPECT_EQ(document.rows, QStringList());
    }
};

TEST_F(ConfigDialogOtherTest, HasItsTexts)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    EXPECT_EQ(form.windowTitle(), "Other");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "Object name");
    EXPECT_EQ(control<QLabel>(form, "Label2")->text(), "Prefix");
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Flags");
    EXPECT_EQ(control<QWidget>(form, "ObjectName")->toolTip(), "Name of object (path, registry, sql) to check");
    EXPECT_EQ(control<QWidget>(form, "Prefix")->toolTip(), "Modify how the object and its children will be checked");
    EXPECT_EQ(control<QWidget>(form, "ButtonPrefixQuery")->toolTip(), "Show a list of available prefixes");
    EXPECT_EQ(control<QWidget>(form, "ObjectFlags")->toolTip(),
              "Settings appropriate for your object type; a complete list can be found in your manual");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "&Close");
}

TEST_F(ConfigDialogOtherTest, StartsEmptyAndIsRefusedThen)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    for (const char *field : {"ObjectName", "Prefix", "ObjectFlags"})
        EXPECT_EQ(textOf(form, field), "") << field;
    messages.expectShow(flagMessage, Messages::Icon::Exclamation);
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, QStringList());
}

TEST_F(ConfigDialogOtherTest, TakesFlagsAsTheyStand)
{
    confirm("\\\\server\\x", "", "tcm");
    confirm("$(A)\\x", "==", " tcm,t ");
    EXPECT_EQ(document.rows, (QStringList{"\\\\server\\x tcm", "==$(A)\\x  tcm,t "}));
}

TEST_F(ConfigDialogOtherTest, NeedsNoFlagsForAnExclusion)
{
    confirm("\\\\server\\x", "!!", "");
    confirm("\\\\server\\y", "!", "");
    EXPECT_EQ(document.rows, (QStringList{"!!\\\\server\\x", "!\\\\server\\y"}));
}

TEST_F(ConfigDialogOtherTest, NeedsFlagsWithAnyOtherPrefix)
{
    refuse("\\\\server\\x", "==", "");
    refuse("\\\\server\\x", "=", "");
    refuse("\\\\server\\x", "", "");
    // Not at the beginning.
    refuse("\\\\server\\x", "=!", "");
    refuse("\\\\server\\x", " !", "");
}

TEST_F(ConfigDialogOtherTest, TakesABlankForAFlag)
{
    confirm("\\\\server\\x", "", " ");
    EXPECT_EQ(document.rows, QStringList{"\\\\server\\x  "});
}

TEST_F(ConfigDialogOtherTest, ShowsALineInItsThreeParts)
{
    document.rows = QStringList{"=\"\\\\server\\a b\" $(A),EVT5"};
    const ItemEditorForm &form = edit(ItemKind::Other, 0);
    EXPECT_EQ(textOf(form, "Prefix"), "=");
    EXPECT_EQ(textOf(form, "ObjectName"), "\\\\server\\a b");
    // No macro is expanded and no option taken out.
    EXPECT_EQ(textOf(form, "ObjectFlags"), "$(A),EVT5");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"=\"\\\\server\\a b\" $(A),EVT5"});
}

TEST_F(ConfigDialogOtherTest, ALineWithoutAPrefixEmptiesTheField)
{
    document.rows = QStringList{"!\\\\server\\x", "\\\\server\\y t"};
    const ItemEditorForm &form = edit(ItemKind::Other, 0);
    EXPECT_EQ(textOf(form, "Prefix"), "!");
    EXPECT_EQ(&edit(ItemKind::Other, 1), &form);
    EXPECT_EQ(textOf(form, "Prefix"), "");
}

TEST_F(ConfigDialogOtherTest, TheChoosersFlagsReplaceTheOld)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    enter(form, "ObjectFlags", "old");
    const auto chosen = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "ConfigDialogFlags");
        press(dialog, "flag_t");
        press(dialog, "flag_k");
        press(dialog, "OKButton");
    });
    press(form, "FlagsInquire");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(textOf(form, "ObjectFlags"), "kt");
}

TEST_F(ConfigDialogOtherTest, TheChooserStartsClearEachTime)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    for (int time = 0; time < 2; ++time) {
        const auto chosen = onNextDialog([](QWidget &dialog) {
            for (const QCheckBox *box : dialog.findChildren<QCheckBox *>())
                EXPECT_FALSE(box->isChecked()) << box->objectName().toStdString();
            EXPECT_EQ(textOf(dialog, "OtherFlags"), "");
            press(dialog, "flag_t");
            enter(dialog, "OtherFlags", "x");
            press(dialog, "OKButton");
        });
        press(form, "FlagsInquire");
        EXPECT_TRUE(chosen->handled);
        EXPECT_EQ(textOf(form, "ObjectFlags"), "tx");
    }
}

TEST_F(ConfigDialogOtherTest, ACancelledChooserChangesNothing)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    enter(form, "ObjectFlags", "old");
    for (const bool isByKey : {false, true}) {
        const auto cancelled = onNextDialog([isByKey](QWidget &dialog) {
            press(dialog, "flag_t");
            if (isByKey)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                press(dialog, "CancelButton");
            EXPECT_FALSE(dialog.isVisible());
        });
        press(form, "FlagsInquire");
        EXPECT_TRUE(cancelled->handled);
        EXPECT_EQ(textOf(form, "ObjectFlags"), "old");
    }
}

TEST_F(ConfigDialogOtherTest, AnEmptyChoiceEmptiesTheFlags)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    enter(form, "ObjectFlags", "old");
    const auto chosen = onNextDialog([](QWidget &dialog) { press(dialog, "OKButton"); });
    press(form, "FlagsInquire");
    EXPECT_TRUE(chosen->handled);
    EXPECT_EQ(textOf(form, "ObjectFlags"), "");
}

// Misc

class ConfigDialogMiscTest : public Editors
{
};

TEST_F(ConfigDialogMiscTest, HasItsTexts)
{
    const ItemEditorForm &form = add(ItemKind::Line);
    EXPECT_EQ(form.windowTitle(), "Misc");
    EXPECT_EQ(textOf(form, "Item"), "");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "&Close");
}

TEST_F(ConfigDialogMiscTest, StoresALineAsItIsTyped)
{
    const QStringList lines{
        "; a comment, \u00E9 and all", "#define ZENTILPRIORITY 5", "  bare  words  ", "\"a b", "", "C:\\x R"};
    const ItemEditorForm &form = add(ItemKind::Line);
    for (const QString &line : lines) {
        enter(form, "Item", line);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, lines);
}

TEST_F(ConfigDialogMiscTest, ShowsTheWholeLine)
{
    document.rows = QStringList{" !\"C:\\a b\" $(A) "};
    EXPECT_EQ(textOf(edit(ItemKind::Line, 0), "Item"), " !\"C:\\a b\" $(A) ");
}

// Both: edits without a change

class EditWithoutChange : public Editors
{
protected:
    const QStringList pieces{" ",      " ",    "\"",   "=",   "!",   "\\", "\\\\server", ":",  ";",  "C:\\",
                             "hklm\\", "$(A)", "EVT5", "tcm", "x,y", "a",  "\u00E9",     "#x", "\t", "$(LOG)"};
};

TEST_F(EditWithoutChange, OtherWritesWhatThePlainModelSays)
{
    Random random(41);
    int refused = 0;
    document.rows = QStringList{QString()};
    for (int round = 0; round < 400; ++round) {
        const QString line = random.text(pieces, 8);
        document.rows[0] = line;
        plain::Parts parts;
        try {
            parts = plain::parseAsDocument(line);
        } catch (const plain::NegativeLength &) {
            continue;
        }
        const bool isAccepted = !parts.flags.isEmpty() || parts.prefix.startsWith("!");
        if (!isAccepted) {
            messages.expectShow(flagMessage, Messages::Icon::Exclamation);
            ++refused;
        }
        const ItemEditorForm &form = edit(ItemKind::Other, 0);
        press(form, "OKButton");
        messages.verify();
        ASSERT_EQ(form.isVisible(), !isAccepted) << line.toStdString();
        ASSERT_EQ(document.rows[0], isAccepted ? plain::assemble(parts.object, parts.prefix, parts.flags, true) : line)
            << line.toStdString();
    }
    // Both happen often enough to mean something.
    EXPECT_GT(refused, 50);
    EXPECT_LT(refused, 350);
}

TEST_F(EditWithoutChange, MiscWritesTheLine)
{
    Random random(42);
    document.rows = QStringList{QString()};
    for (int round = 0; round < 200; ++round) {
        const QString line = random.text(pieces, 8);
        document.rows[0] = line;
        press(edit(ItemKind::Line, 0), "OKButton");
        ASSERT_EQ(document.rows[0], line);
    }
}

} // namespace

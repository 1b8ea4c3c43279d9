#include "tests/editors/EditorFixture.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>

namespace {

const QString flagMessage = "You must select at least one flag.";

/// The 24 letters that the users' macro stands for, and all of them.
const QString userMacroLetters = "ncCdjhspwlSoebxmugMrRfLO";
const QString userLetters = "ncCdjhspwlSoaebxmugMrRfLO";

/// The check box of a letter: a capital has an "X" in front of it.
QString boxOf(QChar letter)
{
    return (letter.isUpper() ? "flag_X" : "flag_") + QString(letter);
}

QStringList boxesOf(const QString &letters)
{
    QStringList boxes;
    for (const QChar letter : letters)
        boxes << boxOf(letter);
    return boxes;
}

class AccountEditors : public Editors
{
protected:
    AccountEditors()
    {
        accounts.users = QStringList{"zoe", "adam", "Guest Account"};
        accounts.localGroups = QStringList{"Users", "Administrators"};
        accounts.globalGroups = QStringList{"Domain Users", "Users"};
    }

    void refuse(const ItemEditorForm &form)
    {
        messages.expectShow(flagMessage, Messages::Icon::Exclamation);
        press(form, "OKButton");
        messages.verify();
        EXPECT_TRUE(form.isVisible());
    }

    /// Opens the picker of a form and does these steps in it.
    void browse(const ItemEditorForm &form, const std::function<void(QWidget &picker, QListWidget &list)> &steps)
    {
        const auto proof = onNextDialog([&](QWidget &picker) {
            EXPECT_EQ(picker.objectName(), "BrowseUsers");
            EXPECT_EQ(picker.parentWidget(), &form);
            awaitActive(picker);
            steps(picker, *control<QListWidget>(picker, "List"));
        });
        press(form, "Browse");
        EXPECT_TRUE(proof->handled);
    }

    static QStringList namesIn(const QListWidget &list)
    {
        QStringList names;
        for (int row = 0; row < list.count(); ++row)
            names << list.item(row)->text();
        return names;
    }
};

// Users

using ConfigDialogUserTest = AccountEditors;

TEST_F(ConfigDialogUserTest, HasItsTexts)
{
    const auto &untouched = dynamic_cast<ItemEditorForm &>(editors.newEditor(ItemKind::User));
    EXPECT_EQ(control<QAbstractButton>(untouched, "OKButton")->text(), "&OK");
    const ItemEditorForm &form = add(ItemKind::User);
    EXPECT_EQ(form.windowTitle(), "User");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "User name (wildcards permitted)");
    EXPECT_EQ(control<QLabel>(form, "Label1")->buddy(), control<QWidget>(form, "ObjectName"));
    EXPECT_EQ(control<QLabel>(form, "Label2")->text(), "Prefix");
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "User flags");
    EXPECT_EQ(control<QAbstractButton>(form, "Browse")->text(), "Browse...");
    EXPECT_EQ(control<QAbstractButton>(form, "ButtonUA")->text(), "$(UA)");
    EXPECT_EQ(control<QAbstractButton>(form, "ClearButton")->text(), "Clear");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "&Close");
    EXPECT_EQ(control<QCheckBox>(form, "flag_EVT")->text(), "Event ID");
    EXPECT_EQ(control<QAbstractButton>(form, "ButtonPrefixQuery")->toolTip(), "Show a list of available prefixes");
}

TEST_F(ConfigDialogUserTest, StartsUncheckedAndEmptyAndIsRefusedThen)
{
    const ItemEditorForm &form = add(ItemKind::User);
    EXPECT_EQ(checkedBoxes(form), QStringList());
    for (const char *field : {"ObjectName", "Prefix", "val_EVT", "OtherFlags"})
        EXPECT_EQ(textOf(form, field), "") << field;
    refuse(form);
    EXPECT_EQ(document.rows, QStringList());
}

TEST_F(ConfigDialogUserTest, AllBoxesButPasswordAgeGiveTheMacroAndAllTheLetters)
{
    const ItemEditorForm &form = add(ItemKind::User);
    enter(form, "ObjectName", "adam");
    pressAll(form, boxesOf(userMacroLetters));
    press(form, "OKButton");
    press(form, "flag_a");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"NTUSER:adam $(UA)", "NTUSER:adam " + userLetters}));
}

TEST_F(ConfigDialogUserTest, WritesLettersInTheOrderOfTheirTable)
{
    const ItemEditorForm &form = add(ItemKind::User);
    QStringList boxes = boxesOf(userLetters);
    std::reverse(boxes.begin(), boxes.end());
    pressAll(form, boxes);
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"NTUSER: " + userLetters});
}

TEST_F(ConfigDialogUserTest, TheMacroWithAnEventIsWrittenAndNotExpandedWhenItIsRead)
{
    ItemEditorForm &form = add(ItemKind::User);
    enter(form, "ObjectName", "adam");
    press(form, "ButtonUA");
    press(form, "flag_EVT");
    enter(form, "val_EVT", "7");
    press(form, "OKButton");
    ASSERT_EQ(document.rows, QStringList{"NTUSER:adam $(UA),EVT7"});
    form.close();

    const ItemEditorForm &again = edit(ItemKind::User, 0);
    EXPECT_EQ(checkedBoxes(again), QStringList{"EVT"});
    EXPECT_EQ(textOf(again, "val_EVT"), "7");
    EXPECT_EQ(textOf(again, "OtherFlags"), "$(UA)");
    press(again, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"NTUSER:adam EVT7,$(UA)"});
}

TEST_F(ConfigDialogUserTest, TheMacroAloneChecksWhatItStandsFor)
{
    const ItemEditorForm &form = editLine(ItemKind::User, "NTUSER:adam $(UA)");
    for (const QChar letter : userLetters)
        EXPECT_EQ(isChecked(form, boxOf(letter).toLatin1()), letter != 'a') << boxOf(letter).toStdString();
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
}

TEST_F(ConfigDialogUserTest, BothSpellingsOfTheMacroCheckTheSameBoxes)
{
    // The one with "Mg" and "Rr", which the button uses, is never written.
    const QString ofButton = "ncCdjhspwlSoebxmuMgRrfLO";
    QStringList shown;
    for (const QString &letters : {userMacroLetters, ofButton}) {
        ItemEditorForm &form = editLine(ItemKind::User, "NTUSER:adam " + letters);
        shown << checkedBoxes(form).join(u' ');
        press(form, "OKButton");
        EXPECT_EQ(document.rows[0], "NTUSER:adam $(UA)");
    }
    const ItemEditorForm &form = add(ItemKind::User);
    press(form, "ButtonUA");
    shown << checkedBoxes(form).join(u' ');
    EXPECT_EQ(shown[0], shown[1]);
    EXPECT_EQ(shown[0], shown[2]);
}

TEST_F(ConfigDialogUserTest, LettersAreDifferentInTheOtherCase)
{
    for (const QString &letters : {QString("cslomr"), QString("CSLOMR")}) {
        const ItemEditorForm &form = editLine(ItemKind::User, "NTUSER:adam " + letters);
        for (const QChar letter : QString("cslomrCSLOMR"))
            EXPECT_EQ(isChecked(form, boxOf(letter).toLatin1()), letters.contains(letter))
                << boxOf(letter).toStdString();
    }
}

TEST_F(ConfigDialogUserTest, OtherOptionsLoseTheirCommas)
{
    const ItemEditorForm &form = editLine(ItemKind::User, "NTUSER:adam ,G,D");
    EXPECT_EQ(checkedBoxes(form), QStringList());
    EXPECT_EQ(textOf(form, "OtherFlags"), "GD");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "NTUSER:adam GD");
}

TEST_F(ConfigDialogUserTest, ALetterInsideOfAnotherOptionIsTakenForItsBox)
{
    const ItemEditorForm &form = editLine(ItemKind::User, "NTUSER:adam Zone");
    EXPECT_EQ(checkedBoxes(form), (QStringList{"n", "o", "e"}));
    EXPECT_EQ(textOf(form, "OtherFlags"), "Z");
}

TEST_F(ConfigDialogUserTest, TheButtonEmptiesEventAndOtherFlagsAndLeavesTheEventsBox)
{
    for (const bool hasEvent : {false, true}) {
        const ItemEditorForm &form = editLine(ItemKind::User, hasEvent ? "NTUSER:adam a,EVT7,?" : "NTUSER:adam a,?");
        press(form, "ButtonUA");
        EXPECT_EQ(textOf(form, "val_EVT"), "");
        EXPECT_EQ(textOf(form, "OtherFlags"), "");
        EXPECT_EQ(isChecked(form, "flag_EVT"), hasEvent);
        EXPECT_FALSE(isChecked(form, "flag_a"));
        press(form, "OKButton");
        EXPECT_EQ(document.rows[0], hasEvent ? "NTUSER:adam $(UA),EVT" : "NTUSER:adam $(UA)");
    }
}

TEST_F(ConfigDialogUserTest, ClearLeavesEventAndOtherFlags)
{
    const ItemEditorForm &form = editLine(ItemKind::User, "NTUSER:adam nc,EVT7,?");
    press(form, "ClearButton");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "NTUSER:adam EVT7,?");
}

TEST_F(ConfigDialogUserTest, AnEventIsWrittenWithoutTheBlanksAroundItAndOtherFlagsWithThem)
{
    const ItemEditorForm &form = add(ItemKind::User);
    enter(form, "ObjectName", "adam");
    press(form, "flag_EVT");
    enter(form, "val_EVT", " 100 ");
    enter(form, "OtherFlags", " x ");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"NTUSER:adam EVT100, x "});
}

TEST_F(ConfigDialogUserTest, AnExclusionNeedsNoFlags)
{
    const ItemEditorForm &form = add(ItemKind::User);
    enter(form, "ObjectName", "adam");
    for (const char *prefix : {"", "=", "==", " !", "=!"}) {
        enter(form, "Prefix", prefix);
        refuse(form);
    }
    for (const char *prefix : {"!", "!!"}) {
        enter(form, "Prefix", prefix);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, (QStringList{"!NTUSER:adam", "!!NTUSER:adam"}));
}

TEST_F(ConfigDialogUserTest, ShowsPrefixAndNameWithoutTheTag)
{
    const ItemEditorForm &form = editLine(ItemKind::User, "=\"NTUSER:Guest Account\" n");
    EXPECT_EQ(textOf(form, "Prefix"), "=");
    EXPECT_EQ(textOf(form, "ObjectName"), "Guest Account");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "=\"NTUSER:Guest Account\" n");
}

TEST_F(ConfigDialogUserTest, TheFirstSevenCharactersAreTakenForTheTagWhateverTheyAre)
{
    EXPECT_EQ(rewritten(ItemKind::User, "ntuser:adam n"), "NTUSER:adam n");
    EXPECT_EQ(rewritten(ItemKind::User, "NTGROUP:adam n"), "NTUSER::adam n");
    EXPECT_EQ(rewritten(ItemKind::User, "short n"), "NTUSER: n");
}

TEST_F(ConfigDialogUserTest, LeadingBlanksOfANameAreRemovedAndTrailingOnesStay)
{
    const ItemEditorForm &form = add(ItemKind::User);
    press(form, "flag_n");
    for (const char *name : {"  adam", "adam  ", "  ", "\tadam"}) {
        enter(form, "ObjectName", name);
        press(form, "OKButton");
    }
    // Only blanks are removed; the document writes a tab as its code.
    EXPECT_EQ(document.rows,
              (QStringList{"NTUSER:adam n", "\"NTUSER:adam  \" n", "NTUSER: n", "NTUSER:\\u0x0009adam n"}))
        << document.rows.join(u'|').toStdString();
}

TEST_F(ConfigDialogUserTest, AnEmptyNameIsNoFault)
{
    EXPECT_EQ(rewritten(ItemKind::User, "NTUSER: n"), "NTUSER: n");
}

TEST_F(ConfigDialogUserTest, StaysOpenForFurtherUsersAndClosesAfterAChange)
{
    const ItemEditorForm &adding = add(ItemKind::User);
    press(adding, "flag_n");
    for (const char *name : {"adam", "zoe"}) {
        enter(adding, "ObjectName", name);
        press(adding, "OKButton");
        EXPECT_TRUE(adding.isVisible());
    }
    EXPECT_EQ(document.rows, (QStringList{"NTUSER:adam n", "NTUSER:zoe n"}));
    const QPointer<ItemEditorForm> changing = &edit(ItemKind::User, 1);
    press(*changing, "flag_c");
    press(*changing, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"NTUSER:adam n", "NTUSER:zoe nc"}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !changing; }));
}

TEST_F(ConfigDialogUserTest, BrowseListsTheUsersOfThisMachine)
{
    const ItemEditorForm &form = add(ItemKind::User);
    enter(form, "ObjectName", "before");
    browse(form, [this](QWidget &picker, QListWidget &list) {
        EXPECT_EQ(picker.windowTitle(), "Users");
        EXPECT_EQ(namesIn(list), accounts.users);
        clickRow(list, 2);
        press(picker, "OKButton");
    });
    EXPECT_EQ(textOf(form, "ObjectName"), "Guest Account");
}

TEST_F(ConfigDialogUserTest, BrowseAsksTheHostOfARemoteDocument)
{
    ItemEditorForm &form = add(ItemKind::User);
    form.setHost("srv");
    form.setRemoteFlag(true);
    accounts.server = R"(\\srv)";
    browse(form, [this](QWidget &picker, QListWidget &list) {
        EXPECT_EQ(picker.windowTitle(), R"(Users (\\srv))");
        EXPECT_EQ(namesIn(list), accounts.users);
    });
}

TEST_F(ConfigDialogUserTest, BrowseAsksThisMachineWhileTheRemoteSwitchIsOff)
{
    ItemEditorForm &form = add(ItemKind::User);
    form.setHost("srv");
    browse(form, [this](QWidget &picker, QListWidget &list) {
        EXPECT_EQ(picker.windowTitle(), "Users");
        EXPECT_EQ(namesIn(list), accounts.users);
    });
}

TEST_F(ConfigDialogUserTest, ACancelledPickerEmptiesTheName)
{
    const ItemEditorForm &form = add(ItemKind::User);
    for (const char *button : {"CancelButton", "OKButton"}) {
        enter(form, "ObjectName", "before");
        // With nothing selected OK picks nothing either.
        browse(form, [&](QWidget &picker, QListWidget &) { press(picker, button); });
        EXPECT_EQ(textOf(form, "ObjectName"), "") << button;
    }
}

TEST_F(ConfigDialogUserTest, PicksAnewEachTime)
{
    const ItemEditorForm &form = add(ItemKind::User);
    for (const int row : {0, 1}) {
        browse(form, [row](QWidget &picker, QListWidget &list) {
            EXPECT_EQ(list.selectedItems().size(), 0);
            clickRow(list, row);
            press(picker, "OKButton");
        });
        EXPECT_EQ(textOf(form, "ObjectName"), accounts.users[row]);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.findChildren<QDialog *>().isEmpty(); }));
}

TEST_F(ConfigDialogUserTest, IsUsedWithTheKeyboardAlone)
{
    ItemEditorForm &form = add(ItemKind::User);
    key(form, Qt::Key_Tab);
    const auto picked = onNextDialog([](QWidget &picker) {
        awaitActive(picker);
        key(picker, Qt::Key_Down);
        key(picker, Qt::Key_Down);
        key(picker, Qt::Key_Return);
    });
    key(form, Qt::Key_Space);
    EXPECT_TRUE(picked->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "adam");
    key(form, Qt::Key_Tab);
    QTest::keyClicks(form.focusWidget(), "==");
    // Over the button of the prefix to the first box.
    key(form, Qt::Key_Tab);
    key(form, Qt::Key_Tab);
    key(form, Qt::Key_Space);
    key(form, Qt::Key_Return);
    EXPECT_EQ(document.rows, QStringList{"==NTUSER:adam n"});
    key(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

// Groups: what differs

using ConfigDialogGroupTest = AccountEditors;

TEST_F(ConfigDialogGroupTest, HasItsTexts)
{
    const auto &untouched = dynamic_cast<ItemEditorForm &>(editors.newEditor(ItemKind::Group));
    EXPECT_EQ(control<QAbstractButton>(untouched, "OKButton")->text(), "&OK");
    const ItemEditorForm &form = add(ItemKind::Group);
    EXPECT_EQ(form.windowTitle(), "Group");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "Group name (wildcards permitted)");
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "Group flags");
    EXPECT_EQ(control<QAbstractButton>(form, "Browse")->text(), "Browse...");
    EXPECT_EQ(control<QAbstractButton>(form, "ButtonGA")->text(), "$(GA)");
    EXPECT_EQ(control<QAbstractButton>(form, "ClearButton")->text(), "Clear");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "&Close");
}

TEST_F(ConfigDialogGroupTest, AllFourGiveTheMacroAndThreeTheirLettersInOrder)
{
    const ItemEditorForm &form = add(ItemKind::Group);
    enter(form, "ObjectName", "Users");
    pressAll(form, {"flag_m", "flag_g", "flag_n"});
    press(form, "OKButton");
    press(form, "flag_c");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"NTGROUP:Users ngm", "NTGROUP:Users $(GA)"}));
}

TEST_F(ConfigDialogGroupTest, TheMacroWithAnEventChecksAllFourAndFillsTheEvent)
{
    const ItemEditorForm &form = editLine(ItemKind::Group, "NTGROUP:Users $(GA),EVT5");
    EXPECT_EQ(checkedBoxes(form), (QStringList{"n", "c", "g", "m", "EVT"}));
    EXPECT_EQ(textOf(form, "val_EVT"), "5");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "NTGROUP:Users $(GA),EVT5");
}

TEST_F(ConfigDialogGroupTest, TheMacroIsExpandedInTheMiddleToo)
{
    const ItemEditorForm &form = editLine(ItemKind::Group, "NTGROUP:Users x$(GA)y");
    EXPECT_EQ(checkedBoxes(form), (QStringList{"n", "c", "g", "m"}));
    EXPECT_EQ(textOf(form, "OtherFlags"), "xy");
}

TEST_F(ConfigDialogGroupTest, ACapitalCIsNotTheComment)
{
    const ItemEditorForm &form = editLine(ItemKind::Group, "NTGROUP:Users C");
    EXPECT_EQ(checkedBoxes(form), QStringList());
    EXPECT_EQ(textOf(form, "OtherFlags"), "C");
}

TEST_F(ConfigDialogGroupTest, TheButtonChecksAllAndEmptiesEventAndOtherFlags)
{
    const ItemEditorForm &form = editLine(ItemKind::Group, "NTGROUP:Users n,EVT7,?");
    press(form, "ButtonGA");
    EXPECT_EQ(textOf(form, "val_EVT"), "");
    EXPECT_TRUE(isChecked(form, "flag_EVT"));
    press(form, "flag_EVT");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "NTGROUP:Users $(GA)");
}

TEST_F(ConfigDialogGroupTest, TheFirstEightCharactersAreTakenForTheTagWhateverTheyAre)
{
    EXPECT_EQ(rewritten(ItemKind::Group, "NTUSER:adam n"), "NTGROUP:dam n");
    EXPECT_EQ(rewritten(ItemKind::Group, "\"NTGROUP:Remote Desktop Users\" n"), "\"NTGROUP:Remote Desktop Users\" n");
}

TEST_F(ConfigDialogGroupTest, LeadingBlanksOfANameAreRemovedAndTrailingOnesStay)
{
    const ItemEditorForm &form = add(ItemKind::Group);
    press(form, "flag_n");
    enter(form, "ObjectName", "  Users ");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"\"NTGROUP:Users \" n"});
}

TEST_F(ConfigDialogGroupTest, AnExclusionNeedsNoFlags)
{
    const ItemEditorForm &form = add(ItemKind::Group);
    enter(form, "ObjectName", "Users");
    enter(form, "Prefix", "=");
    refuse(form);
    enter(form, "Prefix", "!");
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, QStringList{"!NTGROUP:Users"});
}

TEST_F(ConfigDialogGroupTest, BrowseListsLocalGroupsAndBehindThemGlobalOnes)
{
    ItemEditorForm &form = add(ItemKind::Group);
    form.setHost("srv");
    form.setRemoteFlag(true);
    accounts.server = R"(\\srv)";
    browse(form, [this](QWidget &picker, QListWidget &list) {
        EXPECT_EQ(picker.windowTitle(), R"(Groups (\\srv))");
        EXPECT_EQ(namesIn(list), accounts.localGroups + accounts.globalGroups);
        clickRow(list, 2);
        press(picker, "OKButton");
    });
    EXPECT_EQ(textOf(form, "ObjectName"), "Domain Users");
    browse(form, [](QWidget &picker, QListWidget &) { press(picker, "CancelButton"); });
    EXPECT_EQ(textOf(form, "ObjectName"), "");
}

} // namespace

#include "tests/editors/EditorFixture.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

namespace {

/// Holds for both.
class EitherPolicyEditor : public Editors, public testing::WithParamInterface<ItemKind>
{
protected:
    [[nodiscard]] static QString word()
    {
        return GetParam() == ItemKind::AccountPolicy ? "ACCOUNTPOLICY" : "AUDITPOLICY";
    }
};

TEST_P(EitherPolicyEditor, HasTheTextsOfBoth)
{
    const auto &untouched = dynamic_cast<ItemEditorForm &>(editors.newEditor(GetParam()));
    EXPECT_EQ(control<QAbstractButton>(untouched, "OKButton")->text(), "&Apply");
    const ItemEditorForm &form = add(GetParam());
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "Properties to monitor");
    EXPECT_EQ(control<QCheckBox>(form, "flag_EVT")->text(), "Event ID");
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "Cancel");
    // They name nothing.
    for (const char *name : {"ObjectName", "Prefix", "ButtonPrefixQuery", "ClearButton"})
        EXPECT_EQ(form.findChild<QWidget *>(name), nullptr) << name;
}

TEST_P(EitherPolicyEditor, StartsUncheckedAndMayBeConfirmedSo)
{
    const ItemEditorForm &form = add(GetParam());
    EXPECT_EQ(checkedBoxes(form), QStringList());
    EXPECT_EQ(textOf(form, "val_EVT"), "");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{word()});
}

TEST_P(EitherPolicyEditor, ClosesWithANewItemToo)
{
    const QPointer<ItemEditorForm> adding = &add(GetParam());
    press(*adding, "OKButton");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !adding; }));
    const QPointer<ItemEditorForm> changing = &edit(GetParam(), 0);
    press(*changing, "flag_EVT");
    press(*changing, "OKButton");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !changing; }));
    EXPECT_EQ(document.rows, QStringList{word() + " EVT"});
}

TEST_P(EitherPolicyEditor, WritesItsWordWhateverStoodThere)
{
    EXPECT_EQ(rewritten(GetParam(), "!!" + word().toLower() + " EVT5"), word() + " EVT5");
    EXPECT_EQ(rewritten(GetParam(), "\"C:\\a b\" EVT5"), word() + " EVT5");
}

TEST_P(EitherPolicyEditor, EventAndOtherFlagsAreWrittenBehindACommaOfWhichTheFirstIsDropped)
{
    const ItemEditorForm &form = add(GetParam());
    press(form, "flag_EVT");
    enter(form, "val_EVT", " 12 ");
    enter(form, "OtherFlags", "x");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{word() + " EVT12,x"});
}

TEST_P(EitherPolicyEditor, CancelChangesNothing)
{
    const QPointer<ItemEditorForm> form = &editLine(GetParam(), word() + " EVT5");
    press(*form, "flag_EVT");
    press(*form, "CancelButton");
    EXPECT_EQ(document.rows, QStringList{word() + " EVT5"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
}

TEST_P(EitherPolicyEditor, AFailureKeepsTheFormOpen)
{
    document.error = RuntimeError(RuntimeError::Overflow);
    const ItemEditorForm &form = add(GetParam());
    messages.expectShow(RuntimeError(RuntimeError::Overflow).message(), Messages::Icon::Critical);
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
}

INSTANTIATE_TEST_SUITE_P(Kinds, EitherPolicyEditor, testing::Values(ItemKind::AccountPolicy, ItemKind::AuditPolicy),
                         [](const auto &tested) {
                             return tested.param == ItemKind::AccountPolicy ? "Account" : "Audit";
                         });

// Account policy

using ConfigDialogPolicyTest = Editors;

TEST_F(ConfigDialogPolicyTest, HasItsTexts)
{
    const ItemEditorForm &form = add(ItemKind::AccountPolicy);
    EXPECT_EQ(form.windowTitle(), "Account Policy");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "Policies");
    EXPECT_EQ(control<QCheckBox>(form, "flag_c")->text(), "All policies except \"user must log in\"");
    // "nust": so it has always stood there.
    EXPECT_EQ(control<QCheckBox>(form, "flag_p")->text(), "User nust log in to change password");
}

TEST_F(ConfigDialogPolicyTest, BothBoxesAndAnEventAreWrittenAndReadBack)
{
    const ItemEditorForm &form = add(ItemKind::AccountPolicy);
    pressAll(form, {"flag_p", "flag_c", "flag_EVT"});
    enter(form, "val_EVT", "12");
    press(form, "OKButton");
    ASSERT_EQ(document.rows, QStringList{"ACCOUNTPOLICY cp,EVT12"});
    const ItemEditorForm &again = edit(ItemKind::AccountPolicy, 0);
    EXPECT_EQ(checkedBoxes(again), (QStringList{"c", "p", "EVT"}));
    EXPECT_EQ(textOf(again, "val_EVT"), "12");
    EXPECT_EQ(textOf(again, "OtherFlags"), "");
}

TEST_F(ConfigDialogPolicyTest, ALetterTypedIntoOtherFlagsIsReadBackAsItsBox)
{
    for (const char *letter : {"c", "p"}) {
        document.rows.clear();
        const ItemEditorForm &form = add(ItemKind::AccountPolicy);
        enter(form, "OtherFlags", QString("x") + letter);
        press(form, "OKButton");
        ASSERT_EQ(document.rows, QStringList{QString("ACCOUNTPOLICY x") + letter});
        ItemEditorForm &again = edit(ItemKind::AccountPolicy, 0);
        EXPECT_EQ(checkedBoxes(again), QStringList{letter});
        EXPECT_EQ(textOf(again, "OtherFlags"), "x");
        again.close();
    }
}

TEST_F(ConfigDialogPolicyTest, TakesLettersBeforeTheEvent)
{
    // Without the "c" in it, the event is whole. The other editors look for it first and do not find it.
    const ItemEditorForm &form = editLine(ItemKind::AccountPolicy, "ACCOUNTPOLICY EVcT12");
    EXPECT_EQ(checkedBoxes(form), (QStringList{"c", "EVT"}));
    EXPECT_EQ(textOf(form, "val_EVT"), "12");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
}

TEST_F(ConfigDialogPolicyTest, ALetterInCapitalsIsNone)
{
    const ItemEditorForm &form = editLine(ItemKind::AccountPolicy, "ACCOUNTPOLICY CP");
    EXPECT_EQ(checkedBoxes(form), QStringList());
    EXPECT_EQ(textOf(form, "OtherFlags"), "CP");
}

// Audit policy

using ConfigDialogAuditTest = Editors;

TEST_F(ConfigDialogAuditTest, HasItsTextsAndNoLetters)
{
    const ItemEditorForm &form = add(ItemKind::AuditPolicy);
    EXPECT_EQ(form.windowTitle(), "Audit Policy");
    EXPECT_EQ(form.findChildren<QCheckBox *>().size(), 1);
}

TEST_F(ConfigDialogAuditTest, NothingCheckedGivesTheBareWord)
{
    press(add(ItemKind::AuditPolicy), "OKButton");
    EXPECT_EQ(document.rows, QStringList{"AUDITPOLICY"});
}

TEST_F(ConfigDialogAuditTest, LettersAreOtherFlags)
{
    const ItemEditorForm &form = editLine(ItemKind::AuditPolicy, "AUDITPOLICY cp,EVT5");
    EXPECT_EQ(textOf(form, "val_EVT"), "5");
    EXPECT_EQ(textOf(form, "OtherFlags"), "cp");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"AUDITPOLICY EVT5,cp"});
}

} // namespace

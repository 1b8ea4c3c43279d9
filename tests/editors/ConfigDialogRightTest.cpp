#include "editors/UserRights.h"
#include "tests/editors/EditorFixture.h"
#include "tests/support/FormStructure.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTreeWidget>

namespace {

class ConfigDialogRightTest : public Editors
{
protected:
    ItemEditorForm &editLine(const QString &line) { return Editors::editLine(ItemKind::UserRight, line); }

    static QTreeWidget &list(const QWidget &form) { return *control<QTreeWidget>(form, "RightsList"); }

    /// The numbers of the rows that are ticked, counted from 1.
    static QList<int> tickedRows(const QWidget &form)
    {
        QList<int> rows;
        for (int row = 0; row < list(form).topLevelItemCount(); ++row) {
            if (list(form).topLevelItem(row)->checkState(0) == Qt::Checked)
                rows << row + 1;
        }
        return rows;
    }

    /// Clicks the box of a row, counted from 1.
    static void tick(const QWidget &form, int row)
    {
        QTreeWidget &rights = list(form);
        ASSERT_TRUE(rights.isEnabled());
        QTreeWidgetItem *item = rights.topLevelItem(row - 1);
        rights.scrollToItem(item);
        QStyleOptionViewItem option;
        option.initFrom(&rights);
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        option.rect = rights.visualItemRect(item);
        const QRect box = rights.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &rights);
        const Qt::CheckState before = item->checkState(0);
        QTest::mouseClick(rights.viewport(), Qt::LeftButton, {}, box.center());
        EXPECT_NE(item->checkState(0), before) << "the box of row " << row << " was missed";
    }

    static bool isListEnabled(const QWidget &form)
    {
        const bool isEnabled = list(form).isEnabled();
        EXPECT_EQ(control<QWidget>(form, "ObjectName")->isEnabled(), isEnabled);
        return isEnabled;
    }
};

TEST_F(ConfigDialogRightTest, HasItsTexts)
{
    const auto &untouched = dynamic_cast<ItemEditorForm &>(editors.newEditor(ItemKind::UserRight));
    EXPECT_EQ(control<QAbstractButton>(untouched, "OKButton")->text(), "&Apply");
    const ItemEditorForm &form = add(ItemKind::UserRight);
    EXPECT_EQ(form.windowTitle(), "User Rights");
    EXPECT_EQ(control<QCheckBox>(form, "AllRights")->text(), "Monitor all rights");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "Rights to monitor");
    EXPECT_EQ(control<QLabel>(form, "Label1")->buddy(), &list(form));
    EXPECT_EQ(control<QLabel>(form, "Label2")->text(), "Other rights (wildcards accepted)");
    EXPECT_EQ(control<QLabel>(form, "Label2")->buddy(), control<QWidget>(form, "ObjectName"));
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "Properties to monitor");
    EXPECT_EQ(control<QCheckBox>(form, "flag_c")->text(), "Contents");
    EXPECT_EQ(control<QAbstractButton>(form, "CancelButton")->text(), "Cancel");
    EXPECT_EQ(list(form).headerItem()->text(0), "Right");
    EXPECT_EQ(list(form).headerItem()->text(1), "Description");
    // There are no events here, and no prefix.
    for (const char *name : {"flag_EVT", "val_EVT", "Prefix", "ButtonPrefixQuery"})
        EXPECT_EQ(form.findChild<QWidget *>(name), nullptr) << name;
}

TEST_F(ConfigDialogRightTest, ListsTheRightsInTheirOrder)
{
    const ItemEditorForm &form = add(ItemKind::UserRight);
    const QAbstractItemModelTester tester(list(form).model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(list(form).topLevelItemCount(), 27);
    for (int row = 0; row < 27; ++row) {
        EXPECT_EQ(list(form).topLevelItem(row)->text(0), userRights[size_t(row)].name);
        EXPECT_EQ(list(form).topLevelItem(row)->text(1), userRights[size_t(row)].description);
    }
    // A click on the header must not sort.
    EXPECT_FALSE(list(form).isSortingEnabled());
}

TEST_F(ConfigDialogRightTest, IsWideEnoughForItsTextsAtFirst)
{
    const ItemEditorForm &form = editLine("USERRIGHT:SeFoo c");
    const QTreeWidget &rights = list(form);
    EXPECT_FALSE(rights.horizontalScrollBar()->isVisible());
    EXPECT_TRUE(rights.verticalScrollBar()->isVisible());
    for (int column = 0; column < 2; ++column) {
        for (int row = 0; row < 27; ++row) {
            const QModelIndex index = rights.model()->index(row, column);
            EXPECT_LE(rights.itemDelegate()->sizeHint({}, index).width(), rights.columnWidth(column))
                << rights.topLevelItem(row)->text(column).toStdString();
        }
        EXPECT_GE(rights.columnWidth(column), rights.header()->sectionSizeHint(column));
    }
    EXPECT_LE(rights.columnWidth(0) + rights.columnWidth(1), rights.viewport()->width());
    // And however small it is made.
    EXPECT_GE(rights.minimumSizeHint().width(), rights.sizeHint().width());
}

TEST_F(ConfigDialogRightTest, ALargerFormHasALargerList)
{
    ItemEditorForm &form = editLine("USERRIGHT:SeFoo c");
    const int listHeight = list(form).height();
    const int formHeight = form.height();
    form.resize(form.width(), formHeight + 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list(form).height() == listHeight + 200; })) << list(form).height();
}

TEST_F(ConfigDialogRightTest, StartsWithAllRights)
{
    const ItemEditorForm &form = add(ItemKind::UserRight);
    EXPECT_TRUE(isChecked(form, "AllRights"));
    EXPECT_FALSE(isListEnabled(form));
    EXPECT_EQ(tickedRows(form), QList<int>());
    EXPECT_EQ(textOf(form, "ObjectName"), "");
    // No flag is required.
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:*"});
}

TEST_F(ConfigDialogRightTest, AllRightsDisablesTheListAndTheOthers)
{
    const ItemEditorForm &form = add(ItemKind::UserRight);
    press(form, "AllRights");
    EXPECT_TRUE(isListEnabled(form));
    press(form, "AllRights");
    EXPECT_FALSE(isListEnabled(form));
}

TEST_F(ConfigDialogRightTest, WritesTickedRightsInTheirOrderAndTypedOnesWithoutTheBlanksAroundThem)
{
    const ItemEditorForm &form = add(ItemKind::UserRight);
    press(form, "AllRights");
    tick(form, 9);
    tick(form, 2);
    enter(form, "ObjectName", "  SeFoo  ");
    press(form, "flag_c");
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeNetworkLogonRight,SeMachineAccountPrivilege,SeFoo c"});
}

TEST_F(ConfigDialogRightTest, AnUntickedRightIsNotWritten)
{
    const ItemEditorForm &form = editLine("USERRIGHT:SeTcbPrivilege,SeDebugPrivilege c");
    tick(form, 10);
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeDebugPrivilege c"});
}

TEST_F(ConfigDialogRightTest, AnEmptyListIsWrittenAndReadBackAsAllRights)
{
    ItemEditorForm &form = add(ItemKind::UserRight);
    press(form, "AllRights");
    press(form, "OKButton");
    ASSERT_EQ(document.rows, QStringList{"USERRIGHT:"});
    form.close();
    const ItemEditorForm &again = edit(ItemKind::UserRight, 0);
    EXPECT_TRUE(isChecked(again, "AllRights"));
    EXPECT_FALSE(isListEnabled(again));
    press(again, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:*"});
}

TEST_F(ConfigDialogRightTest, FindsARightInAnyCaseAndWritesItAsTheTableSpellsIt)
{
    const ItemEditorForm &form = editLine("USERRIGHT:seshutdownprivilege c");
    EXPECT_FALSE(isChecked(form, "AllRights"));
    EXPECT_EQ(tickedRows(form), QList<int>{22});
    EXPECT_EQ(textOf(form, "ObjectName"), "");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeShutdownPrivilege c"});
}

TEST_F(ConfigDialogRightTest, BlanksInTypedNamesAreLostOnReadingBack)
{
    ItemEditorForm &form = add(ItemKind::UserRight);
    press(form, "AllRights");
    enter(form, "ObjectName", "Se Foo, SeBar");
    press(form, "OKButton");
    ASSERT_EQ(document.rows, QStringList{"\"USERRIGHT:Se Foo, SeBar\""});
    form.close();
    const ItemEditorForm &again = edit(ItemKind::UserRight, 0);
    EXPECT_EQ(textOf(again, "ObjectName"), "SeFoo,SeBar");
    press(again, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeFoo,SeBar"});
}

TEST_F(ConfigDialogRightTest, NothingBehindTheTagIsAllRights)
{
    for (const char *line : {"USERRIGHT:", "USERRIGHT: c", "USERRIGHT:* c", "\"USERRIGHT:  \" c"}) {
        const ItemEditorForm &form = editLine(line);
        EXPECT_TRUE(isChecked(form, "AllRights")) << line;
        press(form, "CancelButton");
    }
}

TEST_F(ConfigDialogRightTest, APrefixIsNotKept)
{
    const ItemEditorForm &form = editLine("!USERRIGHT:SeFoo c,x");
    EXPECT_TRUE(isChecked(form, "flag_c"));
    EXPECT_EQ(textOf(form, "OtherFlags"), "x");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeFoo c,x"});
}

TEST_F(ConfigDialogRightTest, AnotherLineReplacesTicksAndNames)
{
    document.rows = QStringList{"USERRIGHT:SeTcbPrivilege,SeFoo", "USERRIGHT:SeDebugPrivilege"};
    (void)edit(ItemKind::UserRight, 0);
    const ItemEditorForm &form = edit(ItemKind::UserRight, 1);
    EXPECT_EQ(tickedRows(form), QList<int>{23});
    EXPECT_EQ(textOf(form, "ObjectName"), "");
}

TEST_F(ConfigDialogRightTest, ALineOfAllRightsLeavesTheListAsItWas)
{
    document.rows = QStringList{"USERRIGHT:SeTcbPrivilege,SeFoo c", "USERRIGHT:*"};
    (void)edit(ItemKind::UserRight, 0);
    const ItemEditorForm &form = edit(ItemKind::UserRight, 1);
    EXPECT_TRUE(isChecked(form, "AllRights"));
    EXPECT_EQ(tickedRows(form), QList<int>{10});
    EXPECT_EQ(textOf(form, "ObjectName"), "SeFoo");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[1], "USERRIGHT:*");
}

TEST_F(ConfigDialogRightTest, ALineOfSingleRightsIsNotTakenForAllAfterOneThatIs)
{
    // Otherwise confirming it without a change would make it one of all rights.
    document.rows = QStringList{"USERRIGHT:*", "USERRIGHT:SeTcbPrivilege"};
    (void)edit(ItemKind::UserRight, 0);
    const ItemEditorForm &form = edit(ItemKind::UserRight, 1);
    EXPECT_FALSE(isChecked(form, "AllRights"));
    EXPECT_TRUE(isListEnabled(form));
    press(form, "OKButton");
    EXPECT_EQ(document.rows[1], "USERRIGHT:SeTcbPrivilege");
}

TEST_F(ConfigDialogRightTest, CancelChangesNothing)
{
    const QPointer<ItemEditorForm> form = &editLine("USERRIGHT:SeTcbPrivilege");
    tick(*form, 1);
    press(*form, "CancelButton");
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeTcbPrivilege"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
}

TEST_F(ConfigDialogRightTest, PastedLineBreaksBecomeBlanks)
{
    const ItemEditorForm &form = add(ItemKind::UserRight);
    press(form, "AllRights");
    enter(form, "ObjectName", "\nSeFoo,\r\nSeBar\n");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"\"USERRIGHT:SeFoo,  SeBar\""});
}

TEST_F(ConfigDialogRightTest, IsUsedWithTheKeyboardAlone)
{
    ItemEditorForm &form = add(ItemKind::UserRight);
    key(form, Qt::Key_Space);
    EXPECT_FALSE(isChecked(form, "AllRights"));
    expectReachableByTab(form, tabRound(form));
    key(form, Qt::Key_Tab);
    key(form, Qt::Key_Space);
    key(form, Qt::Key_End);
    key(form, Qt::Key_Space);
    EXPECT_EQ(tickedRows(form), (QList<int>{1, 27}));
    key(form, Qt::Key_Up);
    key(form, Qt::Key_Space);
    key(form, Qt::Key_Space);
    key(form, Qt::Key_Return);
    EXPECT_EQ(document.rows, QStringList{"USERRIGHT:SeInteractiveLogonRight,SeRemoteShutdownPrivilege"});
    key(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

} // namespace

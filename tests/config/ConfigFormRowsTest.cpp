#include "platform/RuntimeError.h"
#include "tests/config/DocumentFixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTest>

namespace {

/// The document's commands on its rows, by clicks and keys.
class DocumentRows : public Document
{
protected:
    [[nodiscard]] static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    static void setClipboard(const QString &text) { QGuiApplication::clipboard()->setText(text); }

    [[nodiscard]] bool isUndoEnabled() const { return shell.enabledMenus.value("mnuEditUndo"); }

    void expectCannotUndo() { messages.expectShow("Cannot undo"); }
};

// Removing

TEST_F(DocumentRows, RemoveWithoutACurrentRowShowsNoItemSelected)
{
    open({"a"});
    messages.expectShow("No item selected", Messages::Icon::None, "Error");
    press(*form, "RemoveButton");
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, TheDeleteKeyRemovesTheSelectedRows)
{
    open({"0", "1", "2", "3", "4", "5", "6", "7"});
    select({2, 5, 6});
    key(list(), Qt::Key_Delete);
    EXPECT_EQ(rows(), (QStringList{"0", "1", "3", "4", "7"}));
    EXPECT_EQ(form->changed(), -1);
    EXPECT_EQ(list().listIndex(), 4);
    EXPECT_EQ(selected(), QList<int>{4});
    EXPECT_EQ(shell.status, "Line 5/5");
}

TEST_F(DocumentRows, TheDeleteKeyWithAModifierRemovesNothing)
{
    open({"a"});
    select({0});
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        key(list(), Qt::Key_Delete, modifier);
    EXPECT_EQ(rows(), QStringList{"a"});
}

TEST_F(DocumentRows, TheRemoveButtonRemovesUntilNothingIsLeft)
{
    open({"a", "b"});
    select({0});
    press(*form, "RemoveButton");
    press(*form, "RemoveButton");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(list().listIndex(), -1);
    messages.expectShow("No item selected", Messages::Icon::None, "Error");
    press(*form, "RemoveButton");
}

/// Without this the status line keeps a row of a document that has none, and a count from the middle of the removal.
TEST_F(DocumentRows, TheStatusLineTellsOfNoRowThatIsGone)
{
    open({"a", "b", "c"});
    select({1});
    ASSERT_EQ(shell.status, "Line 2/3");
    list().selectAll();
    key(list(), Qt::Key_Delete);
    EXPECT_EQ(shell.status, "");
    form->mnuEditUndo_Click();
    EXPECT_EQ(list().listIndex(), -1);
    EXPECT_EQ(shell.status, "");
    select({2});
    EXPECT_EQ(shell.status, "Line 3/3");
}

/// What a load has left in the status line is not a row's.
TEST_F(DocumentRows, AChangeWithoutACurrentRowLeavesTheStatusLineAlone)
{
    open({"a", "b"});
    shell.setStatusText("Line100");
    form->ItemAddFile("C:\\x", {}, "R");
    EXPECT_EQ(shell.status, "Line100");
}

TEST_F(DocumentRows, ACurrentRowThatIsNotSelectedIsNotRemoved)
{
    open({"a"});
    select({0});
    clickRow(list(), 0, Qt::ControlModifier);
    key(list(), Qt::Key_Delete);
    EXPECT_EQ(rows(), QStringList{"a"});
    EXPECT_EQ(form->changed(), 0);
}

// Moving

TEST_F(DocumentRows, MoveUpAndDownTakeTheSelectedRowsAlong)
{
    open({"a", "b", "c", "d"});
    select({1, 3});
    press(*form, "MoveUpButton");
    EXPECT_EQ(rows(), (QStringList{"b", "a", "d", "c"}));
    EXPECT_EQ(selected(), (QList<int>{0, 2}));
    EXPECT_EQ(list().listIndex(), 2);
    EXPECT_EQ(shell.status, "Line 3/4");
    press(*form, "MoveDownButton");
    EXPECT_EQ(rows(), (QStringList{"a", "b", "c", "d"}));
    EXPECT_EQ(selected(), (QList<int>{1, 3}));
    EXPECT_EQ(form->changed(), -1);
}

TEST_F(DocumentRows, TheFirstRowAmongTheSelectedRefusesTheWholeMoveUp)
{
    open({"a", "b", "c"});
    select({0, 2});
    messages.expectShow("Cannot shift up first row.");
    press(*form, "MoveUpButton");
    EXPECT_EQ(rows(), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, TheLastRowAmongTheSelectedRefusesTheWholeMoveDown)
{
    open({"a", "b", "c"});
    select({0, 2});
    messages.expectShow("Cannot shift down last row.");
    press(*form, "MoveDownButton");
    EXPECT_EQ(rows(), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, WithNothingSelectedNothingMoves)
{
    open({"a", "b"});
    press(*form, "MoveUpButton");
    press(*form, "MoveDownButton");
    EXPECT_EQ(form->changed(), 0);
}

// Comments

TEST_F(DocumentRows, TheCommentToggleChangesEverySelectedRowAndKeepsTheSelection)
{
    open({"a", " ;b", "c"});
    select({0, 1});
    form->mnuItemTextComment_Click();
    EXPECT_EQ(rows(), (QStringList{";a", " b", "c"}));
    EXPECT_EQ(selected(), (QList<int>{0, 1}));
    EXPECT_EQ(form->changed(), -1);
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"a", " ;b", "c"}));
}

TEST_F(DocumentRows, TheCommentToggleWithNothingSelectedChangesNothing)
{
    open({"a"});
    form->mnuItemTextComment_Click();
    EXPECT_EQ(form->changed(), 0);
}

// Undo

TEST_F(DocumentRows, UndoOnAFreshDocumentShowsCannotUndo)
{
    open({"a"});
    EXPECT_TRUE(isUndoEnabled());
    expectCannotUndo();
    form->mnuEditUndo_Click();
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, UndoingAnAddedLineRemovesExactlyThatRowAndASecondUndoShowsCannotUndo)
{
    open({"a", "b"});
    select({1});
    form->ItemAddFile("x", "", "");
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"a", "b"}));
    EXPECT_EQ(list().listIndex(), 1);
    expectCannotUndo();
    form->mnuEditUndo_Click();
}

TEST_F(DocumentRows, RemovingThreeRowsAndUndoingBringsThemBackInOneStep)
{
    open({"0", "1", "2", "3", "4", "5", "6"});
    select({2, 5, 6});
    key(list(), Qt::Key_Delete);
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_FALSE(isUndoEnabled());
}

TEST_F(DocumentRows, AfterTheLastStepIsUndoneTheEntryIsDisabledUntilTheNextChange)
{
    open({"a"});
    form->ItemAddFile("x", "", "");
    form->ItemAddFile("y", "", "");
    form->mnuEditUndo_Click();
    EXPECT_TRUE(isUndoEnabled());
    form->mnuEditUndo_Click();
    EXPECT_FALSE(isUndoEnabled());
    form->ItemAddFile("z", "", "");
    EXPECT_TRUE(isUndoEnabled());
}

TEST_F(DocumentRows, TheUndoEntryIsTheActiveDocuments)
{
    open({"a"});
    form->ItemAddFile("x", "", "");
    form->mnuEditUndo_Click();
    ConfigForm other({files, messages, shell, editors, preferences});
    form->deactivateDocument();
    other.activateDocument();
    EXPECT_TRUE(isUndoEnabled());
    other.deactivateDocument();
    form->activateDocument();
    EXPECT_FALSE(isUndoEnabled());
    other.setAttribute(Qt::WA_DeleteOnClose, false);
}

TEST_F(DocumentRows, UndoMarksTheDocumentChanged)
{
    open({"a"});
    form->ItemAddFile("x", "", "");
    form->Form_Save_Data();
    EXPECT_EQ(form->changed(), 0);
    form->mnuEditUndo_Click();
    EXPECT_EQ(form->changed(), -1);
}

TEST_F(DocumentRows, ALoadForgetsWhatCouldBeUndone)
{
    open({"a", "b"});
    form->ItemChangeFile("x", "", "", 1);
    form->Reload();
    expectCannotUndo();
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"a", "b"}));
}

// Many rows

TEST_F(DocumentRows, EveryRowOfAFullDocumentIsRemovedUndoneAndCommented)
{
    load(numberedLines(32767));
    form->activateDocument();
    showActive(*form);
    const QStringList all = rows();
    select({0});
    list().selectAll();
    form->mnuItemTextComment_Click();
    EXPECT_EQ(rows().last(), ";line 32767");
    EXPECT_EQ(selected().size(), 32767);
    form->Remove_Other();
    EXPECT_EQ(rows().size(), 0);
    form->mnuEditUndo_Click();
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), all);
}

TEST_F(DocumentRows, ManyChangesLeaveTheListWhereItWasScrolledTo)
{
    load(numberedLines(1000));
    form->activateDocument();
    showActive(*form);
    clickRow(list(), 500);
    list().selectionModel()->select(QItemSelection(list().model()->index(500, 0), list().model()->index(700, 0)),
                                    QItemSelectionModel::ClearAndSelect);
    QCoreApplication::processEvents();
    const int before = list().verticalScrollBar()->value();
    ASSERT_GT(before, 100);
    form->mnuItemTextComment_Click();
    QCoreApplication::processEvents();
    EXPECT_EQ(list().verticalScrollBar()->value(), before);
    EXPECT_EQ(list().listIndex(), 500);
}

// The clipboard

TEST_F(DocumentRows, CopyingRows2And4PutsThemOnTheClipboardWithoutALineBreakAtTheEnd)
{
    open({"1", "2", "3", "4"});
    setClipboard("old");
    select({1, 3});
    EXPECT_EQ(form->GetSelection(), "2\r\n4");
    form->mnuEditCopy_Click();
    EXPECT_EQ(clipboard(), "2\r\n4");
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, CopyWithNothingSelectedLeavesTheClipboardAlone)
{
    open({"1"});
    setClipboard("old");
    EXPECT_EQ(form->GetSelection(), "");
    form->mnuEditCopy_Click();
    EXPECT_EQ(clipboard(), "old");
}

TEST_F(DocumentRows, CutFollowedByUndoBringsTheRowsBack)
{
    open({"1", "2", "3", "4"});
    select({1, 3});
    form->mnuEditCut_Click();
    EXPECT_EQ(clipboard(), "2\r\n4");
    EXPECT_EQ(rows(), (QStringList{"1", "3"}));
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"1", "2", "3", "4"}));
}

TEST_F(DocumentRows, PastedTextGivesOneRowPerLineAboveTheCurrentRow)
{
    open({"a", "b"});
    select({1});
    setClipboard("1\r\n2\r\n");
    form->mnuEditPaste_Click();
    EXPECT_EQ(rows(), (QStringList{"a", "1", "2", "", "b"}));
    EXPECT_EQ(list().listIndex(), 4);
    EXPECT_EQ(form->changed(), -1);
    EXPECT_EQ(shell.status, "Line 5/5");
}

TEST_F(DocumentRows, APasteWithNoRowCurrentAppends)
{
    open({"a"});
    setClipboard("1\r\n2");
    form->mnuEditPaste_Click();
    EXPECT_EQ(rows(), (QStringList{"a", "1", "2"}));
}

TEST_F(DocumentRows, APasteIsNotUndoneButWhatCameBeforeIsWhereItsRowStillIs)
{
    open({"a", "b"});
    select({1});
    form->ItemChangeFile("changed", "", "", 1);
    setClipboard("pasted");
    form->mnuEditPaste_Click();
    EXPECT_EQ(rows(), (QStringList{"a", "pasted", "changed"}));
    // The record addresses row 1, where the pasted line is now.
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"a", "b", "changed"}));
    expectCannotUndo();
    form->mnuEditUndo_Click();
}

TEST_F(DocumentRows, APasteThatDoesNotFitIsRefusedWhole)
{
    load(numberedLines(32766));
    setClipboard("1\r\n2");
    EXPECT_THROW(form->mnuEditPaste_Click(), RuntimeError);
    EXPECT_EQ(form->rowList().rowCount(), 32766);
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, PastingAnEmptyClipboardChangesNothing)
{
    open({"a"});
    QGuiApplication::clipboard()->clear();
    form->mnuEditPaste_Click();
    EXPECT_EQ(rows(), QStringList{"a"});
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentRows, BytesThatAreNotUtf8SurviveCopyAndPaste)
{
    load("caf\xE9\r\nb\r\n");
    form->activateDocument();
    showActive(*form);
    select({0});
    form->mnuEditCopy_Click();
    EXPECT_EQ(clipboard(), "caf\u00E9");
    select({1});
    form->mnuEditPaste_Click();
    form->Form_Save_Data();
    EXPECT_EQ(files.content[documentPath], "caf\xE9\r\ncaf\xE9\r\nb\r\n");
}

// The extent

TEST_F(DocumentRows, TheListCanBeScrolledToTheEndOfEveryNewRow)
{
    open({"short"});
    const QString wide(400, 'w');
    form->ItemAddFile(wide, "", "");
    EXPECT_EQ(list().horizontalExtent(), extentOf(wide));
    form->mnuEditUndo_Click();
    EXPECT_EQ(list().horizontalExtent(), extentOf("short"));
    setClipboard(wide);
    form->mnuEditPaste_Click();
    EXPECT_EQ(list().horizontalExtent(), extentOf(wide));
}

TEST_F(DocumentRows, WhatIsAppendedIsSeen)
{
    load(numberedLines(1000));
    form->activateDocument();
    showActive(*form);
    const auto isLastRowSeen = [this] {
        QCoreApplication::processEvents();
        return list().viewport()->rect().contains(list().visualRect(list().model()->index(int(rows().size()) - 1, 0)));
    };
    ASSERT_FALSE(isLastRowSeen());
    form->ItemAddFile("added", "", "");
    EXPECT_TRUE(isLastRowSeen());
    list().scrollToTop();
    setClipboard("1\r\n2\r\n3");
    form->mnuEditPaste_Click();
    EXPECT_TRUE(isLastRowSeen());
    // In front of a current row nothing is appended, and the list stays with that row.
    clickRow(list(), 0);
    form->ItemAddFile("first", "", "");
    EXPECT_FALSE(isLastRowSeen());
}

// The menu on the list

TEST_F(DocumentRows, TheMenuKeyAsksForTheMenuAtTheCurrentRow)
{
    open({"a", "b", "c"});
    select({1});
    const QRect row = list().visualRect(list().currentIndex());
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(list().viewport(), &event);
    ASSERT_EQ(shell.itemMenus.size(), 1);
    EXPECT_EQ(shell.itemMenus.first(),
              list().viewport()->mapToGlobal(row.intersected(list().viewport()->rect()).bottomLeft()));
}

TEST_F(DocumentRows, TheRightButtonSelectsTheRowAndAsksForTheMenu)
{
    open({"a", "b", "c"});
    select({0});
    const QPoint place = list().visualRect(list().model()->index(2, 0)).center();
    QTest::mouseClick(list().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list().viewport(), &event);
    EXPECT_EQ(selected(), QList<int>{2});
    ASSERT_EQ(shell.itemMenus.size(), 1);
    EXPECT_EQ(shell.itemMenus.first(), list().viewport()->mapToGlobal(place));
}

} // namespace

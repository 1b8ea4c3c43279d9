#include "app/frmMain.h"

#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"

#include <QAction>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <QWindow>

namespace {

const Messages::Icon exclamation = Messages::Icon::Exclamation;
const Messages::Icon critical = Messages::Icon::Critical;

class MainWindow : public Program
{
protected:
    MainWindow()
    {
        fakeFiles.content["/a.zcf"] = "a1\r\na2\r\na3\r\n";
        fakeFiles.content["/b.zcf"] = "b1\r\nb2\r\n";
        fakeFiles.content["/c.zcf"] = "c1\r\n";
    }
};

// Captions and the counter

TEST_F(MainWindow, TwoNewDocumentsAFileAndANewOneAreNumbered1And2And4)
{
    start();
    trigger(*window, "mnuFileNew");
    trigger(*window, "mnuFileNew");
    window->Load("/a.zcf");
    trigger(*window, "mnuFileNew");
    EXPECT_EQ(captions(), (QStringList{"Document 1", "Document 2", "/a.zcf", "Document 4"}));
    EXPECT_EQ(activeCaption(), "Document 4");
}

TEST_F(MainWindow, AClosedDocumentsNumberIsNotUsedAgain)
{
    start();
    trigger(*window, "mnuFileNew");
    trigger(*window, "mnuFileClose");
    trigger(*window, "mnuFileNew");
    EXPECT_EQ(captions(), QStringList{"Document 2"});
}

TEST_F(MainWindow, ANewDocumentIsEmptyUnchangedAndActive)
{
    start();
    trigger(*window, "mnuFileNew");
    EXPECT_EQ(document(0).rowList().rowCount(), 0);
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_EQ(document(0).file().path(), QString());
    EXPECT_EQ(window->activeDocument(), &document(0));
    EXPECT_TRUE(document(0).isVisible());
}

TEST_F(MainWindow, LoadShowsTheFilesRowsUnderItsPath)
{
    start({"/a.zcf"});
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
    EXPECT_EQ(document(0).rowList().rows(), (QStringList{"a1", "a2", "a3"}));
    EXPECT_EQ(document(0).file().path(), "/a.zcf");
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_TRUE(document(0).isVisible());
}

TEST_F(MainWindow, FilesOfTheCommandLineOpenInOrderAndTheLastIsActive)
{
    start({"/a.zcf", "/b.zcf", "/c.zcf"});
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf", "/c.zcf"}));
    EXPECT_EQ(activeCaption(), "/c.zcf");
    EXPECT_EQ(window->findChild<QMdiArea *>()->activeSubWindow()->widget(), window->activeDocument());
}

TEST_F(MainWindow, AMissingFileIsReportedAndMakesNoDocument)
{
    messages.expectShow("File /missing.zcf not found", exclamation);
    start({"/missing.zcf"});
    EXPECT_TRUE(captions().isEmpty());
    EXPECT_FALSE(isMenuVisible("mnuItem"));
    // The counter has not moved.
    trigger(*window, "mnuFileNew");
    EXPECT_EQ(captions(), QStringList{"Document 1"});
}

TEST_F(MainWindow, EachPieceOfAnUnquotedPathIsReported)
{
    messages.expectShow("File C:\\My not found", exclamation);
    messages.expectShow("File Configs\\a.zcf not found", exclamation);
    start({"C:\\My", "Configs\\a.zcf"});
    EXPECT_TRUE(captions().isEmpty());
}

TEST_F(MainWindow, AfterAMissingFileTheNextOnesOpen)
{
    messages.expectShow("File /missing.zcf not found", exclamation);
    start({"/a.zcf", "/missing.zcf", "/b.zcf"});
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
}

TEST_F(MainWindow, ThePathOfAMissingFileIsShownAsItIs)
{
    messages.expectShow("File %1 %2 <b>&x not found", exclamation);
    start({"%1 %2 <b>&x"});
}

TEST_F(MainWindow, OneFileMayBeOpenedTwice)
{
    start({"/a.zcf", "/a.zcf"});
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/a.zcf"}));
}

TEST_F(MainWindow, AFailedLoadLeavesNoWindowBehindAndTheOtherDocumentActive)
{
    start({"/a.zcf"});
    clickRow(list(document(0)), 1);
    fakeFiles.readError = RuntimeError(RuntimeError::PermissionDenied, "/b.zcf");
    messages.expectShow("Run-time error '70':\n\nPermission denied\n\n/b.zcf", critical);
    window->LoadAll({"/b.zcf"});
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
    EXPECT_EQ(window->findChildren<QMdiSubWindow *>().size(), 1);
    EXPECT_EQ(activeCaption(), "/a.zcf");
    EXPECT_EQ(status(), "Line 2/3");
    EXPECT_TRUE(isMenuVisible("mnuItem"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, AFailedLoadLeavesTheDocumentActiveThatWasNotTheNewest)
{
    start({"/a.zcf", "/b.zcf", "/c.zcf"});
    activate(document(0));
    fakeFiles.readError = RuntimeError(RuntimeError::PermissionDenied, "/b.zcf");
    messages.expectShow("Run-time error '70':\n\nPermission denied\n\n/b.zcf", critical);
    window->LoadAll({"/b.zcf"});
    settle();
    EXPECT_EQ(activeCaption(), "/a.zcf");
    EXPECT_EQ(window->findChild<QMdiArea *>()->activeSubWindow()->widget(), &document(0));
}

TEST_F(MainWindow, AFailedLoadUsesUpANumber)
{
    fakeFiles.readError = RuntimeError(RuntimeError::DeviceError, "/a.zcf");
    messages.expectShow("Run-time error '57':\n\nDevice I/O error\n\n/a.zcf", critical);
    start({"/a.zcf"});
    EXPECT_EQ(window->activeDocument(), nullptr);
    EXPECT_FALSE(isMenuVisible("mnuItem"));
    trigger(*window, "mnuFileNew");
    EXPECT_EQ(captions(), QStringList{"Document 2"});
}

TEST_F(MainWindow, ShowsTheCaptionOfAMaximisedDocumentAsItIs)
{
    fakeFiles.content["/x[*]y &z.zcf"] = "a\r\n";
    start({"/x[*]y &z.zcf"});
    EXPECT_EQ(activeCaption(), "/x[*]y &z.zcf");
    EXPECT_TRUE(window->windowHandle()->title().contains("/x[*]y &z.zcf"))
        << window->windowHandle()->title().toStdString();
}

// Drag and drop

TEST_F(MainWindow, DroppedFilesOpenInOrder)
{
    start();
    EXPECT_EQ(drop({"/b.zcf", "/a.zcf"}), Qt::CopyAction);
    EXPECT_EQ(captions(), (QStringList{"/b.zcf", "/a.zcf"}));
    EXPECT_EQ(activeCaption(), "/a.zcf");
}

TEST_F(MainWindow, FilesMayBeDroppedOntoADocumentsList)
{
    start({"/a.zcf"});
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/b.zcf")});
    EXPECT_EQ(drop(data, *list(document(0)).viewport()), Qt::CopyAction);
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
}

TEST_F(MainWindow, ADroppedFileIsNotLookedForFirst)
{
    start();
    // Not the not-found message of the Open command but what reading says.
    messages.expectShow("Run-time error '53':\n\nFile not found\n\n/missing.zcf", critical);
    EXPECT_EQ(drop({"/a.zcf", "/missing.zcf", "/b.zcf"}), Qt::CopyAction);
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
}

TEST_F(MainWindow, WhatIsNoLocalFileIsNotTaken)
{
    start();
    QMimeData text;
    text.setText("/a.zcf");
    EXPECT_EQ(drop(text, *window->centralWidget()), Qt::IgnoreAction);
    QMimeData remote;
    remote.setUrls({QUrl("https://example.com/a.zcf")});
    EXPECT_EQ(drop(remote, *window->centralWidget()), Qt::IgnoreAction);
    EXPECT_TRUE(captions().isEmpty());
}

TEST_F(MainWindow, ADroppedFileIsNeverTakenAway)
{
    start();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/a.zcf")});
    // Where a move is proposed as well, which the other program would follow by removing the file.
    EXPECT_EQ(drop(data, *window->centralWidget(), Qt::MoveAction | Qt::CopyAction), Qt::CopyAction);
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
    EXPECT_EQ(drop(data, *window->centralWidget(), Qt::MoveAction), Qt::IgnoreAction);
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
}

TEST_F(ProgramOnFiles, ADroppedFolderIsReported)
{
    start({write("a.zcf", "a\r\n")});
    messages.expectShow("Run-time error '75':\n\nPath/File access error\n\n" + folder.path(), critical);
    EXPECT_EQ(drop({folder.path(), at("a.zcf")}), Qt::CopyAction);
    messages.verify();
    EXPECT_EQ(captions(), (QStringList{at("a.zcf"), at("a.zcf")}));
}

TEST_F(ProgramOnFiles, AFolderIsNotFoundByLoad)
{
    messages.expectShow("File " + folder.path() + " not found", exclamation);
    start({folder.path()});
    EXPECT_TRUE(captions().isEmpty());
}

// The active document: menus, buttons, status line

TEST_F(MainWindow, WithoutADocumentItsMenusAreHidden)
{
    start();
    EXPECT_FALSE(isMenuVisible("mnuItem"));
    EXPECT_FALSE(isMenuVisible("mnuEdit"));
    EXPECT_FALSE(isMenuVisible("mnuFilePrint"));
    EXPECT_TRUE(isMenuVisible("mnuFile"));
    EXPECT_TRUE(isMenuVisible("mnuWindow"));
    for (const char *button : {"Print", "Copy", "Cut", "Paste"})
        EXPECT_FALSE(control<QToolButton>(*window, button)->isEnabled()) << button;
    for (const char *button : {"New", "Open", "Save"})
        EXPECT_TRUE(control<QToolButton>(*window, button)->isEnabled()) << button;
}

TEST_F(MainWindow, MenusFollowTheDocument)
{
    start();
    trigger(*window, "mnuFileNew");
    for (const char *shown : {"mnuItem", "mnuFilePrint", "mnuEdit", "mnuEditUndo", "mnuEditBar0", "mnuEditCopy",
                              "mnuEditCut", "mnuEditPaste"})
        EXPECT_TRUE(isMenuVisible(shown)) << shown;
    EXPECT_FALSE(isMenuVisible("mnuEditPasteSpecial"));
    trigger(*window, "mnuFileClose");
    for (const char *hidden : {"mnuItem", "mnuFilePrint", "mnuEdit", "mnuEditUndo", "mnuEditBar0"})
        EXPECT_FALSE(isMenuVisible(hidden)) << hidden;
}

TEST_F(MainWindow, ButtonsFollowTheDocument)
{
    start({"/a.zcf"});
    for (const char *button : {"Print", "Copy", "Cut", "Paste"})
        EXPECT_TRUE(control<QToolButton>(*window, button)->isEnabled()) << button;
    trigger(*window, "mnuFileClose");
    for (const char *button : {"Print", "Copy", "Cut", "Paste"})
        EXPECT_FALSE(control<QToolButton>(*window, button)->isEnabled()) << button;
}

TEST_F(MainWindow, EachDocumentHasItsOwnStatusLine)
{
    start({"/a.zcf", "/b.zcf"});
    activate(document(0));
    clickRow(list(document(0)), 2);
    EXPECT_EQ(status(), "Line 3/3");
    activate(document(1));
    EXPECT_EQ(activeCaption(), "/b.zcf");
    EXPECT_EQ(status(), "");
    clickRow(list(document(1)), 0);
    EXPECT_EQ(status(), "Line 1/2");
    activate(document(0));
    EXPECT_EQ(status(), "Line 3/3");
    trigger(*window, "mnuFileClose");
    EXPECT_EQ(activeCaption(), "/b.zcf");
    EXPECT_EQ(status(), "Line 1/2");
    trigger(*window, "mnuFileClose");
    EXPECT_EQ(status(), "");
}

TEST_F(MainWindow, ADocumentStaysActiveWhileAnotherWindowOfTheProgramIsUsed)
{
    start({"/a.zcf"});
    clickRow(list(document(0)), 1);
    QLineEdit other;
    showActive(other);
    settle();
    EXPECT_EQ(activeCaption(), "/a.zcf");
    EXPECT_TRUE(isMenuVisible("mnuItem"));
    EXPECT_EQ(status(), "Line 2/3");
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(activeCaption(), "/a.zcf");
    EXPECT_EQ(status(), "Line 2/3");
}

TEST_F(MainWindow, AfterADocumentIsClosedFromAnotherWindowTheNextIsActive)
{
    start({"/a.zcf", "/b.zcf"});
    QLineEdit other;
    showActive(other);
    settle();
    trigger(*window, "mnuFileClose");
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(activeCaption(), "/a.zcf");
    EXPECT_TRUE(isMenuVisible("mnuItem"));
}

TEST_F(MainWindow, TheCloseButtonOfADocumentClosesItsWindow)
{
    start({"/a.zcf", "/b.zcf"});
    activate(document(0));
    press(document(0), "CloseButton");
    settle();
    EXPECT_EQ(captions(), QStringList{"/b.zcf"});
    EXPECT_EQ(window->findChildren<QMdiSubWindow *>().size(), 1);
    EXPECT_EQ(activeCaption(), "/b.zcf");
}

TEST_F(MainWindow, WhenADocumentClosesTheOneThatWasInFrontBeforeItComesBack)
{
    start({"/a.zcf", "/b.zcf", "/c.zcf"});
    activate(document(0));
    activate(document(2));
    trigger(*window, "mnuFileClose");
    settle();
    EXPECT_EQ(activeCaption(), "/a.zcf");
}

TEST_F(MainWindow, TheActiveDocumentsListHasTheFocus)
{
    start({"/a.zcf", "/b.zcf"});
    EXPECT_TRUE(list(document(1)).hasFocus());
    trigger(*window, "mnuFileClose");
    settle();
    EXPECT_TRUE(list(document(0)).hasFocus());
    trigger(*window, "mnuFileNew");
    settle();
    EXPECT_TRUE(list(document(1)).hasFocus());
}

TEST_F(MainWindow, CloseWithoutADocumentDoesNothing)
{
    start();
    trigger(*window, "mnuFileClose");
    EXPECT_TRUE(window->isVisible());
}

// Keys

class Keys : public MainWindow
{
};

TEST_F(Keys, CtrlNMakesADocument)
{
    start();
    key(*window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(captions(), QStringList{"Document 1"});
    key(*window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(captions(), (QStringList{"Document 1", "Document 2"}));
}

TEST_F(Keys, CtrlOOpens)
{
    start();
    const auto asked = onNextDialog([](QWidget &dialog) { EXPECT_EQ(dialog.windowTitle(), "Open"); });
    key(*window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(asked->handled);
}

TEST_F(Keys, CtrlSSaves)
{
    start({"/a.zcf"});
    document(0).setChanged(-1);
    key(*window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(fakeFiles.writes, 1);
    EXPECT_EQ(document(0).changed(), 0);
}

TEST_F(Keys, CtrlShiftSAndF12SaveAs)
{
    start({"/a.zcf"});
    const auto checkTitle = [](QWidget &dialog) { EXPECT_EQ(dialog.windowTitle(), "Save As"); };
    const auto first = onNextDialog(checkTitle);
    key(*window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(first->handled);
    showActive(*window);
    const auto second = onNextDialog(checkTitle);
    key(*window, Qt::Key_F12);
    EXPECT_TRUE(second->handled);
}

/// Whether the document windows fill the area or stand beside each other: their own keys differ.
class CloseKeys : public MainWindow, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        start({"/a.zcf", "/b.zcf", "/c.zcf"});
        if (!GetParam()) {
            for (QMdiSubWindow *each : window->findChildren<QMdiSubWindow *>())
                each->showNormal();
        }
        activate(document(2));
    }
};

TEST_P(CloseKeys, CtrlF4ClosesOneDocument)
{
    key(*window, Qt::Key_F4, Qt::ControlModifier);
    settle();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    key(*window, Qt::Key_F4, Qt::ControlModifier);
    settle();
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
    EXPECT_TRUE(window->isVisible());
}

TEST_P(CloseKeys, CtrlWClosesOneDocument)
{
    key(*window, Qt::Key_W, Qt::ControlModifier);
    settle();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    key(*window, Qt::Key_W, Qt::ControlModifier);
    settle();
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
}

TEST_P(CloseKeys, CtrlQEndsTheProgram)
{
    EXPECT_TRUE(endsAfter([this] { key(*window, Qt::Key_Q, Qt::ControlModifier); }));
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(window->documents().empty());
}

TEST_P(CloseKeys, CtrlNStillMakesADocument)
{
    key(*window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(captions().size(), 4);
    EXPECT_EQ(activeCaption(), "Document 4");
}

INSTANTIATE_TEST_SUITE_P(DocumentWindows, CloseKeys, testing::Bool(),
                         [](const auto &tested) { return tested.param ? "Maximised" : "SideBySide"; });

TEST_F(Keys, CtrlTabGoesToTheOtherDocument)
{
    start({"/a.zcf", "/b.zcf"});
    key(*window, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(window.get(), Qt::Key_Control);
    settle();
    EXPECT_EQ(activeCaption(), "/a.zcf");
}

TEST_F(Keys, AMnemonicReachesTheActiveDocumentOnly)
{
    start({"/a.zcf", "/b.zcf"});
    document(0).setChanged(-1);
    document(1).setChanged(-1);
    activate(document(0));
    key(*window, Qt::Key_Y, Qt::AltModifier);
    // Apply is pressed a moment, as a click shows it.
    EXPECT_TRUE(QTest::qWaitFor([this] { return document(0).changed() == 0; }));
    EXPECT_EQ(document(1).changed(), -1);
}

} // namespace

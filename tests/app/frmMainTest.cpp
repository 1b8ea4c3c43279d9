#include "app/frmMain.h"

#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/Printers.h"

#include <QAction>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QToolBar>
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

TEST_F(MainWindow, AButtonWhoseCommandDoesNotExistStaysDisabled)
{
    start({"/a.zcf"});
    for (const char *button : {"Print", "Copy", "Cut", "Paste"}) {
        const bool hasCommand =
            control<QAction>(*window,
                             qstrcmp(button, "Print") == 0 ? "mnuFilePrint" : qPrintable("mnuEdit" + QString(button)))
                ->isEnabled();
        EXPECT_EQ(control<QToolButton>(*window, button)->isEnabled(), hasCommand) << button;
    }
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

TEST_F(MainWindow, TheFontCommandGoesToTheActiveDocument)
{
    start({"/a.zcf", "/b.zcf"});
    const auto asked = onNextDialog([](QWidget &dialog) { EXPECT_EQ(dialog.objectName(), "FontDialog"); });
    trigger(*window, "mnuWindowFont");
    EXPECT_TRUE(asked->handled);
}

TEST_F(MainWindow, TheFontCommandWithoutADocumentDoesNothing)
{
    start();
    trigger(*window, "mnuWindowFont");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// Menus

struct EntryCase
{
    const char *name;
    const char *menu;
    const char *caption;
};

class MainMenu : public MainWindow, public testing::WithParamInterface<EntryCase>
{
};

TEST_P(MainMenu, HasTheEntry)
{
    start();
    const auto *action = control<QAction>(*window, GetParam().name);
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->text(), GetParam().caption);
    const auto *menu = qobject_cast<QMenu *>(action->parent());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), GetParam().menu);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Entries, MainMenu, testing::Values(
    EntryCase{"mnuFileNew",         "mnuFile",     "&New"},
    EntryCase{"mnuFileOpen",        "mnuFile",     "&Open..."},
    EntryCase{"mnuFileClose",       "mnuFile",     "&Close"},
    EntryCase{"mnuFileSave",        "mnuFile",     "&Save"},
    EntryCase{"mnuFileSaveAs",      "mnuFile",     "Save &As..."},
    EntryCase{"mnuFilePrint",       "mnuFile",     "&Print..."},
    EntryCase{"mnuFileExit",        "mnuFile",     "E&xit"},
    EntryCase{"mnuItemTextComment", "mnuItemText", "Un/comment"},
    EntryCase{"mnuItemDelete",      "mnuItem",     "&Delete"},
    EntryCase{"mnuItemWizard",      "mnuItem",     "&Wizard"},
    EntryCase{"mnuEditUndo",        "mnuEdit",     "&Undo"},
    EntryCase{"mnuEditCut",         "mnuEdit",     "Cu&t"},
    EntryCase{"mnuEditCopy",        "mnuEdit",     "&Copy"},
    EntryCase{"mnuEditPaste",       "mnuEdit",     "&Paste"},
    EntryCase{"mnuEditPasteSpecial","mnuEdit",     "Paste &Special..."},
    EntryCase{"mnuWindowFont",      "mnuWindow",   "F&ont..."}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

TEST_F(MainWindow, TheMenusOfTheItemKindsHaveTheirEntriesInOrder)
{
    start();
    const auto entries = [this](const char *menu) {
        QStringList result;
        for (const QAction *action : control<QMenu>(*window, menu)->actions())
            result << action->objectName() + ": " + action->text();
        return result;
    };
    EXPECT_EQ(entries("mnuItemNew"),
              (QStringList{"mnuItemNewFile: &File", "mnuItemNewReg: &Registry", "mnuItemNewUser: &User",
                           "mnuItemNewGroup: &Group", "mnuItemNewPolicy: Account &Policy",
                           "mnuItemNewRight: User Ri&ght", "mnuItemNewAudit: &Audit Policy",
                           "mnuItemNewLDAP: &Directory Service", "mnuItemNewLine: &Line", "mnuItemNewOther: &Other"}));
    EXPECT_EQ(
        entries("mnuItemEdit"),
        (QStringList{"mnuItemEditFile: &File", "mnuItemEditReg: &Registry", "mnuItemEditUser: &User",
                     "mnuItemEditGroup: &Group", "mnuItemEditRight: User Ri&ght", "mnuItemEditPolicy: Account &Policy",
                     "mnuItemEditAudit: &Audit Policy", "mnuItemEditLDAP: &Directory Service", "mnuItemEditLine: &Line",
                     "mnuItemEditOther: &Other"}));
    EXPECT_EQ(entries("mnuItem"), (QStringList{"mnuItemNew: &New", "mnuItemEdit: &Edit", "mnuItemText: Text",
                                               "mnuItemDelete: &Delete", "mnuItemWizard: &Wizard"}));
}

TEST_F(MainWindow, TheMenuBarHasItsMenusInOrder)
{
    start();
    QStringList menus;
    for (const QAction *action : window->menuBar()->actions())
        menus << action->objectName() + ": " + action->text();
    EXPECT_EQ(menus, (QStringList{"mnuFile: &File", "mnuItem: &Item", "mnuEdit: &Edit", "mnuWindow: &Window"}));
}

TEST_F(MainWindow, EveryEntryOfTheFileMenuHasAKey)
{
    start();
    for (const QAction *action : control<QMenu>(*window, "mnuFile")->actions()) {
        if (!action->isSeparator()) {
            EXPECT_FALSE(action->shortcut().isEmpty()) << action->objectName().toStdString();
        }
    }
}

TEST_F(MainWindow, TheToolBarHasItsButtonsByKey)
{
    start();
    QStringList keys;
    for (const QAction *action : control<QToolBar>(*window, "tbToolBar")->actions())
        keys << action->objectName();
    EXPECT_EQ(keys, (QStringList{"New", "Open", "Save", "Print", "Cut", "Copy", "Paste"}));
}

TEST_F(MainWindow, TheToolBarsNewMakesADocument)
{
    start();
    press(*window, "New");
    EXPECT_EQ(captions(), QStringList{"Document 1"});
}

TEST_F(MainWindow, ADisabledEntryIsNotRun)
{
    start({"/a.zcf"});
    EXPECT_FALSE(control<QAction>(*window, "mnuItemDelete")->isEnabled());
    EXPECT_FALSE(control<QAction>(*window, "mnuEditPaste")->isEnabled());
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

// The place of the window

class PlaceOfTheWindow : public MainWindow
{
};

TEST_F(PlaceOfTheWindow, IsTheStoredOne)
{
    settings.values = {{"Settings/MainLeft", "1500"},
                       {"Settings/MainTop", "750"},
                       {"Settings/MainWidth", "9000"},
                       {"Settings/MainHeight", "7500"}};
    start();
    EXPECT_EQ(window->pos(), QPoint(100, 50));
    EXPECT_EQ(window->size(), QSize(600, 500));
}

TEST_F(PlaceOfTheWindow, DefaultsTo1000And6500Twips)
{
    start();
    EXPECT_EQ(window->pos(), QPoint(67, 67));
    EXPECT_EQ(window->size(), QSize(433, 433));
}

TEST_F(PlaceOfTheWindow, IsMovedOntoTheScreen)
{
    settings.values = {{"Settings/MainLeft", "900000"}, {"Settings/MainTop", "-900000"}};
    start();
    EXPECT_TRUE(window->screen()->availableGeometry().contains(QRect(window->pos(), window->size())));
}

TEST_F(PlaceOfTheWindow, IsStoredInTwipsWhenItCloses)
{
    start();
    window->move(20, 30);
    window->resize(640, 480);
    settle();
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(settings.values, (QMap<QString, QString>{{"Settings/MainLeft", "300"},
                                                       {"Settings/MainTop", "450"},
                                                       {"Settings/MainWidth", "9600"},
                                                       {"Settings/MainHeight", "7200"}}));
}

TEST_F(PlaceOfTheWindow, IsReadBackByTheNextStart)
{
    start();
    window->move(20, 30);
    window->resize(640, 480);
    settle();
    EXPECT_TRUE(endsAfterClosing());
    start();
    EXPECT_EQ(window->pos(), QPoint(20, 30));
    EXPECT_EQ(window->size(), QSize(640, 480));
}

TEST_F(PlaceOfTheWindow, IsKeptWhenItClosesMinimised)
{
    const QMap<QString, QString> stored{{"Settings/MainLeft", "1500"},
                                        {"Settings/MainTop", "750"},
                                        {"Settings/MainWidth", "9000"},
                                        {"Settings/MainHeight", "7500"}};
    settings.values = stored;
    start();
    window->move(20, 30);
    window->showMinimized();
    settle();
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(settings.values, stored);
    start();
    EXPECT_EQ(window->pos(), QPoint(100, 50));
}

TEST_F(PlaceOfTheWindow, GarbageIsReadAsTheDefault)
{
    settings.values = {{"Settings/MainLeft", "left"}, {"Settings/MainWidth", "1e999"}};
    start();
    EXPECT_EQ(window->pos(), QPoint(67, 67));
    EXPECT_EQ(window->size(), QSize(433, 433));
}

TEST_F(PlaceOfTheWindow, ThatCannotBeStoredIsReportedAndTheProgramEnds)
{
    start();
    settings.isWritable = false;
    messages.expectShow("The place of the window cannot be stored.", exclamation);
    EXPECT_TRUE(endsAfterClosing());
}

// The association of configuration files

class Association : public MainWindow
{
};

TEST_F(Association, IsCheckedOnceWithTheProgramsPath)
{
    start();
    EXPECT_EQ(associations.calls,
              (QList<QStringList>{{QCoreApplication::applicationFilePath(), "Zentil Config", ".zcf"}}));
}

TEST_F(Association, IsCheckedWithThePathAsTheSystemWritesIt)
{
    programPath = {"\\", ".exe"};
    start();
    ASSERT_EQ(associations.calls.size(), 1);
    EXPECT_TRUE(associations.calls.first().first().endsWith("\\frmMainTest.exe"))
        << associations.calls.first().first().toStdString();
}

struct IgnoreCase
{
    const char *name;
    const char *value;
    int calls;
};

class IgnoreAssoc : public MainWindow, public testing::WithParamInterface<IgnoreCase>
{
};

TEST_P(IgnoreAssoc, DecidesWhetherTheAssociationIsChecked)
{
    settings.values["Settings/IgnoreAssoc"] = GetParam().value;
    start();
    EXPECT_EQ(associations.calls.size(), GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(Values, IgnoreAssoc,
                         testing::Values(IgnoreCase{"One", "1", 0}, IgnoreCase{"MinusOne", "-1", 0},
                                         IgnoreCase{"Zero", "0", 1}, IgnoreCase{"Empty", "", 1},
                                         IgnoreCase{"Text", "no", 1}),
                         [](const auto &tested) { return tested.param.name; });

} // namespace

#include "tests/app/ProgramFixture.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QToolBar>

namespace {

struct MenuCase
{
    const char *menu;
    QStringList entries;
};

// clang-format off
/// Every menu with its entries in order, as "name: caption"; a line for a separator, with its name if it has one.
const QList<MenuCase> &menuCases()
{
    static const QList<MenuCase> cases{
        {"mnuMenuBar", {"mnuFile: &File", "mnuItem: &Item", "mnuEdit: &Edit", "mnuOutput: &Output", "mnuView: &View",
                        "mnuWindow: &Window", "mnuHelp: &Help"}},
        {"mnuFile", {
            "mnuFileNew: &New", "mnuFileOpen: &Open...", "mnuFileClose: &Close", "-",
            "mnuFileSave: &Save", "mnuFileSaveAs: Save &As...", "mnuFileSaveAll: Save A&ll", "-",
            "mnuFileProperties: Propert&ies", "-",
            "mnuFileAssoc: Associa&te Files", "mnuFilePageSetup: Page Set&up...", "mnuFilePrintPreview: Print Pre&view",
            "mnuFilePrint: &Print...", "-",
            "mnuFileSend: Sen&d...", "-",
            "mnuFileMRU_0: ", "mnuFileMRU_1: ", "mnuFileMRU_2: ", "-",
            "mnuFileExit: E&xit"}},
        {"mnuItem", {"mnuItemNew: &New", "mnuItemEdit: &Edit", "mnuItemText: Text", "mnuItemDelete: &Delete",
                     "mnuItemWizard: &Wizard"}},
        {"mnuItemNew", {
            "mnuItemNewFile: &File", "mnuItemNewReg: &Registry", "mnuItemNewUser: &User", "mnuItemNewGroup: &Group",
            "mnuItemNewPolicy: Account &Policy", "mnuItemNewRight: User Ri&ght", "mnuItemNewAudit: &Audit Policy",
            "mnuItemNewLDAP: &Directory Service", "mnuItemNewLine: &Line", "mnuItemNewOther: &Other"}},
        {"mnuItemEdit", {
            "mnuItemEditFile: &File", "mnuItemEditReg: &Registry", "mnuItemEditUser: &User",
            "mnuItemEditGroup: &Group", "mnuItemEditRight: User Ri&ght", "mnuItemEditPolicy: Account &Policy",
            "mnuItemEditAudit: &Audit Policy", "mnuItemEditLDAP: &Directory Service", "mnuItemEditLine: &Line",
            "mnuItemEditOther: &Other"}},
        {"mnuItemText", {"mnuItemTextComment: Un/comment"}},
        {"mnuEdit", {"mnuEditUndo: &Undo", "- mnuEditBar0", "mnuEditCut: Cu&t", "mnuEditCopy: &Copy",
                     "mnuEditPaste: &Paste", "mnuEditPasteSpecial: Paste &Special..."}},
        {"mnuOutput", {}},
        {"mnuView", {"mnuViewToolbar: &Toolbar", "mnuViewStatusBar: Status &Bar", "-", "mnuViewOrient: Orien&t",
                     "mnuViewRefresh: &Refresh", "mnuViewOptions: &Options...", "mnuViewWebBrowser: &Web Browser"}},
        {"mnuWindow", {"mnuWindowNewWindow: &New Window", "-", "mnuWindowCascade: &Cascade",
                       "mnuWindowTileHorizontal: Tile &Horizontal", "mnuWindowTileVertical: Tile &Vertical",
                       "mnuWindowArrangeIcons: &Arrange Icons", "-", "mnuWindowFont: F&ont..."}},
        {"mnuHelp", {"mnuHelpContents: &Contents", "mnuHelpSearchForHelpOn: &Search For Help On...", "-",
                     "mnuHelpAbout: &About"}},
    };
    return cases;
}
// clang-format on

QString described(const QAction &action)
{
    if (action.isSeparator())
        return action.objectName().isEmpty() ? QString("-") : "- " + action.objectName();
    return action.objectName() + ": " + action.text();
}

/// The descriptions of the entries of a menu, or those in it that are so.
template<class Is>
QStringList entries(const QWidget &menu, const Is &is)
{
    QStringList result;
    for (const QAction *action : menu.actions()) {
        if (is(*action))
            result << described(*action);
    }
    return result;
}

QStringList entries(const QWidget &menu)
{
    return entries(menu, [](const QAction &) { return true; });
}

class MainMenu : public Program
{
protected:
    MainMenu() { fakeFiles.content["/a.zcf"] = "a\r\n"; }

    [[nodiscard]] QStringList disabledEntries() const
    {
        QStringList result;
        for (const MenuCase &each : menuCases()) {
            for (const QAction *action : control<QWidget>(*window, each.menu)->actions()) {
                // What is hidden counts as disabled as long as it is so.
                if (!action->isSeparator() && action->isVisible() && !action->isEnabled())
                    result << action->objectName();
            }
        }
        return result;
    }
};

TEST_F(MainMenu, HasItsMenusAndEntriesInOrderWithTheirNamesAndCaptions)
{
    start();
    int menus = 0;
    for (const MenuCase &each : menuCases()) {
        EXPECT_EQ(entries(*control<QWidget>(*window, each.menu)), each.entries) << each.menu;
        ++menus;
    }
    // Nothing stands in a menu that the table does not have. The menu bar is no QMenu.
    qsizetype named = 0;
    for (const QMenu *menu : window->menuBar()->findChildren<QMenu *>())
        named += menu->objectName().startsWith("mnu") ? 1 : 0;
    EXPECT_EQ(named, menus - 1);
}

TEST_F(MainMenu, WithoutADocumentShowsOnlyWhatNeedsNone)
{
    start();
    const auto isVisible = [](const QAction &action) { return action.isVisible() && !action.isSeparator(); };
    EXPECT_EQ(entries(*window->menuBar(), isVisible),
              (QStringList{"mnuFile: &File", "mnuOutput: &Output", "mnuView: &View", "mnuWindow: &Window",
                           "mnuHelp: &Help"}));
    EXPECT_FALSE(isMenuVisible("mnuFilePrint"));
}

TEST_F(MainMenu, EntriesForFilesUsedLastAreHiddenAsThereAreNone)
{
    start({"/a.zcf"});
    for (const char *entry : {"mnuFileMRU_0", "mnuFileMRU_1", "mnuFileMRU_2"}) {
        EXPECT_FALSE(isMenuVisible(entry)) << entry;
        EXPECT_FALSE(control<QAction>(*window, entry)->isEnabled()) << entry;
    }
    // Their two separators would stand beside each other.
    EXPECT_TRUE(control<QMenu>(*window, "mnuFile")->separatorsCollapsible());
}

TEST_F(MainMenu, EntriesWithoutACommandAreDisabled)
{
    start({"/a.zcf"});
    EXPECT_EQ(disabledEntries(),
              (QStringList{"mnuOutput", "mnuFilePrintPreview", "mnuItemWizard", "mnuViewOrient", "mnuViewOptions",
                           "mnuHelpContents", "mnuHelpSearchForHelpOn", "mnuHelpAbout"}));
}

TEST_F(MainMenu, EntriesOfKindsWithoutAnEditorAreDisabled)
{
    editors.setKinds({ItemKind::Line, ItemKind::Other});
    start({"/a.zcf"});
    const auto isEnabled = [](const QAction &action) { return action.isEnabled(); };
    EXPECT_EQ(entries(*control<QMenu>(*window, "mnuItemNew"), isEnabled),
              (QStringList{"mnuItemNewLine: &Line", "mnuItemNewOther: &Other"}));
    EXPECT_EQ(entries(*control<QMenu>(*window, "mnuItemEdit"), isEnabled),
              (QStringList{"mnuItemEditLine: &Line", "mnuItemEditOther: &Other"}));
}

TEST_F(MainMenu, EachEntryForAKindIsDisabledWithItsEditor)
{
    // In the order of the two menus.
    const QList<QPair<ItemKind, QStringList>> kinds{
        {ItemKind::File, {"mnuItemNewFile", "mnuItemEditFile"}},
        {ItemKind::Registry, {"mnuItemNewReg", "mnuItemEditReg"}},
        {ItemKind::User, {"mnuItemNewUser", "mnuItemEditUser"}},
        {ItemKind::Group, {"mnuItemNewGroup", "mnuItemEditGroup"}},
        {ItemKind::AccountPolicy, {"mnuItemNewPolicy", "mnuItemEditPolicy"}},
        {ItemKind::UserRight, {"mnuItemNewRight", "mnuItemEditRight"}},
        {ItemKind::AuditPolicy, {"mnuItemNewAudit", "mnuItemEditAudit"}},
        {ItemKind::DirectoryService, {"mnuItemNewLDAP", "mnuItemEditLDAP"}},
        {ItemKind::Line, {"mnuItemNewLine", "mnuItemEditLine"}},
        {ItemKind::Other, {"mnuItemNewOther", "mnuItemEditOther"}},
    };
    for (const auto &[kind, names] : kinds) {
        editors.setKinds({kind});
        start({"/a.zcf"});
        QStringList enabled;
        for (const char *menu : {"mnuItemNew", "mnuItemEdit"}) {
            for (const QAction *action : control<QMenu>(*window, menu)->actions()) {
                if (action->isEnabled())
                    enabled << action->objectName();
            }
        }
        EXPECT_EQ(enabled, names);
    }
}

TEST_F(MainMenu, PasteSpecialIsHiddenWhileADocumentIsActive)
{
    start({"/a.zcf"});
    EXPECT_TRUE(isMenuVisible("mnuEdit"));
    EXPECT_FALSE(isMenuVisible("mnuEditPasteSpecial"));
}

// Keys

TEST_F(MainMenu, EntriesHaveTheirKeys)
{
    start();
    // clang-format off
    const QMap<QString, QString> expected{
        {"mnuFileNew",         "Ctrl+N"},
        {"mnuFileOpen",        "Ctrl+O"},
        {"mnuFileClose",       "Ctrl+F4; Ctrl+W"},
        {"mnuFileSave",        "Ctrl+S"},
        {"mnuFileSaveAs",      "Ctrl+Shift+S; F12"},
        {"mnuFilePrint",       "Ctrl+P"},
        {"mnuFileExit",        "Ctrl+Q"},
        {"mnuItemTextComment", "Ctrl+/"},
        {"mnuEditUndo",        "Ctrl+Z; Alt+Backspace"},
        {"mnuEditCut",         "Ctrl+X; Shift+Del"},
        {"mnuEditCopy",        "Ctrl+C; Ctrl+Ins"},
        {"mnuEditPaste",       "Ctrl+V; Shift+Ins"},
    };
    // clang-format on
    QMap<QString, QString> keys;
    for (const MenuCase &each : menuCases()) {
        for (const QAction *action : control<QWidget>(*window, each.menu)->actions()) {
            if (!action->shortcuts().isEmpty())
                keys[action->objectName()] =
                    QKeySequence::listToString(action->shortcuts(), QKeySequence::PortableText);
        }
    }
    EXPECT_EQ(keys, expected);
}

// Toolbar

TEST_F(MainMenu, TheToolBarHasItsButtonsByKeyInOrder)
{
    start();
    QStringList keys;
    for (const QAction *action : control<QToolBar>(*window, "tbToolBar")->actions()) {
        if (!action->isSeparator())
            keys << action->objectName();
    }
    EXPECT_EQ(keys, (QStringList{"New", "Open", "Save", "Print", "Cut", "Copy", "Paste", "Bold", "Italic", "Underline",
                                 "Align Left", "Center", "Align Right"}));
}

TEST_F(MainMenu, AllButtonsAreSeenInTheWindowAsItComesFirst)
{
    start();
    const auto *bar = control<QToolBar>(*window, "tbToolBar");
    for (QAction *action : bar->actions()) {
        if (!action->isSeparator()) {
            EXPECT_TRUE(bar->widgetForAction(action)->isVisible()) << action->objectName().toStdString();
        }
    }
}

TEST_F(MainMenu, TheToolBarsButtonsSayTheirKeys)
{
    start();
    for (const QAction *action : control<QToolBar>(*window, "tbToolBar")->actions()) {
        if (!action->isSeparator()) {
            EXPECT_EQ(action->text(), action->objectName());
            EXPECT_EQ(action->toolTip(), action->objectName());
        }
    }
}

} // namespace

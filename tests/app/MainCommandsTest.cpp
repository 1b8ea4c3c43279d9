#include "config/GlobalSettingsEditor.h"
#include "platform/RuntimeError.h"
#include "settings/Help.h"
#include "tests/app/ProgramFixture.h"

#include <QAction>
#include <QDir>
#include <QStatusBar>
#include <QToolBar>

namespace {

/// Two documents, of which the first is the active one and has its second row selected.
class MainCommands : public Program
{
protected:
    MainCommands()
    {
        fakeFiles.content["/a.zcf"] = "a1\r\na2\r\na3\r\n";
        fakeFiles.content["/b.zcf"] = "b1\r\nb2\r\n";
    }

    void startOnTwo()
    {
        start({"/a.zcf", "/b.zcf"});
        clickRow(list(document(1)), 0);
        activate(document(0));
        clickRow(list(document(0)), 1);
    }

    [[nodiscard]] QStringList rows(size_t index) const { return document(index).rowList().rows(); }

    [[nodiscard]] bool isEnabled(const char *entry) const { return control<QAction>(*window, entry)->isEnabled(); }
};

// Files

TEST_F(MainCommands, ToolBarSavesOpensAndMakesDocuments)
{
    startOnTwo();
    document(0).ItemChangeFile("a2", "!", "", 1);
    press(*window, "Save");
    EXPECT_EQ(fakeFiles.content["/a.zcf"], "a1\r\n!a2\r\na3\r\n");
    EXPECT_EQ(document(0).changed(), 0);

    const auto asked = onNextDialog([](QWidget &dialog) { EXPECT_EQ(dialog.windowTitle(), "Open"); });
    press(*window, "Open");
    EXPECT_TRUE(asked->handled);

    press(*window, "New");
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf", "Document 3"}));
}

// Items

struct KindCase
{
    const char *entry;
    ItemKind kind;
};

class NewItem : public MainCommands, public testing::WithParamInterface<KindCase>
{
};

TEST_P(NewItem, OpensANewEditorOfItsKindForTheActiveDocument)
{
    startOnTwo();
    trigger(*window, GetParam().entry);
    ASSERT_EQ(editors.madeCount(), 1);
    const FakeEditor &editor = editors.last();
    EXPECT_EQ(editor.kind, GetParam().kind);
    EXPECT_FALSE(editor.isShared);
    EXPECT_TRUE(editor.isNew);
    EXPECT_TRUE(editor.isShown);
    EXPECT_EQ(editor.document, &document(0));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Kinds, NewItem, testing::Values(
    KindCase{"mnuItemNewFile",   ItemKind::File},
    KindCase{"mnuItemNewReg",    ItemKind::Registry},
    KindCase{"mnuItemNewUser",   ItemKind::User},
    KindCase{"mnuItemNewGroup",  ItemKind::Group},
    KindCase{"mnuItemNewPolicy", ItemKind::AccountPolicy},
    KindCase{"mnuItemNewRight",  ItemKind::UserRight},
    KindCase{"mnuItemNewLDAP",   ItemKind::DirectoryService},
    KindCase{"mnuItemNewLine",   ItemKind::Line},
    KindCase{"mnuItemNewOther",  ItemKind::Other}
), [](const auto &tested) { return tested.param.entry; });
// clang-format on

// The entry passes "Audity Policy", which no document knows. A program that passed the kind's name would open its
// editor, as the document's own list of kinds does.
TEST_F(MainCommands, NewAuditPolicyOpensNothing)
{
    startOnTwo();
    trigger(*window, "mnuItemNewAudit");
    EXPECT_EQ(editors.madeCount(), 0);
    EXPECT_EQ(rows(0), (QStringList{"a1", "a2", "a3"}));
    document(0).AddNew("Audity Policy");
    EXPECT_EQ(editors.madeCount(), 0);
    document(0).AddNew("Audit Policy");
    ASSERT_EQ(editors.madeCount(), 1);
    EXPECT_EQ(editors.last().kind, ItemKind::AuditPolicy);
}

class EditItem : public MainCommands, public testing::WithParamInterface<KindCase>
{
};

TEST_P(EditItem, OpensTheSharedEditorOfItsKindForTheCurrentRow)
{
    startOnTwo();
    trigger(*window, GetParam().entry);
    ASSERT_EQ(editors.madeCount(), 1);
    const FakeEditor &editor = editors.last();
    EXPECT_EQ(editor.kind, GetParam().kind);
    EXPECT_TRUE(editor.isShared);
    EXPECT_FALSE(editor.isNew);
    EXPECT_TRUE(editor.isShown);
    EXPECT_EQ(editor.document, &document(0));
    EXPECT_EQ(editor.row, 1);
    EXPECT_EQ(editor.line, "a2");
}

TEST_P(EditItem, WithoutACurrentRowSaysSo)
{
    start({"/a.zcf"});
    messages.expectShow("No item selected", Messages::Icon::None, "Error");
    trigger(*window, GetParam().entry);
    messages.verify();
    EXPECT_EQ(editors.madeCount(), 0);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Kinds, EditItem, testing::Values(
    KindCase{"mnuItemEditFile",   ItemKind::File},
    KindCase{"mnuItemEditReg",    ItemKind::Registry},
    KindCase{"mnuItemEditUser",   ItemKind::User},
    KindCase{"mnuItemEditGroup",  ItemKind::Group},
    KindCase{"mnuItemEditRight",  ItemKind::UserRight},
    KindCase{"mnuItemEditPolicy", ItemKind::AccountPolicy},
    KindCase{"mnuItemEditAudit",  ItemKind::AuditPolicy},
    KindCase{"mnuItemEditLDAP",   ItemKind::DirectoryService},
    KindCase{"mnuItemEditLine",   ItemKind::Line},
    KindCase{"mnuItemEditOther",  ItemKind::Other}
), [](const auto &tested) { return tested.param.entry; });
// clang-format on

TEST_F(MainCommands, AnErrorOfAForwardedCommandIsShown)
{
    startOnTwo();
    editors.onMade = [](FakeEditor &editor) {
        editor.onSetItem = [](const QString &) { throw RuntimeError(RuntimeError::InvalidCall); };
    };
    messages.expectShow("Run-time error '5':\n\nInvalid procedure call or argument", Messages::Icon::Critical);
    trigger(*window, "mnuItemEditFile");
    messages.verify();
    EXPECT_EQ(activeCaption(), "/a.zcf");
    EXPECT_EQ(rows(0), (QStringList{"a1", "a2", "a3"}));
}

TEST_F(MainCommands, UncommentTogglesTheSelectedRows)
{
    startOnTwo();
    trigger(*window, "mnuItemTextComment");
    EXPECT_EQ(rows(0), (QStringList{"a1", ";a2", "a3"}));
    trigger(*window, "mnuItemTextComment");
    EXPECT_EQ(rows(0), (QStringList{"a1", "a2", "a3"}));
    EXPECT_EQ(rows(1), (QStringList{"b1", "b2"}));
}

TEST_F(MainCommands, DeleteRemovesTheSelectedRows)
{
    startOnTwo();
    trigger(*window, "mnuItemDelete");
    EXPECT_EQ(rows(0), (QStringList{"a1", "a3"}));
    EXPECT_EQ(rows(1), (QStringList{"b1", "b2"}));
}

class FakeGlobalSettings final : public GlobalSettingsEditor
{
public:
    void RunConfWizard(ConfigForm &document) override { documents << &document; }

    QList<const ConfigForm *> documents;
};

TEST_F(MainCommands, WizardEditsTheGlobalSettingsOfTheActiveDocument)
{
    FakeGlobalSettings globalSettings;
    optional.globalSettings = &globalSettings;
    startOnTwo();
    trigger(*window, "mnuItemWizard");
    EXPECT_EQ(globalSettings.documents, QList<const ConfigForm *>{&document(0)});
    window.reset();
    optional.globalSettings = nullptr;
    startOnTwo();
    EXPECT_FALSE(isEnabled("mnuItemWizard"));
}

// Undo

TEST_F(MainCommands, UndoTakesBackAndIsDisabledAfterTheLastStep)
{
    startOnTwo();
    EXPECT_TRUE(isEnabled("mnuEditUndo"));
    trigger(*window, "mnuItemDelete");
    trigger(*window, "mnuItemDelete");
    EXPECT_EQ(rows(0), QStringList{"a1"});
    trigger(*window, "mnuEditUndo");
    EXPECT_TRUE(isEnabled("mnuEditUndo"));
    trigger(*window, "mnuEditUndo");
    EXPECT_EQ(rows(0), (QStringList{"a1", "a2", "a3"}));
    EXPECT_FALSE(isEnabled("mnuEditUndo"));
    trigger(*window, "mnuItemDelete");
    EXPECT_TRUE(isEnabled("mnuEditUndo"));
}

TEST_F(MainCommands, UndoOfAFreshDocumentSaysThatThereIsNothing)
{
    startOnTwo();
    messages.expectShow("Cannot undo");
    trigger(*window, "mnuEditUndo");
    messages.verify();
}

TEST_F(MainCommands, EachDocumentHasItsOwnUndo)
{
    startOnTwo();
    trigger(*window, "mnuItemDelete");
    trigger(*window, "mnuEditUndo");
    EXPECT_FALSE(isEnabled("mnuEditUndo"));
    activate(document(1));
    EXPECT_TRUE(isEnabled("mnuEditUndo"));
    trigger(*window, "mnuItemDelete");
    EXPECT_TRUE(isEnabled("mnuEditUndo"));
    activate(document(0));
    EXPECT_FALSE(isEnabled("mnuEditUndo"));
    activate(document(1));
    EXPECT_TRUE(isEnabled("mnuEditUndo"));
    trigger(*window, "mnuEditUndo");
    EXPECT_EQ(rows(1), (QStringList{"b1", "b2"}));
}

// Unfinished commands

struct UnfinishedCase
{
    const char *entry;
    const char *text;
};

class Unfinished : public MainCommands, public testing::WithParamInterface<UnfinishedCase>
{
};

TEST_P(Unfinished, ShowsItsTextAndDoesNothingElse)
{
    startOnTwo();
    messages.expectShow(GetParam().text);
    // One of them is hidden whenever its menu is shown.
    control<QAction>(*window, GetParam().entry)->trigger();
    messages.verify();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    EXPECT_EQ(rows(0), (QStringList{"a1", "a2", "a3"}));
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_EQ(fakeFiles.writes, 0);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Entries, Unfinished, testing::Values(
    UnfinishedCase{"mnuFileSaveAll",      "Add 'mnuFileSaveAll_Click' code."},
    UnfinishedCase{"mnuFileProperties",   "Add 'mnuFileProperties_Click' code."},
    UnfinishedCase{"mnuFileSend",         "Add 'mnuFileSend_Click' code."},
    UnfinishedCase{"mnuEditPasteSpecial", "Add 'mnuEditPasteSpecial_Click' code."},
    UnfinishedCase{"mnuViewRefresh",      "Add 'mnuViewRefresh_Click' code."},
    UnfinishedCase{"mnuViewWebBrowser",   "Add 'mnuViewWebBrowser_Click' code."}
), [](const auto &tested) { return tested.param.entry; });
// clang-format on

// View

TEST_F(MainCommands, ToolbarAndStatusBarAreShownAndHiddenWithTheirCheckMarks)
{
    start();
    const QList<QPair<const char *, const char *>> bars{{"mnuViewToolbar", "tbToolBar"},
                                                        {"mnuViewStatusBar", "sbStatusBar"}};
    for (const auto &[entry, name] : bars) {
        const auto *bar = control<QWidget>(*window, name);
        const auto *action = control<QAction>(*window, entry);
        EXPECT_TRUE(action->isChecked()) << entry;
        EXPECT_TRUE(bar->isVisible()) << entry;
        trigger(*window, entry);
        EXPECT_FALSE(action->isChecked()) << entry;
        EXPECT_FALSE(bar->isVisible()) << entry;
        trigger(*window, entry);
        EXPECT_TRUE(action->isChecked()) << entry;
        EXPECT_TRUE(bar->isVisible()) << entry;
    }
}

// The toolkit offers a menu of bars of its own to a click with the right button.
TEST_F(MainCommands, CheckMarkFollowsTheToolkitsOwnMenuOfBars)
{
    start();
    auto *bar = control<QToolBar>(*window, "tbToolBar");
    bar->toggleViewAction()->trigger();
    EXPECT_FALSE(bar->isVisible());
    EXPECT_FALSE(control<QAction>(*window, "mnuViewToolbar")->isChecked());
    trigger(*window, "mnuViewToolbar");
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(bar->toggleViewAction()->isChecked());
}

TEST_F(MainCommands, CheckMarksStayWhileTheWindowIsMinimised)
{
    start();
    window->showMinimized();
    settle();
    EXPECT_TRUE(control<QAction>(*window, "mnuViewToolbar")->isChecked());
    EXPECT_TRUE(control<QAction>(*window, "mnuViewStatusBar")->isChecked());
}

TEST_F(MainCommands, CommandsGoOnWithoutBars)
{
    startOnTwo();
    trigger(*window, "mnuViewToolbar");
    trigger(*window, "mnuViewStatusBar");
    clickRow(list(document(0)), 2);
    EXPECT_EQ(status(), "Line 3/3");
    trigger(*window, "mnuItemDelete");
    EXPECT_EQ(rows(0), (QStringList{"a1", "a2"}));
}

// Window

TEST_F(MainCommands, NewWindowMakesAnUntitledDocument)
{
    startOnTwo();
    trigger(*window, "mnuWindowNewWindow");
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf", "Document 3"}));
    EXPECT_EQ(activeCaption(), "Document 3");
}

TEST_F(MainCommands, FontGoesToTheActiveDocument)
{
    startOnTwo();
    const auto asked = onNextDialog([this](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "FontDialog");
        EXPECT_EQ(dialog.parentWidget(), &document(0));
    });
    trigger(*window, "mnuWindowFont");
    EXPECT_TRUE(asked->handled);
}

TEST_F(MainCommands, FontWithoutADocumentDoesNothing)
{
    start();
    trigger(*window, "mnuWindowFont");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// What the program may be without

TEST_F(MainCommands, AssociateFilesRunsTheCheckAgain)
{
    // Set or not: the user asks for it.
    settings.values["Settings/IgnoreAssoc"] = "1";
    programPath = {QDir::separator(), QString()};
    start();
    EXPECT_TRUE(associations.calls.isEmpty());
    trigger(*window, "mnuFileAssoc");
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
    EXPECT_EQ(associations.calls, (QList<QStringList>{{program, "Zentil Config", ".zcf"}}));
    trigger(*window, "mnuFileAssoc");
    EXPECT_EQ(associations.calls.size(), 2);
}

TEST_F(MainCommands, WithoutAssociationsNothingIsCheckedAndTheEntryIsDisabled)
{
    optional.associations = nullptr;
    start();
    EXPECT_FALSE(isEnabled("mnuFileAssoc"));
}

TEST_F(MainCommands, OptionsAndAboutAreShownOverTheMainWindow)
{
    QList<const QWidget *> options;
    QList<const QWidget *> about;
    optional.showOptions = [&](QWidget &parent) { options << &parent; };
    optional.showAbout = [&](QWidget &parent) { about << &parent; };
    start();
    trigger(*window, "mnuViewOptions");
    EXPECT_EQ(options, QList<const QWidget *>{window.get()});
    EXPECT_TRUE(about.isEmpty());
    trigger(*window, "mnuHelpAbout");
    EXPECT_EQ(about, QList<const QWidget *>{window.get()});
    EXPECT_EQ(options.size(), 1);
}

class FakeHelp final : public Help
{
public:
    [[nodiscard]] bool hasFile() const override { return isThere; }
    void showContents() override { shown << "contents"; }
    void showSearch() override { shown << "search"; }

    bool isThere = true;
    QStringList shown;
};

TEST_F(MainCommands, HelpOpensAtItsContentsOrForASearch)
{
    FakeHelp help;
    optional.help = &help;
    start();
    trigger(*window, "mnuHelpContents");
    EXPECT_EQ(help.shown, QStringList{"contents"});
    trigger(*window, "mnuHelpSearchForHelpOn");
    EXPECT_EQ(help.shown, (QStringList{"contents", "search"}));
}

TEST_F(MainCommands, SearchForHelpWithoutAHelpFileSaysSo)
{
    FakeHelp help;
    help.isThere = false;
    optional.help = &help;
    start();
    messages.expectShow("Unable to display Help Contents. There is no Help associated with this project.");
    trigger(*window, "mnuHelpSearchForHelpOn");
    messages.verify();
    EXPECT_TRUE(help.shown.isEmpty());
}

} // namespace

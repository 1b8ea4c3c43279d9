#include "platform/RuntimeError.h"
#include "tests/config/DocumentFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

namespace {

const QString path = documentPath;

// Creating the window

TEST_F(Document, ListsTheKindsInTheirOrder)
{
    const auto *kinds = control<QComboBox>(*form, "NewItemList");
    QStringList names;
    for (int i = 0; i < kinds->count(); ++i)
        names << kinds->itemText(i);
    EXPECT_EQ(names, (QStringList{"File", "Registry", "User", "Group", "User Right", "Account Policy", "Audit Policy",
                                  "Directory Service", "Line", "Other"}));
    EXPECT_FALSE(kinds->isEditable());
    EXPECT_EQ(kinds->currentIndex(), -1);
}

TEST_F(Document, HasItsToolTips)
{
    const auto toolTip = [this](const char *name) { return control<QWidget>(*form, name)->toolTip(); };
    EXPECT_EQ(toolTip("NewItemList"), "Select one of the following to add items of the selected type");
    EXPECT_EQ(toolTip("RemoveButton"), "Remove the selected item from the configuration");
    EXPECT_EQ(toolTip("EditButton"), "Edit the selected item. You can also double-click on an item to edit it");
    // The doubled word has always been there.
    EXPECT_EQ(toolTip("ApplyButton"), "Save changes the the database");
    EXPECT_EQ(toolTip("CloseButton"), "Close configuration without saving changes");
    EXPECT_FALSE(toolTip("MoveUpButton").isEmpty());
    EXPECT_FALSE(toolTip("MoveDownButton").isEmpty());
}

TEST_F(Document, StartsEmptyAndUnchanged)
{
    EXPECT_EQ(form->rowList().rowCount(), 0);
    EXPECT_EQ(form->changed(), 0);
    EXPECT_EQ(form->AcceptMode(), 0);
    EXPECT_EQ(form->file().path(), QString());
}

// Loading

TEST_F(Document, Loading250LinesShowsLine100AndLine200InTurnThenTheCaptionConfiguration)
{
    load(numberedLines(250));
    EXPECT_EQ(shell.statusTexts, (QStringList{"Line100", "Line200"}));
    EXPECT_EQ(form->caption(), "Configuration");
    EXPECT_EQ(form->rowList().rowCount(), 250);
    EXPECT_EQ(form->rowList().rows().first(), "line 1");
    EXPECT_EQ(form->rowList().rows().last(), "line 250");
}

TEST_F(Document, PendingEventsAreProcessedWhileLoading)
{
    QString seen;
    QTimer::singleShot(0, form, [&] { seen = shell.status; });
    load(numberedLines(250));
    EXPECT_EQ(seen, "Line100");
}

struct ProgressCase
{
    int lines;
    QStringList texts;
};

class LoadProgress : public Document, public testing::WithParamInterface<ProgressCase>
{
};

TEST_P(LoadProgress, IsShownAfterEvery100thLine)
{
    load(numberedLines(GetParam().lines));
    EXPECT_EQ(shell.statusTexts, GetParam().texts);
}

INSTANTIATE_TEST_SUITE_P(Counts, LoadProgress,
                         testing::Values(ProgressCase{0, {}}, ProgressCase{99, {}}, ProgressCase{100, {"Line100"}},
                                         ProgressCase{199, {"Line100"}},
                                         ProgressCase{300, {"Line100", "Line200", "Line300"}}),
                         [](const auto &tested) { return "Lines" + std::to_string(tested.param.lines); });

TEST_F(Document, ALoadOfTheMostRowsCountsUpToTheLastHundred)
{
    load(numberedLines(32767));
    EXPECT_EQ(form->rowList().rowCount(), 32767);
    EXPECT_EQ(shell.statusTexts.size(), 327);
    EXPECT_EQ(shell.statusTexts.last(), "Line32700");
}

TEST_F(Document, ALoadWithModeZeroLeavesItUnchanged)
{
    form->setChanged(-1);
    load("a\r\n");
    EXPECT_EQ(form->changed(), 0);
    EXPECT_EQ(form->AcceptMode(), 0);
}

TEST_F(Document, ALoadsModeBecomesTheAcceptModeAndTheChangedFlag)
{
    load("a\r\n", -1);
    EXPECT_EQ(form->AcceptMode(), -1);
    EXPECT_EQ(form->changed(), -1);
}

TEST_F(Document, ReloadWithANonZeroAcceptModeLeavesItMarkedAsChanged)
{
    load("a\r\n");
    form->setAcceptMode(7);
    form->Reload();
    EXPECT_EQ(form->changed(), 7);
    EXPECT_EQ(form->AcceptMode(), 7);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::No);
    EXPECT_TRUE(form->close());
}

TEST_F(Document, ReloadReplacesTheRows)
{
    load("a\r\nb\r\n");
    files.content[path] = "c\r\n";
    form->Reload();
    EXPECT_EQ(form->rowList().rows(), QStringList{"c"});
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(Document, ReloadLeavesNoRowCurrent)
{
    load(numberedLines(10));
    showActive(*form);
    clickRow(list(), 2);
    form->Reload();
    EXPECT_EQ(list().listIndex(), -1);
}

TEST_F(Document, AFailedLoadKeepsRowsChangedFlagAcceptModeAndCaption)
{
    load("a\r\nb\r\n");
    form->setCaption(path);
    form->setChanged(-1);
    form->setAcceptMode(3);
    files.readError = RuntimeError(RuntimeError::DeviceError, path);
    qint16 result = 0;
    EXPECT_THROW(form->Form_Load_Data(0, result), RuntimeError);
    EXPECT_THROW(form->Reload(), RuntimeError);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(form->rowList().rows(), (QStringList{"a", "b"}));
    EXPECT_EQ(form->changed(), -1);
    EXPECT_EQ(form->AcceptMode(), 3);
    EXPECT_EQ(form->caption(), path);
}

TEST_F(Document, AFileOfTooManyLinesIsRefusedWhole)
{
    load("a\r\n");
    files.content[path] = numberedLines(32768);
    EXPECT_THROW(form->Reload(), RuntimeError);
    EXPECT_EQ(form->rowList().rows(), QStringList{"a"});
}

// The wait cursor

TEST_F(Document, TheWaitCursorIsShownWhileLoadingAndSaving)
{
    QList<Qt::CursorShape> shapes;
    files.onAccess = [&] { shapes << QGuiApplication::overrideCursor()->shape(); };
    load("a\r\n");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    form->Form_Save_Data();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(shapes, (QList<Qt::CursorShape>{Qt::BusyCursor, Qt::WaitCursor}));
}

TEST_F(Document, TheNormalCursorComesBackAfterAnError)
{
    load("a\r\n");
    files.readError = RuntimeError(RuntimeError::DeviceError, path);
    files.writeError = RuntimeError(RuntimeError::DiskFull, path);
    EXPECT_THROW(form->Reload(), RuntimeError);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_THROW(form->Form_Save_Data(), RuntimeError);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// Saving

TEST_F(Document, SavingJoinsTheRowsWithCrLfAndClearsTheChangedFlag)
{
    load("a\n\nb");
    form->setChanged(-1);
    form->Form_Save_Data();
    EXPECT_EQ(files.content[path], "a\r\n\r\nb\r\n");
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(Document, SavingNoRowsWritesAnEmptyFile)
{
    load("");
    files.content[path] = "old";
    form->Form_Save_Data();
    EXPECT_EQ(files.content[path], "");
}

TEST_F(Document, TheApplyButtonSaves)
{
    load("a\r\n");
    form->setChanged(-1);
    showActive(*form);
    press(*form, "ApplyButton");
    EXPECT_EQ(files.writes, 1);
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(Document, AFailedSaveKeepsTheChangedFlag)
{
    load("a\r\n");
    form->setChanged(-1);
    files.writeError = RuntimeError(RuntimeError::DiskFull, path);
    EXPECT_THROW(form->Form_Save_Data(), RuntimeError);
    EXPECT_EQ(form->changed(), -1);
    EXPECT_EQ(files.content[path], "a\r\n");
}

TEST_F(Document, AnErrorOfTheApplyButtonIsShownAndTheDocumentStays)
{
    load("a\r\n");
    form->setChanged(-1);
    showActive(*form);
    files.writeError = RuntimeError(RuntimeError::DiskFull, path);
    messages.expectShow("Run-time error '61':\n\nDisk full\n\n" + path, Messages::Icon::Critical);
    press(*form, "ApplyButton");
    messages.verify();
    EXPECT_EQ(form->changed(), -1);
    EXPECT_TRUE(form->isVisible());
}

// Most of the toolkit is built without exceptions; one that passed through it would leave its guards as they are.
TEST_F(Document, AnErrorOfTheApplyButtonOrOfClosingDoesNotPassThroughTheToolkit)
{
    load("a\r\n");
    form->setChanged(-1);
    showActive(*form);
    FakeMessages outermost;
    const UseMessages useOutermost(outermost);
    files.writeError = RuntimeError(RuntimeError::DiskFull, path);
    messages.expectShow("Run-time error '61':\n\nDisk full\n\n" + path, Messages::Icon::Critical);
    press(*form, "ApplyButton");
    messages.verify();
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Yes);
    messages.expectShow("Run-time error '61':\n\nDisk full\n\n" + path, Messages::Icon::Critical);
    EXPECT_FALSE(form->close());
}

TEST_F(Document, WithoutAPathSavingRunsSaveAs)
{
    shell.onSaveAs = [this] {
        form->file().SetInfo(path);
        form->Form_Save_Data();
    };
    form->setChanged(-1);
    form->Form_Save_Data();
    EXPECT_EQ(shell.saveAsCalls, 1);
    EXPECT_TRUE(files.content.contains(path));
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(Document, ACancelledSaveAsStillCountsAsSaved)
{
    form->setChanged(-1);
    form->Form_Save_Data();
    EXPECT_EQ(shell.saveAsCalls, 1);
    EXPECT_EQ(files.writes, 0);
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(Document, AFailedSaveAsKeepsTheChangedFlag)
{
    shell.onSaveAs = [] { throw RuntimeError(RuntimeError::PermissionDenied, path); };
    form->setChanged(-1);
    EXPECT_THROW(form->Form_Save_Data(), RuntimeError);
    EXPECT_EQ(form->changed(), -1);
}

// The status line

TEST_F(Document, ClickingTheThirdOfTenRowsShowsLine3Of10)
{
    load(numberedLines(10));
    form->activateDocument();
    showActive(*form);
    clickRow(list(), 2);
    EXPECT_EQ(shell.status, "Line 3/10");
}

TEST_F(Document, ClickingTheCurrentRowAgainShowsItAgain)
{
    load(numberedLines(10));
    form->activateDocument();
    showActive(*form);
    clickRow(list(), 2);
    shell.setStatusText("something else");
    clickRow(list(), 2);
    EXPECT_EQ(shell.status, "Line 3/10");
}

TEST_F(Document, MovingWithTheKeyboardShowsTheRow)
{
    load(numberedLines(10));
    form->activateDocument();
    showActive(*form);
    list().setFocus();
    key(*form, Qt::Key_Down);
    EXPECT_EQ(shell.status, "Line 1/10");
    key(*form, Qt::Key_End);
    EXPECT_EQ(shell.status, "Line 10/10");
    key(*form, Qt::Key_Up);
    EXPECT_EQ(shell.status, "Line 9/10");
}

TEST_F(Document, NoRowIsCurrentUntilOneIsChosen)
{
    load(numberedLines(10));
    shell.setStatusText("before");
    showActive(*form);
    EXPECT_EQ(list().listIndex(), -1);
    control<QPushButton>(*form, "CloseButton")->setFocus();
    key(*form, Qt::Key_Tab);
    ASSERT_TRUE(list().hasFocus());
    EXPECT_EQ(list().listIndex(), -1);
    EXPECT_EQ(shell.status, "before");
}

// Activation

TEST_F(Document, BecomingActiveShowsItsMenusAndEnablesItsButtons)
{
    form->activateDocument();
    EXPECT_EQ(shell.menus, (QMap<QString, bool>{{"mnuItem", true},
                                                {"mnuFilePrint", true},
                                                {"mnuEdit", true},
                                                {"mnuEditUndo", true},
                                                {"mnuEditBar0", true},
                                                {"mnuEditCopy", true},
                                                {"mnuEditCut", true},
                                                {"mnuEditPaste", true},
                                                {"mnuEditPasteSpecial", false}}));
    EXPECT_EQ(shell.buttons, (QMap<QString, bool>{{"Print", true}, {"Copy", true}, {"Cut", true}, {"Paste", true}}));
}

TEST_F(Document, NoLongerActiveHidesItsMenusAndDisablesItsButtons)
{
    form->activateDocument();
    shell.menus.clear();
    shell.buttons.clear();
    form->deactivateDocument();
    // The entries of the Edit menu that are not named here go with their menu.
    EXPECT_EQ(shell.menus, (QMap<QString, bool>{{"mnuItem", false},
                                                {"mnuFilePrint", false},
                                                {"mnuEdit", false},
                                                {"mnuEditUndo", false},
                                                {"mnuEditBar0", false}}));
    EXPECT_EQ(shell.buttons,
              (QMap<QString, bool>{{"Print", false}, {"Copy", false}, {"Cut", false}, {"Paste", false}}));
}

TEST_F(Document, ItsStatusIsKeptWhileItIsNotActive)
{
    shell.setStatusText("main");
    form->activateDocument();
    EXPECT_EQ(shell.status, "");
    shell.setStatusText("Line 3/10");
    form->deactivateDocument();
    EXPECT_EQ(shell.status, "main");
    form->activateDocument();
    EXPECT_EQ(shell.status, "Line 3/10");
}

TEST_F(Document, SwitchingBetweenTwoDocumentsRestoresEachOnesStatusLine)
{
    ConfigForm other({files, messages, shell, editors, preferences});
    other.setAttribute(Qt::WA_DeleteOnClose, false);
    shell.setStatusText("main");
    form->activateDocument();
    shell.setStatusText("first");
    form->deactivateDocument();
    other.activateDocument();
    EXPECT_EQ(shell.status, "");
    shell.setStatusText("second");
    other.deactivateDocument();
    form->activateDocument();
    EXPECT_EQ(shell.status, "first");
    form->deactivateDocument();
    other.activateDocument();
    EXPECT_EQ(shell.status, "second");
    other.deactivateDocument();
    EXPECT_EQ(shell.status, "main");
}

TEST_F(Document, ActivationCountsOnce)
{
    shell.setStatusText("main");
    form->activateDocument();
    shell.setStatusText("mine");
    form->activateDocument();
    EXPECT_EQ(shell.status, "mine");
    form->deactivateDocument();
    form->deactivateDocument();
    EXPECT_EQ(shell.status, "main");
}

// The remote host

TEST_F(Document, AHostThatMeansNoneKeepsRemoteConnectFlagHidden)
{
    showActive(*form);
    auto *flag = control<QCheckBox>(*form, "RemoteConnectFlag");
    form->setgHost("server1");
    EXPECT_EQ(form->gHost(), QString());
    EXPECT_FALSE(flag->isVisible());
    EXPECT_FALSE(flag->isEnabled());
    EXPECT_FALSE(flag->isChecked());
    flag->setChecked(true);
    EXPECT_FALSE(form->isRemoteConnectRequested());
}

TEST_F(Document, ThereIsNoConnectionToAnotherHost)
{
    EXPECT_EQ(form->TryRemoteConnect("C:"), QString());
}

// Caption

TEST_F(Document, ACaptionWithTheMarkOfChangesIsShownAsItIs)
{
    const QString caption = QStringLiteral("/configs/a[*]b.zcf");
    form->setCaption(caption);
    showActive(*form);
    EXPECT_EQ(form->caption(), caption);
    EXPECT_TRUE(form->windowHandle()->title().contains(caption)) << form->windowHandle()->title().toStdString();
}

TEST_F(Document, ACaptionThatLooksLikeTheMarkTwiceIsShownAsItIs)
{
    const QString caption = QStringLiteral("/configs/[*][*].zcf");
    form->setCaption(caption);
    showActive(*form);
    EXPECT_TRUE(form->windowHandle()->title().contains(caption)) << form->windowHandle()->title().toStdString();
}

// What editors call

TEST_F(Document, ParsesALineAsADocumentDoes)
{
    QString prefix;
    QString object;
    QString flags;
    form->ParseLine(R"(!!"C:\Program Files" $(A))", prefix, object, flags);
    EXPECT_EQ(prefix, "!!");
    EXPECT_EQ(object, "C:\\Program Files");
    EXPECT_EQ(flags, "$(A)");
}

} // namespace

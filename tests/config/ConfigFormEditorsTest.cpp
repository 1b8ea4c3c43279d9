#include "config/KindList.h"
#include "platform/RuntimeError.h"
#include "tests/config/DocumentFixture.h"
#include "tests/support/Errors.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QTest>

#include <string>
#include <vector>

namespace {

/// The document as its editors see it.
class DocumentEditors : public Document
{
protected:
    [[nodiscard]] ItemDocument &asItemDocument() const { return *form; }

    void expectNoItemSelected() { messages.expectShow("No item selected", Messages::Icon::None, "Error"); }
};

// A new item

struct KindCase
{
    const char *name;
    ItemKind kind;
    void (ConfigForm::*edit)(qint16 row);
    QString line;
};

std::string kindName(const testing::TestParamInfo<KindCase> &tested)
{
    std::string name = tested.param.name;
    std::erase(name, ' ');
    return name;
}

// clang-format off
const std::vector<KindCase> kinds {
    {"File",              ItemKind::File,             &ConfigForm::Edit_File,   "C:\\x R"},
    {"Registry",          ItemKind::Registry,         &ConfigForm::Edit_Reg,    "HKLM\\x c"},
    {"User",              ItemKind::User,             &ConfigForm::Edit_User,   "NTUSER:a n"},
    {"Group",             ItemKind::Group,            &ConfigForm::Edit_Group,  "NTGROUP:a n"},
    {"User Right",        ItemKind::UserRight,        &ConfigForm::Edit_Right,  "USERRIGHT:* c"},
    {"Account Policy",    ItemKind::AccountPolicy,    &ConfigForm::Edit_Policy, "ACCOUNTPOLICY c"},
    {"Audit Policy",      ItemKind::AuditPolicy,      &ConfigForm::Edit_Audit,  "AUDITPOLICY"},
    {"Directory Service", ItemKind::DirectoryService, &ConfigForm::Edit_LDAP,   "LDAP:x 1"},
    {"Line",              ItemKind::Line,             &ConfigForm::Edit_Misc,   "; a comment"},
    {"Other",             ItemKind::Other,            &ConfigForm::Edit_Other,  "\\\\server\\share R"},
};
// clang-format on

class EveryKind : public DocumentEditors, public testing::WithParamInterface<KindCase>
{
};

TEST_P(EveryKind, AddNewOpensANewEditorWithItsDefaults)
{
    open({"a"});
    form->AddNew(GetParam().name);
    const FakeEditor &editor = editors.last();
    EXPECT_EQ(editor.kind, GetParam().kind);
    EXPECT_FALSE(editor.isShared);
    EXPECT_TRUE(editor.isNew);
    EXPECT_EQ(editor.document, &asItemDocument());
    EXPECT_EQ(editor.host, "");
    EXPECT_FALSE(editor.isRemote);
    EXPECT_EQ(editor.okCaption, "Add");
    EXPECT_EQ(editor.calls.mid(editor.calls.size() - 2), (QStringList{"SetDefaultItem", "Show"}));
    form->AddNew(GetParam().name);
    EXPECT_NE(&editors.last(), &editor);
    EXPECT_EQ(editors.open().size(), 2);
}

TEST_P(EveryKind, IsChosenInTheDocumentsOwnList)
{
    open({"a"});
    auto *list = control<KindList>(*form, "NewItemList");
    list->setFocus();
    key(*form, Qt::Key_Down);
    ASSERT_TRUE(list->view()->isVisible());
    QTest::mouseClick(list->view()->viewport(), Qt::LeftButton, {},
                      list->view()->visualRect(list->model()->index(list->findText(GetParam().name), 0)).center());
    EXPECT_EQ(editors.last().kind, GetParam().kind);
    EXPECT_TRUE(editors.last().isNew);
}

TEST_P(EveryKind, ItsEditOperationShowsTheCurrentRowInTheSharedEditor)
{
    open({"a", GetParam().line, "b"});
    select({1});
    (form->*GetParam().edit)(-1);
    const FakeEditor &editor = editors.last();
    EXPECT_EQ(editor.kind, GetParam().kind);
    EXPECT_TRUE(editor.isShared);
    EXPECT_FALSE(editor.isNew);
    EXPECT_EQ(editor.row, 1);
    EXPECT_EQ(editor.line, GetParam().line);
    EXPECT_EQ(editor.okCaption, "Apply");
    EXPECT_EQ(editor.calls.mid(editor.calls.size() - 2), (QStringList{"Show", "SetItem"}));
    (form->*GetParam().edit)(2);
    EXPECT_EQ(&editors.last(), &editor);
    EXPECT_EQ(editor.row, 2);
    EXPECT_EQ(editor.line, "b");
}

TEST_P(EveryKind, TheEditCommandOpensTheRowInTheEditorForItsKind)
{
    open({GetParam().line});
    select({0});
    press(*form, "EditButton");
    EXPECT_EQ(editors.last().kind, GetParam().kind);
    EXPECT_EQ(editors.last().line, GetParam().line);
}

TEST_P(EveryKind, WithTheSettingEditEqualTo1EveryRowOpensInTheLineEditor)
{
    preferences.edit = 1;
    open({GetParam().line});
    select({0});
    press(*form, "EditButton");
    EXPECT_EQ(editors.last().kind, ItemKind::Line);
    EXPECT_EQ(editors.last().line, GetParam().line);
}

TEST_P(EveryKind, WithoutAnEditorItOpensNothingAndCannotBeChosen)
{
    editors.setKinds({});
    const ConfigForm other({files, messages, shell, editors, preferences});
    const auto *list = control<KindList>(other, "NewItemList");
    EXPECT_FALSE(list->model()->flags(list->model()->index(list->findText(GetParam().name), 0)) & Qt::ItemIsEnabled);
    open({GetParam().line});
    select({0});
    form->AddNew(GetParam().name);
    press(*form, "EditButton");
    EXPECT_EQ(editors.madeCount(), 0);
}

TEST_P(EveryKind, WithoutACurrentRowItsEditOperationTellsSo)
{
    open({"a"});
    expectNoItemSelected();
    (form->*GetParam().edit)(-1);
    EXPECT_EQ(editors.madeCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind, testing::ValuesIn(kinds), kindName);

TEST_F(DocumentEditors, TheFourAddOperationsOpenTheirKinds)
{
    form->Add_File();
    EXPECT_EQ(editors.last().kind, ItemKind::File);
    form->Add_Reg();
    EXPECT_EQ(editors.last().kind, ItemKind::Registry);
    form->Add_Other();
    EXPECT_EQ(editors.last().kind, ItemKind::Other);
    form->Add_Misc();
    EXPECT_EQ(editors.last().kind, ItemKind::Line);
    EXPECT_EQ(editors.open().size(), 4);
}

TEST_F(DocumentEditors, ANameThatMatchesNoKindDoesNothing)
{
    for (const char *name : {"Audity Policy", "file", "FILE", " File", "", "Misc"})
        form->AddNew(name);
    EXPECT_EQ(editors.madeCount(), 0);
}

// The edit command

TEST_F(DocumentEditors, EditWithoutACurrentRowShowsNoItemSelected)
{
    open({"a"});
    expectNoItemSelected();
    key(list(), Qt::Key_Return);
    messages.verify();
    expectNoItemSelected();
    press(*form, "EditButton");
    EXPECT_EQ(editors.madeCount(), 0);
}

TEST_F(DocumentEditors, ADoubleClickOnARowEditsIt)
{
    open({"a", "C:\\x R"});
    const QPoint row = list().visualRect(list().model()->index(1, 0)).center();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(editors.last().kind, ItemKind::File);
    EXPECT_EQ(editors.last().row, 1);
}

TEST_F(DocumentEditors, EnterEditsTheCurrentRow)
{
    open({"a", "C:\\x R"});
    select({1});
    key(list(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(editors.last().line, "C:\\x R");
    key(list(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(editors.madeCount(), 1);
}

TEST_F(DocumentEditors, ADefaultEditorOtherThan1ChoosesByKind)
{
    preferences.edit = 2;
    open({"C:\\x R"});
    select({0});
    press(*form, "EditButton");
    EXPECT_EQ(editors.last().kind, ItemKind::File);
}

TEST_F(DocumentEditors, ADefaultEditorThatCannotBeReadIsShownAsAnError)
{
    preferences.error = RuntimeError(RuntimeError::TypeMismatch);
    open({"C:\\x R"});
    select({0});
    messages.expectShow(RuntimeError(RuntimeError::TypeMismatch).message(), Messages::Icon::Critical);
    press(*form, "EditButton");
    EXPECT_EQ(editors.madeCount(), 0);
}

TEST_F(DocumentEditors, AnErrorOfTheEditorIsShownAndTheDocumentGoesOn)
{
    editors.onMade = [](FakeEditor &editor) {
        editor.onSetItem = [](const QString &) { throw RuntimeError(RuntimeError::InvalidCall); };
    };
    open({"\""});
    select({0});
    messages.expectShow(RuntimeError(RuntimeError::InvalidCall).message(), Messages::Icon::Critical);
    press(*form, "EditButton");
    EXPECT_EQ(rows(), QStringList{"\""});
}

TEST_F(DocumentEditors, EditTemplateDoesNothingWithoutACurrentRowOrForARowThatIsNotThere)
{
    open({"a"});
    FakeEditor editor(ItemKind::Other, true);
    form->Edit_Template(editor, -1);
    form->Edit_Template(editor, 1);
    EXPECT_TRUE(editor.calls.isEmpty());
    form->Edit_Template(editor, 0);
    EXPECT_EQ(editor.line, "a");
}

// Results

TEST_F(DocumentEditors, AddingWithNoRowCurrentAppendsWithoutASpace)
{
    open({"a"});
    asItemDocument().ItemAddFile("C:\\x", "", "R");
    EXPECT_EQ(rows(), (QStringList{"a", "C:\\xR"}));
    EXPECT_EQ(form->changed(), -1);
    EXPECT_EQ(list().listIndex(), -1);
}

TEST_F(DocumentEditors, AddingWhileARowIsCurrentInsertsBeforeIt)
{
    open({"a", "b", "c"});
    select({0, 2});
    asItemDocument().ItemAddFile("C:\\x", "=", "R");
    EXPECT_EQ(rows(), (QStringList{"a", "b", "=C:\\x R", "c"}));
    EXPECT_EQ(list().listIndex(), 3);
    EXPECT_EQ(selected(), (QList<int>{0, 3}));
    EXPECT_EQ(form->changed(), -1);
}

TEST_F(DocumentEditors, AddingBeforeACurrentRowThatIsNotSelectedSelectsNothing)
{
    open({"a", "b"});
    select({1});
    clickRow(list(), 1, Qt::ControlModifier);
    asItemDocument().ItemAddFile("x", "", "");
    EXPECT_EQ(rows(), (QStringList{"a", "x", "b"}));
    EXPECT_EQ(list().listIndex(), 2);
    EXPECT_EQ(selected(), QList<int>());
}

TEST_F(DocumentEditors, TheObjectIsEscapedAndQuoted)
{
    open({});
    asItemDocument().ItemAddFile("C:\\Program Files\\\u00E9", "!!", "");
    EXPECT_EQ(rows(), QStringList{"!!\"C:\\Program Files\\\\u0x00E9\""});
}

TEST_F(DocumentEditors, AChangeReplacesExactlyItsRowThoughTheSelectionIsAnother)
{
    open({"HKLM\\a c", "b", "c"});
    select({0});
    press(*form, "EditButton");
    select({2});
    editors.last().document->ItemChangeFile("HKLM\\x", "", "k", editors.last().row);
    EXPECT_EQ(rows(), (QStringList{"HKLM\\x k", "b", "c"}));
    EXPECT_EQ(selected(), QList<int>{2});
    EXPECT_EQ(form->changed(), -1);
    form->mnuEditUndo_Click();
    EXPECT_EQ(rows(), (QStringList{"HKLM\\a c", "b", "c"}));
}

TEST_F(DocumentEditors, AChangePutsASpaceInFrontOfFlagsAlsoWhenNoRowIsCurrent)
{
    open({"a"});
    asItemDocument().ItemChangeFile("C:\\x", "", "R", 0);
    EXPECT_EQ(rows(), QStringList{"C:\\x R"});
}

TEST_F(DocumentEditors, AChangeOfARowThatIsNotThereAnyMoreIsAnErrorAndChangesNothing)
{
    open({"a"});
    for (const qint16 row : {qint16(1), qint16(-1), qint16(32767)}) {
        EXPECT_EQ(errorNumberOf([&] { asItemDocument().ItemChangeFile("x", "", "", row); }), 5) << row;
    }
    EXPECT_EQ(rows(), QStringList{"a"});
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentEditors, AnItemThatDoesNotFitIsRefused)
{
    load(numberedLines(32767));
    EXPECT_THROW(asItemDocument().ItemAddFile("x", "", ""), RuntimeError);
    EXPECT_EQ(form->rowList().rowCount(), 32767);
    EXPECT_EQ(form->changed(), 0);
}

TEST_F(DocumentEditors, AnEditorOfADocumentInTheBackLeavesTheStatusLineAlone)
{
    open({"a", "b"});
    select({0});
    form->deactivateDocument();
    shell.setStatusText("another document's");
    shell.enabledMenus.clear();
    asItemDocument().ItemAddFile("x", "", "");
    EXPECT_EQ(shell.status, "another document's");
    EXPECT_TRUE(shell.enabledMenus.isEmpty());
    form->activateDocument();
    EXPECT_EQ(shell.status, "Line 2/3");
    EXPECT_TRUE(shell.enabledMenus["mnuEditUndo"]);
}

// The end

TEST_F(DocumentEditors, AnEditorWhoseDocumentIsClosedClosesWithIt)
{
    open({"a"});
    form->AddNew("File");
    const ItemDocument *document = form;
    form->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
    EXPECT_TRUE(editors.closedFor.contains(document));
    EXPECT_TRUE(editors.open().isEmpty());
}

// The setting of the remote connection

TEST_F(DocumentEditors, RemoteConnectFlagTakesItsValueFromTheSettings)
{
    preferences.remoteConnect = 1;
    const ConfigForm remote({files, messages, shell, editors, preferences});
    EXPECT_TRUE(control<QAbstractButton>(remote, "RemoteConnectFlag")->isChecked());
    EXPECT_FALSE(remote.isRemoteConnectRequested());
    preferences.remoteConnect = 0;
    const ConfigForm local({files, messages, shell, editors, preferences});
    EXPECT_FALSE(control<QAbstractButton>(local, "RemoteConnectFlag")->isChecked());
}

TEST_F(DocumentEditors, WithoutRightsToTheSettingsEachItemIsEditedInTheEditorForItsKind)
{
    preferences.error = RuntimeError::described(RuntimeError::RegistryError, "Unable to create subkey");
    open({"C:\\x R"});
    select({0});
    press(*form, "EditButton");
    EXPECT_EQ(editors.last().kind, ItemKind::File);
}

TEST_F(DocumentEditors, WithASettingThatCannotBeReadRemoteConnectFlagStartsUnchecked)
{
    preferences.error = RuntimeError(RuntimeError::TypeMismatch);
    const ConfigForm other({files, messages, shell, editors, preferences});
    EXPECT_FALSE(control<QAbstractButton>(other, "RemoteConnectFlag")->isChecked());
}

} // namespace

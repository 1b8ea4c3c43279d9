#include "tests/editors/EditorFixture.h"

#include "config/ItemKind.h"

namespace {

using ItemEditorsTest = Editors;

TEST_F(ItemEditorsTest, HaveAFormForTheseKinds)
{
    QStringList kinds;
    for (const ItemKindRow &row : itemKinds) {
        if (editors.hasEditor(row.kind))
            kinds << row.displayName;
    }
    EXPECT_EQ(kinds, (QStringList{"File", "Registry", "User", "Group", "User Right", "Account Policy", "Audit Policy",
                                  "Directory Service", "Line", "Other"}));
}

TEST_F(ItemEditorsTest, GiveEachKindItsForm)
{
    for (const ItemKindRow &row : itemKinds) {
        if (!editors.hasEditor(row.kind))
            continue;
        EXPECT_EQ(dynamic_cast<ItemEditorForm &>(editors.newEditor(row.kind)).objectName(), row.editor);
        EXPECT_EQ(dynamic_cast<ItemEditorForm &>(editors.sharedEditor(row.kind)).objectName(), row.editor);
    }
}

TEST_F(ItemEditorsTest, MakeANewFormForEachNewItem)
{
    const ItemEditorForm &first = add(ItemKind::Line);
    const ItemEditorForm &second = add(ItemKind::Line);
    EXPECT_NE(&first, &second);
    EXPECT_TRUE(first.isVisible());
    EXPECT_NE(&second, &editors.sharedEditor(ItemKind::Line));
}

TEST_F(ItemEditorsTest, ShareOneFormOfAKindForAllEdits)
{
    ItemEditor &line = editors.sharedEditor(ItemKind::Line);
    EXPECT_EQ(&editors.sharedEditor(ItemKind::Line), &line);
    EXPECT_NE(&editors.sharedEditor(ItemKind::Other), &line);
}

TEST_F(ItemEditorsTest, UnloadAFormThatIsClosed)
{
    document.rows = QStringList{"=C:\\x t"};
    const ItemEditorForm *closed = &edit(ItemKind::Other, 0);
    press(*closed, "CancelButton");
    // At once: the old form may not have been deleted yet.
    ItemEditor &next = editors.sharedEditor(ItemKind::Other);
    auto &form = dynamic_cast<ItemEditorForm &>(next);
    EXPECT_NE(&form, closed);
    form.Show();
    for (const char *field : {"ObjectName", "Prefix", "ObjectFlags"})
        EXPECT_EQ(textOf(form, field), "") << field;
    EXPECT_EQ(&editors.sharedEditor(ItemKind::Other), &next);
}

TEST_F(ItemEditorsTest, CloseWithTheirDocument)
{
    FakeDocument another;
    document.rows = QStringList{"; a"};
    const QPointer<ItemEditorForm> changing = &edit(ItemKind::Line, 0);
    const QPointer<ItemEditorForm> adding = &add(ItemKind::Other);
    const QPointer<ItemEditorForm> ofAnother = &add(ItemKind::Line);
    ofAnother->setWindowToAffect(another);

    editors.closeEditorsOf(document);
    EXPECT_FALSE(changing && changing->isVisible());
    EXPECT_FALSE(adding && adding->isVisible());
    EXPECT_TRUE(ofAnother->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !changing && !adding; }));
    EXPECT_NE(&editors.sharedEditor(ItemKind::Line), ofAnother);

    enter(*ofAnother, "Item", "; b");
    press(*ofAnother, "OKButton");
    EXPECT_EQ(another.rows, QStringList{"; b"});
    EXPECT_EQ(document.rows, QStringList{"; a"});
}

TEST_F(ItemEditorsTest, StayOpenWhenTheFormerDocumentCloses)
{
    FakeDocument former;
    former.rows = QStringList{"; former"};
    document.rows = QStringList{"; a"};
    ItemEditorForm &form = edit(ItemKind::Line, 0);
    form.setWindowToAffect(former);
    EXPECT_EQ(&edit(ItemKind::Line, 0), &form);
    editors.closeEditorsOf(former);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(ItemEditorsTest, CloseAFormThatHasNotBeenShownYet)
{
    ItemEditor &prepared = editors.sharedEditor(ItemKind::Line);
    prepare(prepared);
    const QPointer<ItemEditorForm> form = &dynamic_cast<ItemEditorForm &>(prepared);
    editors.closeEditorsOf(document);
    EXPECT_NE(&editors.sharedEditor(ItemKind::Line), &prepared);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
}

TEST_F(ItemEditorsTest, GoWithTheWindowThatTheyStandInFrontOf)
{
    auto mainWindow = std::make_unique<QWidget>();
    editors.setParentWindow(mainWindow.get());
    const QPointer<ItemEditorForm> form = &add(ItemKind::Line);
    const QPointer<ItemEditorForm> shared = &dynamic_cast<ItemEditorForm &>(editors.sharedEditor(ItemKind::Line));
    mainWindow.reset();
    EXPECT_FALSE(form);
    EXPECT_FALSE(shared);
    // What is gone is not looked at any more: neither the forms nor the window.
    editors.closeEditorsOf(document);
    EXPECT_EQ(dynamic_cast<ItemEditorForm &>(editors.sharedEditor(ItemKind::Line)).parentWidget(), nullptr);
}

TEST_F(ItemEditorsTest, EndTheirFormsAtTheirOwnEnd)
{
    QPointer<ItemEditorForm> form;
    {
        ItemEditors others(services);
        form = &openForNew(others.newEditor(ItemKind::Line));
        EXPECT_EQ(form->parentWidget(), nullptr);
    }
    EXPECT_FALSE(form);
}

} // namespace

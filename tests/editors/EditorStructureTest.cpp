#include "config/ItemKind.h"
#include "editors/ConfigDialogFlags.h"
#include "editors/ConfigDialogPrefix.h"
#include "tests/editors/EditorFixture.h"
#include "tests/support/FormStructure.h"

#include <QCheckBox>

namespace {

/// Holds for every form of every kind that has one, and for the choosers. What holds for all forms: FormsTest.
class EditorStructure : public Editors
{
protected:
    [[nodiscard]] QList<QDialog *> forms()
    {
        QList<QDialog *> result{new ConfigDialogFlags(&window), new ConfigDialogPrefix(m_prefix, &window)};
        for (const ItemKindRow &row : itemKinds) {
            if (editors.hasEditor(row.kind)) {
                ItemEditor &editor = editors.newEditor(row.kind);
                prepare(editor);
                editor.setWindowAddFlag(true);
                result << &dynamic_cast<ItemEditorForm &>(editor);
            }
        }
        return result;
    }

    /// Every form, open and with what is disabled at first enabled.
    void withEachOpen(const std::function<void(QDialog &)> &check)
    {
        for (QDialog *form : forms()) {
            SCOPED_TRACE(form->objectName().toStdString());
            show(*form);
            for (QCheckBox *option : form->findChildren<QCheckBox *>())
                option->setChecked(true);
            check(*form);
            form->close();
        }
    }

    static void show(QDialog &form)
    {
        if (auto *editor = qobject_cast<ItemEditorForm *>(&form))
            editor->Show();
        showActive(form);
    }

private:
    QLineEdit m_prefix;
};

TEST_F(EditorStructure, TabBeginsAtTheFirstControlAndEndsAtTheButtons)
{
    withEachOpen([](QDialog &form) {
        EXPECT_EQ(form.focusWidget(), inputsOf(form).first());
        const QStringList round = tabRound(form);
        EXPECT_EQ(round.mid(round.size() - 2), (QStringList{"OKButton", "CancelButton"}));
    });
}

TEST_F(EditorStructure, NoFieldGivesTheDocumentALineBreak)
{
    for (QDialog *form : forms()) {
        SCOPED_TRACE(form->objectName().toStdString());
        if (!form->inherits("ItemEditorForm"))
            continue;
        show(*form);
        for (QCheckBox *option : form->findChildren<QCheckBox *>())
            option->setChecked(true);
        for (QLineEdit *field : form->findChildren<QLineEdit *>())
            field->setText("a\r\nb");
        const qsizetype before = document.rows.size();
        press(*form, "OKButton");
        ASSERT_EQ(document.rows.size(), before + 1);
        EXPECT_FALSE(document.rows.last().contains(u'\r') || document.rows.last().contains(u'\n'))
            << document.rows.last().toStdString();
    }
}

TEST_F(EditorStructure, NoFieldCutsItsTextOff)
{
    withEachOpen([](QDialog &form) {
        for (const QLineEdit *field : form.findChildren<QLineEdit *>())
            EXPECT_GT(field->maxLength(), 1'000'000) << field->objectName().toStdString();
    });
}

// Dialogs of a form

struct DialogCase
{
    const char *name;
    ItemKind kind;
    const char *button;
};

class DialogOfAnEditor : public Editors, public testing::WithParamInterface<DialogCase>
{
};

// The document of an editor may close at any time. A dialog that came back to a form that is gone would write into it.
TEST_P(DialogOfAnEditor, GoesWithItsEditor)
{
    fileSystem.addDrive("C:\\");
    const QPointer<ItemEditorForm> form = &add(GetParam().kind);
    const auto closed = onNextDialog([this, &form](QWidget &) {
        editors.closeEditorsOf(document);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
    });
    press(*form, GetParam().button);
    EXPECT_TRUE(closed->handled);
    EXPECT_FALSE(form);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Dialogs, DialogOfAnEditor, testing::Values(
    DialogCase{"OpenFile",         ItemKind::File,             "ObjBrowse"},
    DialogCase{"Drives",           ItemKind::File,             "DriveBrowse"},
    DialogCase{"RegistryKeys",     ItemKind::Registry,         "ObjBrowse"},
    DialogCase{"Users",            ItemKind::User,             "Browse"},
    DialogCase{"Groups",           ItemKind::Group,            "Browse"},
    DialogCase{"DirectoryEntries", ItemKind::DirectoryService, "ObjBrowse"},
    DialogCase{"Flags",            ItemKind::Other,            "FlagsInquire"},
    DialogCase{"Prefixes",         ItemKind::Other,            "ButtonPrefixQuery"}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

} // namespace

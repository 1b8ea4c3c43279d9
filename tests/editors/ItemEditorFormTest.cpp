#include "platform/ByteText.h"
#include "tests/editors/EditorFixture.h"

#include <QAbstractButton>

namespace {

using ItemEditorFormTest = Editors;

const QString error5 = RuntimeError(RuntimeError::InvalidCall).message();
const QString error6 = RuntimeError(RuntimeError::Overflow).message();

bool isGone(const QPointer<ItemEditorForm> &form)
{
    return QTest::qWaitFor([&] { return !form; });
}

TEST_F(ItemEditorFormTest, StaysOpenWithANewItemThroughAnyNumberOfThem)
{
    const ItemEditorForm &form = add(ItemKind::Line);
    for (const char *line : {"; one", "; two", "; two"}) {
        enter(form, "Item", line);
        press(form, "OKButton");
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(textOf(form, "Item"), line);
    }
    EXPECT_EQ(document.rows, (QStringList{"; one", "; two", "; two"}));
}

TEST_F(ItemEditorFormTest, ChangesItsRowAndCloses)
{
    document.rows = QStringList{"; a", "; b", "; c"};
    const QPointer<ItemEditorForm> form = &edit(ItemKind::Line, 1);
    enter(*form, "Item", "; changed");
    press(*form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"; a", "; changed", "; c"}));
    EXPECT_TRUE(isGone(form));
}

TEST_F(ItemEditorFormTest, TheButtonSaysWhatItDoes)
{
    document.rows = QStringList{"; a"};
    EXPECT_EQ(control<QAbstractButton>(add(ItemKind::Line), "OKButton")->text(), "Add");
    EXPECT_EQ(control<QAbstractButton>(edit(ItemKind::Line, 0), "OKButton")->text(), "Apply");
    const auto &untouched = dynamic_cast<ItemEditorForm &>(editors.newEditor(ItemKind::Line));
    EXPECT_EQ(control<QAbstractButton>(untouched, "OKButton")->text(), "&Apply");
}

TEST_F(ItemEditorFormTest, EnterInAFieldConfirms)
{
    const ItemEditorForm &form = add(ItemKind::Other);
    enter(form, "ObjectName", "C:\\x");
    enter(form, "ObjectFlags", "t");
    QTest::keyClick(control<QLineEdit>(form, "ObjectName"), Qt::Key_Return);
    QTest::keyClick(control<QLineEdit>(form, "ObjectFlags"), Qt::Key_Enter);
    EXPECT_EQ(document.rows, (QStringList{"C:\\x t", "C:\\x t"}));
}

TEST_F(ItemEditorFormTest, ClosingChangesNothingHoweverItIsDone)
{
    using Gesture = void (*)(ItemEditorForm &);
    for (const Gesture gesture : {
             +[](ItemEditorForm &form) { press(form, "CancelButton"); },
             +[](ItemEditorForm &form) { QTest::keyClick(control<QLineEdit>(form, "Item"), Qt::Key_Escape); },
             +[](ItemEditorForm &form) { form.close(); },
         }) {
        document.rows = QStringList{"; a"};
        const QPointer<ItemEditorForm> changing = &edit(ItemKind::Line, 0);
        enter(*changing, "Item", "; typed");
        gesture(*changing);
        EXPECT_TRUE(isGone(changing));
        const QPointer<ItemEditorForm> adding = &add(ItemKind::Line);
        enter(*adding, "Item", "; typed");
        gesture(*adding);
        EXPECT_TRUE(isGone(adding));
        EXPECT_EQ(document.rows, QStringList{"; a"});
    }
}

TEST_F(ItemEditorFormTest, AFullDocumentIsReportedAndNothingTypedIsLost)
{
    document.error = RuntimeError(RuntimeError::Overflow);
    const ItemEditorForm &form = add(ItemKind::Line);
    enter(form, "Item", "; typed");
    messages.expectShow(error6, Messages::Icon::Critical);
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(textOf(form, "Item"), "; typed");
    // Once there is room again it goes on.
    document.error.reset();
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"; typed"});
}

TEST_F(ItemEditorFormTest, ARowThatIsGoneIsReportedAndNothingTypedIsLost)
{
    document.rows = QStringList{"; a", "; b"};
    const ItemEditorForm &form = edit(ItemKind::Line, 1);
    enter(form, "Item", "; typed");
    document.rows.removeLast();
    messages.expectShow(error5, Messages::Icon::Critical);
    press(form, "OKButton");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(textOf(form, "Item"), "; typed");
    EXPECT_EQ(document.rows, QStringList{"; a"});
}

TEST_F(ItemEditorFormTest, ALineThatCannotBeTakenApartIsNotMixedUpWithTheOneBefore)
{
    // Were the form left open, it would put the first row's content into the second.
    document.rows = QStringList{R"(\\server\x t)", R"("="\)"};
    const QPointer<ItemEditorForm> form = &edit(ItemKind::Other, 0);
    EXPECT_EQ(textOf(*form, "ObjectName"), R"(\\server\x)");
    try {
        (void)edit(ItemKind::Other, 1);
        ADD_FAILURE() << "the line was taken apart";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), 5);
    }
    EXPECT_TRUE(isGone(form));
}

TEST_F(ItemEditorFormTest, AnotherRowTakesTheOpenFormOver)
{
    document.rows = QStringList{"; a", "; b"};
    const ItemEditorForm &first = edit(ItemKind::Line, 0);
    enter(first, "Item", "; not confirmed");
    const ItemEditorForm &second = edit(ItemKind::Line, 1);
    EXPECT_EQ(&first, &second);
    EXPECT_EQ(textOf(second, "Item"), "; b");
    enter(second, "Item", "; B");
    press(second, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"; a", "; B"}));
}

TEST_F(ItemEditorFormTest, PastedLineBreaksBecomeBlanks)
{
    // Otherwise one row would become several.
    const ItemEditorForm &form = add(ItemKind::Other);
    enter(form, "ObjectName", "C:\\a\nb");
    enter(form, "Prefix", "!\r");
    enter(form, "ObjectFlags", "x\r\ny\tz");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"! \"C:\\a b\" x  y\tz"});
}

TEST_F(ItemEditorFormTest, WhatBreaksNoRowIsKept)
{
    // A tab, characters that only look like line breaks, a character of code zero, a byte carried over from an old
    // file.
    const QString line = QString("; a\tb") + QChar(0x2028) + QChar(0x2029) + QChar(0x85) + QChar(0x0B) + QChar(0x0C) +
                         QChar(0) + QChar(0xDCE9) + "  ";
    document.rows = QStringList{line};
    press(edit(ItemKind::Line, 0), "OKButton");
    EXPECT_EQ(document.rows, QStringList{line});
}

TEST_F(ItemEditorFormTest, BytesOfAnOldFileAreShownReadablyAndKeptWhereNothingIsChanged)
{
    const QString line = decodeBytes("; Gr\xF6\xDF"
                                     "e alt \xFC.");
    document.rows = QStringList{line};
    const ItemEditorForm &form = edit(ItemKind::Line, 0);
    EXPECT_EQ(textOf(form, "Item"), "; Gr\u00F6\u00DFe alt \u00FC.");
    auto *field = control<QLineEdit>(form, "Item");
    field->setSelection(8, 3);
    field->insert("ne\u00FC");
    press(form, "OKButton");
    // What was typed is text, also where it looks like what was there before.
    EXPECT_EQ(document.rows, QStringList{decodeBytes("; Gr\xF6\xDF"
                                                     "e ne\xC3\xBC \xFC.")});
}

TEST_F(ItemEditorFormTest, BytesInTheFlagsAreShownReadablyAndKept)
{
    // Flags are not escaped: another byte would be another flag.
    document.rows = QStringList{decodeBytes("HKLM\\x c\xE9")};
    const ItemEditorForm &form = edit(ItemKind::Registry, 0);
    EXPECT_EQ(textOf(form, "OtherFlags"), "\u00E9");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{decodeBytes("HKLM\\x c,\xE9")});
}

TEST_F(ItemEditorFormTest, ALongLineIsNotCutOff)
{
    // A field of the toolkit takes 32,767 characters unless it is told otherwise.
    const QString line = "; " + QString(100'000, u'x') + "!";
    document.rows = QStringList{line};
    press(edit(ItemKind::Line, 0), "OKButton");
    EXPECT_EQ(document.rows, QStringList{line});
}

TEST_F(ItemEditorFormTest, StandsInFrontOfTheMainWindowWithoutBlockingIt)
{
    const ItemEditorForm &form = add(ItemKind::Line);
    EXPECT_TRUE(form.isWindow());
    EXPECT_EQ(form.parentWidget(), &window);
    EXPECT_EQ(form.windowModality(), Qt::NonModal);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(form.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
}

TEST_F(ItemEditorFormTest, ShowBringsAnOpenFormBackWithTheFirstFieldInFocus)
{
    document.rows = QStringList{"C:\\x t"};
    ItemEditorForm &form = edit(ItemKind::Other, 0);
    EXPECT_EQ(form.focusWidget()->objectName(), "ObjectName");
    control<QWidget>(form, "CancelButton")->setFocus();
    form.showMinimized();
    form.Show();
    EXPECT_FALSE(form.isMinimized());
    awaitActive(form);
    EXPECT_EQ(form.focusWidget()->objectName(), "ObjectName");
}

} // namespace

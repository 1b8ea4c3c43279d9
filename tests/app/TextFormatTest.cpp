#include "tests/app/ProgramFixture.h"

#include <QTextEdit>

namespace {

class TextButtons : public Program
{
protected:
    void SetUp() override
    {
        fakeFiles.content["/a.zcf"] = "a\r\n";
        fakeFiles.content["/b.zcf"] = "b\r\n";
        start({"/a.zcf", "/b.zcf"});
    }

    /// Puts a rich-text control into a document.
    QTextEdit &addText(ConfigForm &form, const QString &text)
    {
        auto *edit = new QTextEdit(text, &form);
        edit->setObjectName("rtfText");
        edit->show();
        return *edit;
    }

    static void select(QTextEdit &text, int anchor, int position)
    {
        QTextCursor cursor = text.textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        text.setTextCursor(cursor);
    }

    /// For each character "x" when it is so, else ".".
    template<class Is>
    static QString marks(const QTextEdit &text, const Is &is)
    {
        QString result;
        QTextCursor cursor(text.document());
        for (int place = 1; place < text.document()->characterCount(); ++place) {
            cursor.setPosition(place);
            result += is(cursor.charFormat()) ? 'x' : '.';
        }
        return result;
    }

    static QString bold(const QTextEdit &text)
    {
        return marks(text, [](const QTextCharFormat &format) { return format.fontWeight() >= QFont::Bold; });
    }
    static QString italic(const QTextEdit &text)
    {
        return marks(text, [](const QTextCharFormat &format) { return format.fontItalic(); });
    }
    static QString underlined(const QTextEdit &text)
    {
        return marks(text, [](const QTextCharFormat &format) { return format.fontUnderline(); });
    }
};

const QStringList &keys()
{
    static const QStringList all{"Bold", "Italic", "Underline", "Align Left", "Center", "Align Right"};
    return all;
}

TEST_F(TextButtons, FlipTheSelectedText)
{
    QTextEdit &text = addText(document(1), "abcdef");
    select(text, 1, 3);
    press(*window, "Bold");
    EXPECT_EQ(bold(text), ".xx...");
    select(text, 2, 5);
    press(*window, "Italic");
    EXPECT_EQ(italic(text), "..xxx.");
    select(text, 0, 6);
    press(*window, "Underline");
    EXPECT_EQ(underlined(text), "xxxxxx");
    EXPECT_EQ(bold(text), ".xx...");
    press(*window, "Underline");
    EXPECT_EQ(underlined(text), "......");
    select(text, 2, 5);
    press(*window, "Italic");
    EXPECT_EQ(italic(text), "......");
    select(text, 1, 3);
    press(*window, "Bold");
    EXPECT_EQ(bold(text), "......");
}

// The toolkit's own answer for a selection is that of the character in front of the cursor, which stands at the
// selection's begin here.
TEST_F(TextButtons, FlipATextThatWasSelectedBackwards)
{
    QTextEdit &text = addText(document(1), "abcdef");
    select(text, 5, 2);
    press(*window, "Bold");
    EXPECT_EQ(bold(text), "..xxx.");
    press(*window, "Bold");
    EXPECT_EQ(bold(text), "......");
}

TEST_F(TextButtons, MakeATextThatIsPartlySoWhollySo)
{
    QTextEdit &text = addText(document(1), "abcdef");
    select(text, 3, 6);
    press(*window, "Bold");
    select(text, 0, 6);
    press(*window, "Bold");
    EXPECT_EQ(bold(text), "xxxxxx");
}

TEST_F(TextButtons, FlipSeveralParagraphs)
{
    QTextEdit &text = addText(document(1), "<p>ab</p><p>cd</p>");
    text.selectAll();
    press(*window, "Bold");
    EXPECT_EQ(bold(text).remove(2, 1), "xxxx");
    press(*window, "Bold");
    EXPECT_EQ(bold(text).remove(2, 1), "....");
}

TEST_F(TextButtons, WithoutASelectionFlipWhatIsTypedNext)
{
    QTextEdit &text = addText(document(1), "ab");
    text.moveCursor(QTextCursor::End);
    press(*window, "Bold");
    text.insertPlainText("cd");
    press(*window, "Bold");
    text.insertPlainText("ef");
    EXPECT_EQ(bold(text), "..xx..");
}

TEST_F(TextButtons, AlignTheParagraph)
{
    QTextEdit &text = addText(document(1), "ab");
    press(*window, "Align Right");
    EXPECT_EQ(text.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    press(*window, "Center");
    EXPECT_EQ(text.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    press(*window, "Align Left");
    EXPECT_EQ(text.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
}

TEST_F(TextButtons, GoToTheActiveDocumentOnly)
{
    QTextEdit &first = addText(document(0), "ab");
    QTextEdit &second = addText(document(1), "ab");
    first.selectAll();
    second.selectAll();
    activate(document(0));
    press(*window, "Bold");
    EXPECT_EQ(bold(first), "xx");
    EXPECT_EQ(bold(second), "..");
}

TEST_F(TextButtons, DoNothingToADocumentWithoutSuchAControl)
{
    auto *other = new QTextEdit("ab", &document(1));
    other->setObjectName("PrintBox");
    other->selectAll();
    const QString before = other->toHtml();
    for (const QString &key : keys())
        press(*window, qPrintable(key));
    EXPECT_EQ(other->toHtml(), before);
    EXPECT_EQ(document(1).rowList().rows(), QStringList{"b"});
    EXPECT_EQ(document(1).changed(), 0);
}

TEST_F(TextButtons, DoNothingWithoutADocument)
{
    trigger(*window, "mnuFileClose");
    trigger(*window, "mnuFileClose");
    for (const QString &key : keys())
        press(*window, qPrintable(key));
    EXPECT_EQ(window->activeDocument(), nullptr);
}

} // namespace

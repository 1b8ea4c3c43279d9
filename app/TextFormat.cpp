#include "app/TextFormat.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>
#include <array>

namespace {

struct TextRow
{
    QLatin1String key;
    TextCommand run;
};

bool isBold(const QTextCharFormat &format)
{
    return format.fontWeight() >= QFont::Bold;
}

/// Whether all of the selected characters are so.
template<class Is>
bool isWholly(const QTextEdit &text, const Is &is)
{
    QTextCursor cursor = text.textCursor();
    if (!cursor.hasSelection())
        return is(text.currentCharFormat());
    const int end = cursor.selectionEnd();
    // The format at a place is that of the character in front of it.
    for (int place = cursor.selectionStart() + 1; place <= end; ++place) {
        if (text.document()->characterAt(place - 1) == QChar::ParagraphSeparator)
            continue;
        cursor.setPosition(place);
        if (!is(cursor.charFormat()))
            return false;
    }
    return true;
}

void flipBold(QTextEdit &text)
{
    text.setFontWeight(isWholly(text, isBold) ? QFont::Normal : QFont::Bold);
}

void flipItalic(QTextEdit &text)
{
    text.setFontItalic(!isWholly(text, [](const QTextCharFormat &format) { return format.fontItalic(); }));
}

void flipUnderline(QTextEdit &text)
{
    text.setFontUnderline(!isWholly(text, [](const QTextCharFormat &format) { return format.fontUnderline(); }));
}

template<Qt::AlignmentFlag alignment>
void align(QTextEdit &text)
{
    text.setAlignment(alignment);
}

// clang-format off
constexpr std::array<TextRow, 6> textCommands {{
    {QLatin1String("Bold"),        flipBold},
    {QLatin1String("Italic"),      flipItalic},
    {QLatin1String("Underline"),   flipUnderline},
    {QLatin1String("Align Left"),  align<Qt::AlignLeft>},
    {QLatin1String("Center"),      align<Qt::AlignHCenter>},
    {QLatin1String("Align Right"), align<Qt::AlignRight>},
}};
// clang-format on

} // namespace

TextCommand textCommand(QLatin1String key)
{
    const auto row =
        std::find_if(textCommands.begin(), textCommands.end(), [key](const TextRow &each) { return each.key == key; });
    return row == textCommands.end() ? nullptr : row->run;
}

#include "tests/support/FormLooks.h"
#include "settings/Icons.h"
#include "tests/integration/Forms.h"
#include "tests/support/FormStructure.h"

#include <QDir>
#include <QImage>

namespace {

/// What the user has chosen for the whole desktop, for as long as it lives: longer than any window.
class DesktopLooks
{
public:
    DesktopLooks(const DesktopLooks &) = delete;
    DesktopLooks &operator=(const DesktopLooks &) = delete;

protected:
    explicit DesktopLooks(const QFont &font, const QPalette &palette = QApplication::palette())
    {
        QApplication::setFont(font);
        QApplication::setPalette(palette);
    }

    ~DesktopLooks()
    {
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
    }

private:
    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
};

// Fonts

struct FontCase
{
    const char *name;
    /// How large and how wide the characters are, in percent of the usual.
    int size;
    int stretch;
};

QFont fontOf(const FontCase &chosen)
{
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * chosen.size / 100);
    font.setStretch(chosen.stretch);
    return font;
}

class FormsInFont : private DesktopLooks, public Forms, public testing::WithParamInterface<FontCase>
{
protected:
    FormsInFont()
        : DesktopLooks(fontOf(GetParam()))
    {
    }
};

TEST_P(FormsInFont, HaveRoomForAllOfTheirTexts)
{
    withEach(
        [](const Row &, QWidget &form) { onEachPage(form, [&] { EXPECT_EQ(clippedTexts(form), QStringList()); }); });
}

TEST_P(FormsInFont, HaveRoomForAllOfTheirTextsWhenTheyAreAsSmallAsCanBe)
{
    withEach([](const Row &, QWidget &form) {
        form.window()->resize(1, 1);
        settle();
        onEachPage(form, [&] { EXPECT_EQ(clippedTexts(form), QStringList()); });
    });
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, FormsInFont, testing::Values(
    FontCase{"Usual",         100, 100},
    FontCase{"HalfAsLarge",   150, 100},
    FontCase{"TwiceAsLarge",  200, 100},
    FontCase{"ThriceAsLarge", 300, 100},
    // Fonts of other systems and languages.
    FontCase{"Wide",          110, 150},
    FontCase{"Narrow",        100,  75}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

TEST_F(Forms, FitASmallScreen)
{
    withEach([](const Row &, QWidget &form) {
        // A notebook of 1920 by 1080 pixels that shows all at 150 %, less the window's frame and the desktop's bar.
        EXPECT_LE(form.window()->minimumSizeHint().width(), 1240);
        EXPECT_LE(form.window()->minimumSizeHint().height(), 640);
    });
}

// Colours

struct ColorCase
{
    const char *name;
    QRgb window;
    QRgb base;
    QRgb text;
    QRgb highlight;
    QRgb highlightedText;
};

QPalette paletteOf(const ColorCase &colors)
{
    QPalette palette(QColor(colors.text), QColor(colors.window), QColor(colors.window).lighter(),
                     QColor(colors.window).darker(), QColor(colors.window).darker(120), QColor(colors.text),
                     QColor(colors.highlightedText), QColor(colors.base), QColor(colors.window));
    palette.setColor(QPalette::Highlight, QColor(colors.highlight));
    palette.setColor(QPalette::HighlightedText, QColor(colors.highlightedText));
    return palette;
}

/// Smooth edges would thin the colour of a text.
QFont fontWithSharpEdges()
{
    QFont font = QApplication::font();
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

QImage pictureOf(QWidget &form)
{
    return form.grab().toImage();
}

// clang-format off
constexpr std::array<ColorCase, 4> colorCases {{
    {"Light", 0xffefefef, 0xffffffff, 0xff000000, 0xff308cc6, 0xff000000},
    {"Dark",  0xff31363b, 0xff232629, 0xffeff0f1, 0xff2a82da, 0xff000000},
    {"Black", 0xff000000, 0xff000000, 0xffffffff, 0xff00ffff, 0xff000000},
    {"White", 0xffffffff, 0xffffffff, 0xff000000, 0xff37006e, 0xffffffff},
}};
// clang-format on

class FormsInColors : private DesktopLooks, public Forms, public testing::WithParamInterface<ColorCase>
{
protected:
    FormsInColors()
        : DesktopLooks(fontWithSharpEdges(), paletteOf(GetParam()))
    {
    }

    /// Of each row's text to what is behind it.
    void expectRowsToBeReadable(const char *state)
    {
        ConfigListView &rows = list(document(0));
        const QImage picture = pictureOf(*rows.viewport());
        for (int row = 0; row < rows.model()->rowCount(); ++row) {
            // Without the frame that tells the current one.
            const QRect place = rows.visualRect(rows.model()->index(row, 0)).adjusted(2, 2, -2, -2);
            EXPECT_GE(contrastIn(picture, place), readableContrast) << "row " << row << ' ' << state;
        }
    }
};

TEST_P(FormsInColors, HaveTextsThatCanBeRead)
{
    withEach([](const Row &, QWidget &form) {
        for (QLineEdit *field : form.findChildren<QLineEdit *>())
            field->setText("text");
        onEachPage(form, [&] {
            const QImage picture = pictureOf(form);
            const QList<ShownText> texts = shownTexts(form);
            EXPECT_FALSE(texts.isEmpty());
            for (const ShownText &text : texts)
                EXPECT_GE(contrastIn(picture, text.place), readableContrast) << text.control.toStdString();
        });
    });
}

TEST_P(FormsInColors, HaveRowsThatCanBeRead)
{
    expectRowsToBeReadable("as it is");
    clickRow(list(document(0)), 0);
    clickRow(list(document(0)), 1, Qt::ControlModifier);
    expectRowsToBeReadable("selected");
    clickRow(list(document(0)), 1, Qt::ControlModifier);
    expectRowsToBeReadable("current, but not selected");
    QWidget other;
    showActive(other);
    expectRowsToBeReadable("behind another window");
}

TEST_P(FormsInColors, TellSelectedRowsFromOthers)
{
    ConfigListView &rows = list(document(0));
    clickRow(rows, 1);
    const QImage picture = pictureOf(*rows.viewport());
    const auto behind = [&](int row) {
        // Between the edge and the text there is a space.
        return picture.pixelColor(rows.visualRect(rows.model()->index(row, 0)).left() + 2,
                                  rows.visualRect(rows.model()->index(row, 0)).center().y());
    };
    EXPECT_GE(contrast(behind(1), behind(0)), visibleContrast);
}

TEST_P(FormsInColors, ShowEveryIcon)
{
    const QColor behind = QApplication::palette().color(QPalette::Window);
    for (const QFileInfo &file : QDir(":/icons").entryInfoList()) {
        const QImage picture = themedIcon(QLatin1String(file.completeBaseName().toLatin1())).pixmap(64).toImage();
        int opaque = 0;
        int visible = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor color = picture.pixelColor(x, y);
                opaque += color.alpha() == 255 ? 1 : 0;
                visible += color.alpha() == 255 && contrast(color, behind) >= visibleContrast ? 1 : 0;
            }
        }
        EXPECT_GT(visible, opaque / 2) << file.fileName().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, FormsInColors, testing::ValuesIn(colorCases),
                         [](const auto &tested) { return tested.param.name; });

} // namespace

#include "platform/RuntimeError.h"
#include "tests/config/DocumentFixture.h"

#include <QDialogButtonBox>
#include <QFontDialog>
#include <QFontInfo>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

namespace {

/// A family that the tests' machine has, and that is not the application's.
const QString otherFamily = QStringLiteral("DejaVu Sans Mono");

/// Documents and the font dialog.
class DocumentFont : public Document
{
protected:
    /// Runs the Font command and changes the font in its dialog.
    void changeFont(const std::function<void(QFont &)> &change)
    {
        const auto asked = onNextDialog([&](QWidget &dialog) {
            auto *fonts = qobject_cast<QFontDialog *>(&dialog);
            ASSERT_NE(fonts, nullptr);
            proposed = fonts->currentFont();
            QFont font = fonts->currentFont();
            change(font);
            fonts->setCurrentFont(font);
            auto *buttons = fonts->findChild<QDialogButtonBox *>();
            ASSERT_NE(buttons, nullptr);
            QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        form->ChangeFont();
        ASSERT_TRUE(asked->handled);
    }

    /// The font of the list of a document that is opened now.
    [[nodiscard]] QFont fontOfNewDocument()
    {
        const ConfigForm opened({files, messages, shell, editors, preferences});
        return control<ConfigListView>(opened, "ConfigList")->font();
    }

    QFont proposed;
    const QFont usual = list().font();
};

TEST_F(DocumentFont, TheFontDialogChangesTheListsFontAndTheHorizontalExtent)
{
    load("the widest of all these rows\r\n");
    showActive(*form);
    const int before = list().horizontalExtent();
    changeFont([](QFont &font) { font.setPointSize(30); });
    EXPECT_EQ(proposed.pointSize(), QApplication::font().pointSize());
    EXPECT_EQ(list().font().pointSize(), 30);
    EXPECT_GT(list().horizontalExtent(), 2 * before);
    EXPECT_EQ(list().horizontalExtent(), extentOf("the widest of all these rows"));
}

TEST_F(DocumentFont, ACancelledFontDialogChangesNothing)
{
    load("a row\r\n");
    showActive(*form);
    const int extent = list().horizontalExtent();
    const auto asked = onNextDialog([](QWidget &dialog) {
        auto *fonts = qobject_cast<QFontDialog *>(&dialog);
        ASSERT_NE(fonts, nullptr);
        QFont large = fonts->currentFont();
        large.setPointSize(30);
        fonts->setCurrentFont(large);
        fonts->reject();
    });
    form->ChangeFont();
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(list().font(), usual);
    EXPECT_EQ(list().horizontalExtent(), extent);
    EXPECT_EQ(preferences.font.family, std::nullopt);
    EXPECT_EQ(preferences.font.size, std::nullopt);
}

TEST_F(DocumentFont, AFontFromOutsideIsMeasuredAsWell)
{
    load("the widest of all these rows\r\n");
    QFont large = form->font();
    large.setPointSize(30);
    form->setFont(large);
    EXPECT_EQ(list().horizontalExtent(), extentOf("the widest of all these rows"));
}

TEST_F(DocumentFont, TheFontDialogStoresItsFontForNewDocuments)
{
    showActive(*form);
    changeFont([](QFont &font) {
        font.setFamilies({otherFamily});
        font.setPointSize(17);
    });
    EXPECT_EQ(preferences.font.family, otherFamily);
    EXPECT_EQ(preferences.font.size, 17);
    EXPECT_EQ(QFontInfo(fontOfNewDocument()).family(), otherFamily);
    EXPECT_EQ(fontOfNewDocument().pointSize(), 17);
}

TEST_F(DocumentFont, ANewDocumentHasTheUsualFontUntilOneIsStored)
{
    EXPECT_EQ(fontOfNewDocument(), usual);
    EXPECT_NE(QFontInfo(usual).family(), otherFamily);
}

TEST_F(DocumentFont, ANewDocumentHasTheStoredFontAndMeasuresItsRowsInIt)
{
    preferences.font = {otherFamily, 25};
    const auto opened =
        std::make_unique<ConfigForm>(ConfigForm::Services{files, messages, shell, editors, preferences});
    files.content[documentPath] = "a row\r\n";
    opened->file().SetInfo(documentPath);
    qint16 result = 0;
    opened->Form_Load_Data(0, result);
    const auto *rows = control<ConfigListView>(*opened, "ConfigList");
    EXPECT_EQ(rows->horizontalExtent(), int(std::ceil(QFontMetricsF(rows->font()).horizontalAdvance("  a row"))));
    EXPECT_EQ(rows->font().pointSize(), 25);
}

TEST_F(DocumentFont, OfAStoredFontThatTheMachineDoesNotHaveTheSizeIsTaken)
{
    preferences.font = {QStringLiteral("MS Sans Serif of another machine"), 25};
    EXPECT_EQ(QFontInfo(fontOfNewDocument()).family(), QFontInfo(usual).family());
    EXPECT_EQ(fontOfNewDocument().pointSize(), 25);
}

TEST_F(DocumentFont, ASizeThatNoFontHasIsNotTaken)
{
    for (const int size : {-32768, -1, 0, 513, 32767}) {
        preferences.font = {otherFamily, qint16(size)};
        EXPECT_EQ(fontOfNewDocument().pointSize(), usual.pointSize()) << size;
        EXPECT_EQ(QFontInfo(fontOfNewDocument()).family(), otherFamily) << size;
    }
    preferences.font = {std::nullopt, qint16(512)};
    EXPECT_EQ(fontOfNewDocument().pointSize(), 512);
}

TEST_F(DocumentFont, AFontThatCannotBeReadKeepsNoDocumentFromBeingOpened)
{
    preferences.font = {otherFamily, 25};
    preferences.error = RuntimeError(RuntimeError::TypeMismatch);
    EXPECT_EQ(fontOfNewDocument(), usual);
}

TEST_F(DocumentFont, AFontThatCannotBeStoredIsTheDocumentsAllTheSame)
{
    showActive(*form);
    preferences.error = RuntimeError::described(RuntimeError::RegistryError, "Unable to create subkey");
    EXPECT_THROW(changeFont([](QFont &font) { font.setPointSize(30); }), RuntimeError);
    EXPECT_EQ(list().font().pointSize(), 30);
}

} // namespace

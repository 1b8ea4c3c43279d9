#include "tests/app/ProgramFixture.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

namespace {

/// The toolkit's own print dialogs. There is no printer: what is printed becomes a PDF file.
class Printing : public ProgramOnFiles
{
protected:
    static void SetUpTestSuite() { qputenv("CUPS_SERVER", "/nowhere"); }

    void SetUp() override
    {
        start({write("my config.zcf", "a1\r\na2\r\n")});
        window->activateWindow();
    }

    /// Presses the button that accepts a dialog.
    static void accept(QWidget &dialog)
    {
        const auto *buttons = dialog.findChild<QDialogButtonBox *>();
        ASSERT_NE(buttons, nullptr);
        for (QAbstractButton *button : buttons->buttons()) {
            if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        EXPECT_FALSE(dialog.isVisible()) << "the dialog does not take what it proposes";
    }

    /// Runs an entry and accepts its dialog, after some steps on it.
    void acceptIn(const char *entry, const std::function<void(QWidget &dialog)> &steps)
    {
        const auto asked = onNextDialog([&](QWidget &dialog) {
            steps(dialog);
            accept(dialog);
        });
        trigger(*window, entry);
        EXPECT_TRUE(asked->handled) << entry;
    }

    [[nodiscard]] static bool isPdf(const QString &path) { return bytesOf(path).startsWith("%PDF-"); }
};

TEST_F(Printing, PageSetupHasItsTitle)
{
    const auto asked = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "PageSetupDialog");
        EXPECT_EQ(dialog.windowTitle(), "Page Setup");
    });
    trigger(*window, "mnuFilePageSetup");
    EXPECT_TRUE(asked->handled);
}

TEST_F(Printing, PageSetupNeedsNoDocument)
{
    trigger(*window, "mnuFileClose");
    const auto asked = onNextDialog([](QWidget &) {});
    trigger(*window, "mnuFilePageSetup");
    EXPECT_TRUE(asked->handled);
}

TEST_F(Printing, PrintHasItsTitleAndProposesAFileNamedForTheDocument)
{
    const auto asked = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "PrintDialog");
        EXPECT_EQ(dialog.windowTitle(), "Print");
        EXPECT_EQ(control<QLineEdit>(dialog, "filename")->text(), QDir::home().filePath("my config.pdf"));
    });
    trigger(*window, "mnuFilePrint");
    EXPECT_TRUE(asked->handled);
    EXPECT_FALSE(QFileInfo::exists(QDir::home().filePath("my config.pdf")));
}

TEST_F(Printing, PrintWritesTheDocumentWhereTheDialogSays)
{
    acceptIn("mnuFilePrint", [this](QWidget &dialog) { control<QLineEdit>(dialog, "filename")->setText(at("x.pdf")); });
    EXPECT_TRUE(isPdf(at("x.pdf")));
    EXPECT_EQ(document(0).changed(), 0);
}

TEST_F(Printing, PrintTakesItsOwnProposal)
{
    acceptIn("mnuFilePrint", [](QWidget &) {});
    EXPECT_TRUE(isPdf(QDir::home().filePath("my config.pdf")));
}

TEST_F(Printing, ToolBarsButtonPrintsToo)
{
    const auto asked = onNextDialog([this](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Print");
        control<QLineEdit>(dialog, "filename")->setText(at("x.pdf"));
        accept(dialog);
    });
    press(*window, "Print");
    EXPECT_TRUE(asked->handled);
    EXPECT_TRUE(isPdf(at("x.pdf")));
}

TEST_F(Printing, ACancelledPrintPrintsNothing)
{
    const auto asked = onNextDialog([this](QWidget &dialog) {
        control<QLineEdit>(dialog, "filename")->setText(at("x.pdf"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    trigger(*window, "mnuFilePrint");
    EXPECT_TRUE(asked->handled);
    EXPECT_FALSE(QFileInfo::exists(at("x.pdf")));
}

TEST_F(Printing, NextProposalIsInTheFolderLastPrintedTo)
{
    acceptIn("mnuFilePrint", [this](QWidget &dialog) { control<QLineEdit>(dialog, "filename")->setText(at("x.pdf")); });
    trigger(*window, "mnuFileNew");
    const auto asked = onNextDialog(
        [this](QWidget &dialog) { EXPECT_EQ(control<QLineEdit>(dialog, "filename")->text(), at("Document 2.pdf")); });
    trigger(*window, "mnuFilePrint");
    EXPECT_TRUE(asked->handled);
}

TEST_F(Printing, UsesThePageOfPageSetup)
{
    const auto print = [this](const QString &name) {
        acceptIn("mnuFilePrint", [&](QWidget &dialog) { control<QLineEdit>(dialog, "filename")->setText(at(name)); });
        return bytesOf(at(name));
    };
    // A4 in points.
    EXPECT_TRUE(print("upright.pdf").contains("/MediaBox [0 0 595.000000 842.000000]"));
    acceptIn("mnuFilePageSetup", [](QWidget &dialog) { control<QRadioButton>(dialog, "landscape")->click(); });
    EXPECT_TRUE(print("across.pdf").contains("/MediaBox [0 0 842.000000 595.000000]"));
}

} // namespace

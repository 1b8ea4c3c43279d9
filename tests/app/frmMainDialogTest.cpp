#include "tests/app/ProgramFixture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace {

const Messages::Icon exclamation = Messages::Icon::Exclamation;

QStringList shownFilters(const QWidget &dialog)
{
    QStringList result;
    const auto *filters = control<QComboBox>(dialog, "fileTypeCombo");
    for (int i = 0; i < filters->count(); ++i)
        result << filters->itemText(i).trimmed();
    return result;
}

QString proposedName(const QWidget &dialog)
{
    return control<QLineEdit>(dialog, "fileNameEdit")->text();
}

QString folderOf(const QWidget &dialog)
{
    const auto *fileDialog = qobject_cast<const QFileDialog *>(&dialog);
    return fileDialog ? fileDialog->directory().absolutePath() : QString();
}

class FileDialogs : public ProgramOnFiles
{
protected:
    void SetUp() override { ASSERT_TRUE(QDir::setCurrent(folder.path())); }
    void TearDown() override { QDir::setCurrent("/"); }

    /// Runs a File command and gives its dialog a name.
    void chooseIn(const char *entry, const QString &name)
    {
        const auto asked = onNextDialog([&](QWidget &dialog) { chooseInFileDialog(dialog, name); });
        trigger(*window, entry);
        EXPECT_TRUE(asked->handled) << entry;
    }
};

// Open

TEST_F(FileDialogs, OpenHasItsTitleAndFilters)
{
    start();
    const auto asked = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open");
        EXPECT_EQ(shownFilters(dialog), (QStringList{"Zentil Configuration (*.zcf)", "All Files (*.*)"}));
        EXPECT_EQ(proposedName(dialog), "");
    });
    trigger(*window, "mnuFileOpen");
    EXPECT_TRUE(asked->handled);
    EXPECT_TRUE(captions().isEmpty());
}

TEST_F(FileDialogs, OpenLoadsTheTypedName)
{
    const QString path = write("a.zcf", "a1\r\na2\r\n");
    start();
    chooseIn("mnuFileOpen", path);
    EXPECT_EQ(captions(), QStringList{path});
    EXPECT_EQ(document(0).rowList().rows(), (QStringList{"a1", "a2"}));
}

TEST_F(FileDialogs, ANameWithoutAFolderIsInTheFolderLastUsed)
{
    const QString path = write("a.zcf", "a\r\n");
    const QString other = write("b.zcf", "b\r\n");
    start();
    chooseIn("mnuFileOpen", path);
    chooseIn("mnuFileOpen", "b.zcf");
    EXPECT_EQ(captions(), (QStringList{path, other}));
}

TEST_F(FileDialogs, OpenTakesAPathWithBlanks)
{
    const QString path = write("my config.zcf", "a\r\n");
    start();
    chooseIn("mnuFileOpen", path);
    EXPECT_EQ(captions(), QStringList{path});
}

TEST_F(FileDialogs, OpenReportsAMissingFileInOurWords)
{
    start();
    messages.expectShow("File " + at("missing.zcf") + " not found", exclamation);
    chooseIn("mnuFileOpen", at("missing.zcf"));
    EXPECT_TRUE(captions().isEmpty());
}

TEST_F(FileDialogs, ACancelledOpenDoesNothing)
{
    write("a.zcf", "a\r\n");
    start();
    const auto asked = onNextDialog([](QWidget &dialog) {
        control<QLineEdit>(dialog, "fileNameEdit")->setText("a.zcf");
        QTest::mouseClick(control<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Cancel),
                          Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
    });
    trigger(*window, "mnuFileOpen");
    EXPECT_TRUE(asked->handled);
    EXPECT_TRUE(captions().isEmpty());
}

TEST_F(FileDialogs, TheLastNameStaysFilledIn)
{
    QDir(folder.path()).mkdir("sub");
    const QString path = write("sub/a.zcf", "a\r\n");
    start();
    chooseIn("mnuFileOpen", path);
    const auto asked = onNextDialog([&](QWidget &dialog) {
        EXPECT_EQ(proposedName(dialog), "a.zcf");
        EXPECT_EQ(folderOf(dialog), at("sub"));
    });
    trigger(*window, "mnuFileOpen");
    EXPECT_TRUE(asked->handled);
}

TEST_F(FileDialogs, TheNameOfAMissingFileStaysFilledInToo)
{
    start();
    messages.expectShow("File " + at("missing.zcf") + " not found", exclamation);
    chooseIn("mnuFileOpen", at("missing.zcf"));
    const auto asked = onNextDialog([](QWidget &dialog) { EXPECT_EQ(proposedName(dialog), "missing.zcf"); });
    trigger(*window, "mnuFileOpen");
    EXPECT_TRUE(asked->handled);
}

TEST_F(FileDialogs, AllFilesShowsNamesWithoutADot)
{
    write("hosts", "a\r\n");
    start();
    const auto asked = onNextDialog([this](QWidget &dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(&dialog);
        ASSERT_NE(fileDialog, nullptr);
        fileDialog->setDirectory(folder.path());
        auto *filters = control<QComboBox>(dialog, "fileTypeCombo");
        const auto *view = control<QAbstractItemView>(dialog, "listView");
        const auto isListed = [&] {
            for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
                if (view->model()->index(row, 0, view->rootIndex()).data().toString() == "hosts")
                    return true;
            }
            return false;
        };
        filters->setFocus();
        QTest::keyClick(filters, Qt::Key_End);
        EXPECT_TRUE(QTest::qWaitFor(isListed));
        QTest::keyClick(filters, Qt::Key_Home);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !isListed(); }));
    });
    trigger(*window, "mnuFileOpen");
    EXPECT_TRUE(asked->handled);
}

// Save

TEST_F(FileDialogs, SaveWritesToTheDocumentsPathWithoutAsking)
{
    const QString path = write("a.zcf", "a1\na2");
    start({path});
    document(0).setChanged(-1);
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(bytesOf(path), "a1\r\na2\r\n");
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_EQ(captions(), QStringList{path});
}

TEST_F(FileDialogs, SaveWithoutADocumentSaysSo)
{
    start();
    messages.expectShow("No window is selected. Please select the window to Save", exclamation);
    trigger(*window, "mnuFileSave");
}

TEST_F(FileDialogs, SaveOfAnUntitledDocumentRunsSaveAs)
{
    start();
    trigger(*window, "mnuFileNew");
    trigger(*window, "mnuFileNew");
    const auto asked = onNextDialog([this](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save As");
        EXPECT_EQ(shownFilters(dialog), (QStringList{"Zentil Configuration (*.zcf)", "All Files (*.*)"}));
        EXPECT_EQ(proposedName(dialog), "Document 2");
        chooseInFileDialog(dialog, at("new.zcf"));
    });
    trigger(*window, "mnuFileSave");
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(captions(), (QStringList{"Document 1", at("new.zcf")}));
    EXPECT_EQ(bytesOf(at("new.zcf")), "");
}

TEST_F(FileDialogs, AfterSaveAsTheNextSaveAsksNoMore)
{
    start();
    trigger(*window, "mnuFileNew");
    chooseIn("mnuFileSave", at("new.zcf"));
    document(0).setChanged(-1);
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_EQ(document(0).file().path(), at("new.zcf"));
}

TEST_F(FileDialogs, APathThatBeginsWithDocumentCountsAsUntitled)
{
    write("Documents.zcf", "a\n");
    start({"Documents.zcf"});
    EXPECT_EQ(captions(), QStringList{"Documents.zcf"});
    const auto asked = onNextDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save As");
        EXPECT_EQ(proposedName(dialog), "Documents.zcf");
    });
    trigger(*window, "mnuFileSave");
    EXPECT_TRUE(asked->handled);
    EXPECT_EQ(bytesOf(at("Documents.zcf")), "a\n");
}

TEST_F(FileDialogs, OtherRelativePathsDoNotCountAsUntitled)
{
    write("document.zcf", "a\n");
    write("Docs.zcf", "a\n");
    start({"document.zcf", "Docs.zcf"});
    trigger(*window, "mnuFileSave");
    activate(document(0));
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(bytesOf(at("Docs.zcf")), "a\r\n");
    EXPECT_EQ(bytesOf(at("document.zcf")), "a\r\n");
}

TEST_F(FileDialogs, ApplyOfAnUntitledDocumentRunsSaveAs)
{
    start();
    trigger(*window, "mnuFileNew");
    document(0).setChanged(-1);
    const auto asked = onNextDialog([this](QWidget &dialog) {
        // Saving shows the wait cursor, but the dialog waits for the user.
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        chooseInFileDialog(dialog, at("new.zcf"));
    });
    press(document(0), "ApplyButton");
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(captions(), QStringList{at("new.zcf")});
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// Save As

TEST_F(FileDialogs, SaveAsWithoutADocumentDoesNothing)
{
    start();
    trigger(*window, "mnuFileSaveAs");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FileDialogs, SaveAsProposesTheCaptionAndMovesTheDocument)
{
    QDir(folder.path()).mkdir("sub");
    const QString path = write("sub/a.zcf", "a\n");
    start({path});
    const auto asked = onNextDialog([&](QWidget &dialog) {
        EXPECT_EQ(proposedName(dialog), "a.zcf");
        EXPECT_EQ(folderOf(dialog), at("sub"));
        chooseInFileDialog(dialog, at("b.zcf"));
    });
    trigger(*window, "mnuFileSaveAs");
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(captions(), QStringList{at("b.zcf")});
    EXPECT_EQ(document(0).file().path(), at("b.zcf"));
    EXPECT_EQ(bytesOf(at("b.zcf")), "a\r\n");
    EXPECT_EQ(bytesOf(path), "a\n");
}

TEST_F(FileDialogs, ACancelledSaveAsLeavesEverything)
{
    const QString path = write("a.zcf", "a\n");
    start({path});
    document(0).setChanged(-1);
    const auto asked = onNextDialog([](QWidget &) {});
    trigger(*window, "mnuFileSaveAs");
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(captions(), QStringList{path});
    EXPECT_EQ(document(0).file().path(), path);
    EXPECT_EQ(document(0).changed(), -1);
    EXPECT_EQ(bytesOf(path), "a\n");
}

TEST_F(FileDialogs, AFailedSaveAsKeepsPathCaptionAndChangedFlag)
{
    const QString path = write("a.zcf", "a\n");
    start({path});
    document(0).setChanged(-1);
    messages.expectShow("Run-time error '76':\n\nPath not found\n\n" + at("nowhere/b.zcf"), Messages::Icon::Critical);
    chooseIn("mnuFileSaveAs", at("nowhere/b.zcf"));
    messages.verify();
    EXPECT_EQ(captions(), QStringList{path});
    EXPECT_EQ(document(0).file().path(), path);
    EXPECT_EQ(document(0).changed(), -1);
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(bytesOf(path), "a\r\n");
}

TEST_F(FileDialogs, AFailedSaveAsOfAnUntitledDocumentLeavesItUntitled)
{
    start();
    trigger(*window, "mnuFileNew");
    document(0).setChanged(-1);
    messages.expectShow("Run-time error '76':\n\nPath not found\n\n" + at("nowhere/b.zcf"), Messages::Icon::Critical);
    chooseIn("mnuFileSave", at("nowhere/b.zcf"));
    messages.verify();
    EXPECT_EQ(captions(), QStringList{"Document 1"});
    EXPECT_EQ(document(0).file().path(), "");
    EXPECT_EQ(document(0).changed(), -1);
}

class ReplaceQuestion : public FileDialogs, public testing::WithParamInterface<bool>
{
};

TEST_P(ReplaceQuestion, OfTheDialogGuardsAnExistingFile)
{
    const bool isAllowed = GetParam();
    const QString path = write("a.zcf", "a\n");
    const QString existing = write("b.zcf", "old\n");
    start({path});
    const auto asked = onNextDialog([&](QWidget &dialog) {
        const auto replace = onNextDialog([&](QWidget &box) {
            auto *question = qobject_cast<QMessageBox *>(&box);
            ASSERT_NE(question, nullptr);
            QTest::mouseClick(question->button(isAllowed ? QMessageBox::Yes : QMessageBox::No), Qt::LeftButton);
        });
        chooseInFileDialog(dialog, existing);
        EXPECT_TRUE(replace->handled);
        EXPECT_EQ(dialog.isVisible(), !isAllowed);
    });
    trigger(*window, "mnuFileSaveAs");
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(bytesOf(existing), isAllowed ? "a\r\n" : "old\n");
    EXPECT_EQ(captions(), QStringList{isAllowed ? existing : path});
}

INSTANTIATE_TEST_SUITE_P(Answers, ReplaceQuestion, testing::Bool(),
                         [](const auto &tested) { return tested.param ? "Yes" : "No"; });

/// Files that the toolkit's dialog does not see, as it does not see names with bytes that are not UTF-8.
class UnseenFile : public Program, public testing::WithParamInterface<bool>
{
};

TEST_P(UnseenFile, IsAskedAboutBeforeItIsReplaced)
{
    const bool isAllowed = GetParam();
    const QTemporaryDir folder;
    const QString path = folder.filePath("unseen.zcf");
    fakeFiles.content[path] = "old\r\n";
    start();
    trigger(*window, "mnuFileNew");
    const auto asked = onNextDialog([&](QWidget &dialog) { chooseInFileDialog(dialog, path); });
    messages.expectAsk("\"" + path + "\" exists already. Do you want to replace it?", Messages::Buttons::YesNo,
                       isAllowed ? Messages::Answer::Yes : Messages::Answer::No);
    trigger(*window, "mnuFileSaveAs");
    EXPECT_TRUE(asked->handled);
    EXPECT_EQ(fakeFiles.content[path], isAllowed ? "" : "old\r\n");
    EXPECT_EQ(captions(), QStringList{isAllowed ? path : "Document 1"});
}

INSTANTIATE_TEST_SUITE_P(Answers, UnseenFile, testing::Bool(),
                         [](const auto &tested) { return tested.param ? "Yes" : "No"; });

} // namespace

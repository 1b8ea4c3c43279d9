#include "app/frmMain.h"

#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"

#include <QLineEdit>
#include <QMdiSubWindow>

namespace {

class ClosingTheProgram : public Program
{
protected:
    ClosingTheProgram()
    {
        fakeFiles.content["/a.zcf"] = "a\n";
        fakeFiles.content["/b.zcf"] = "b\n";
        fakeFiles.content["/c.zcf"] = "c\n";
    }

    void startChanged(std::initializer_list<size_t> changed)
    {
        start({"/a.zcf", "/b.zcf", "/c.zcf"});
        for (const size_t index : changed)
            document(index).setChanged(-1);
    }

    void expectAllOpen()
    {
        messages.verify();
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf", "/c.zcf"}));
        for (const ConfigForm *each : window->documents())
            EXPECT_TRUE(each->parentWidget()->isVisible()) << each->caption().toStdString();
        EXPECT_TRUE(isMenuVisible("mnuItem"));
        EXPECT_TRUE(settings.values.isEmpty());
    }
};

TEST_F(ClosingTheProgram, AsksNothingAboutUnchangedDocuments)
{
    startChanged({});
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_TRUE(window->documents().empty());
    EXPECT_EQ(fakeFiles.writes, 0);
}

TEST_F(ClosingTheProgram, WithoutADocumentEndsIt)
{
    start();
    EXPECT_TRUE(endsAfterClosing());
}

TEST_F(ClosingTheProgram, ByTheExitCommand)
{
    startChanged({});
    EXPECT_TRUE(endsAfter([this] { trigger(*window, "mnuFileExit"); }));
}

TEST_F(ClosingTheProgram, CancelStopsTheExit)
{
    startChanged({0});
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(endsAfterClosing());
    expectAllOpen();
    EXPECT_EQ(document(0).changed(), -1);
}

TEST_F(ClosingTheProgram, CancelOnTheSecondDocumentLeavesAllOpen)
{
    startChanged({0, 1, 2});
    expectQuestion(Messages::Answer::Yes);
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(endsAfterClosing());
    expectAllOpen();
    EXPECT_EQ(fakeFiles.content["/a.zcf"], "a\r\n");
    EXPECT_EQ(document(1).changed(), -1);
}

TEST_F(ClosingTheProgram, AfterCancelEveryChangedDocumentIsAskedAboutAgain)
{
    startChanged({0, 1});
    expectQuestion(Messages::Answer::No);
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(endsAfterClosing());
    expectAllOpen();
    expectQuestion(Messages::Answer::No);
    expectQuestion(Messages::Answer::No);
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(fakeFiles.writes, 0);
}

TEST_F(ClosingTheProgram, YesSavesTheDocumentThatTheQuestionIsAbout)
{
    startChanged({0, 1, 2});
    expectQuestion(Messages::Answer::No);
    expectQuestion(Messages::Answer::Yes);
    expectQuestion(Messages::Answer::No);
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(fakeFiles.content["/a.zcf"], "a\n");
    EXPECT_EQ(fakeFiles.content["/b.zcf"], "b\r\n");
    EXPECT_EQ(fakeFiles.content["/c.zcf"], "c\n");
}

/// Answers as the user does, and remembers which document was in front at each question.
class WatchingMessages final : public Messages
{
public:
    explicit WatchingMessages(const std::function<QString()> &inFront)
        : m_inFront(inFront)
    {
    }

    void show(const QString &text, Icon, const QString &) override
    {
        ADD_FAILURE() << "unexpected message: " << text.toStdString();
    }

    [[nodiscard]] Answer ask(const QString &, Buttons, Icon, const QString &) override
    {
        asked << m_inFront();
        return Answer::No;
    }

    QStringList asked;

private:
    std::function<QString()> m_inFront;
};

/// Whether another window of the program is in front while it is closed.
class QuestionOrder : public ClosingTheProgram, public testing::WithParamInterface<bool>
{
};

TEST_P(QuestionOrder, IsOldestFirstAndEachDocumentIsTheActiveOneThen)
{
    WatchingMessages watching([this] { return activeCaption(); });
    window = std::make_unique<frmMain>(
        frmMain::Services{*files, settings, watching, editors, preferences, &associations}, programPath);
    window->LoadAll({"/a.zcf", "/b.zcf", "/c.zcf"});
    showActive(*window);
    for (ConfigForm *each : window->documents())
        each->setChanged(-1);
    QLineEdit other;
    if (GetParam())
        showActive(other);
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(watching.asked, (QStringList{"/a.zcf", "/b.zcf", "/c.zcf"}));
    window.reset();
}

INSTANTIATE_TEST_SUITE_P(Windows, QuestionOrder, testing::Bool(),
                         [](const auto &tested) { return tested.param ? "OtherInFront" : "MainInFront"; });

TEST_F(ClosingTheProgram, AnErrorWhileSavingKeepsEverythingOpen)
{
    startChanged({0, 1});
    fakeFiles.writeError = RuntimeError(RuntimeError::DiskFull, "/b.zcf");
    expectQuestion(Messages::Answer::No);
    expectQuestion(Messages::Answer::Yes);
    messages.expectShow("Run-time error '61':\n\nDisk full\n\n/b.zcf", Messages::Icon::Critical);
    EXPECT_FALSE(endsAfterClosing());
    expectAllOpen();
    EXPECT_EQ(document(1).changed(), -1);

    // Nothing of the first try is left over: every document is asked about once more.
    fakeFiles.writeError.reset();
    expectQuestion(Messages::Answer::Yes);
    expectQuestion(Messages::Answer::Yes);
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(fakeFiles.content["/b.zcf"], "b\r\n");
}

TEST_F(ClosingTheProgram, YesForAnUntitledDocumentRunsSaveAsForIt)
{
    start();
    trigger(*window, "mnuFileNew");
    trigger(*window, "mnuFileNew");
    document(0).setChanged(-1);
    expectQuestion(Messages::Answer::Yes);
    const QTemporaryDir folder;
    QString proposal;
    const auto asked = onNextDialog([&](QWidget &dialog) {
        proposal = control<QLineEdit>(dialog, "fileNameEdit")->text();
        chooseInFileDialog(dialog, folder.filePath("new.zcf"));
    });
    EXPECT_TRUE(endsAfterClosing());
    ASSERT_TRUE(asked->handled);
    EXPECT_EQ(proposal, "Document 1");
    EXPECT_TRUE(fakeFiles.content.contains(folder.filePath("new.zcf")));
}

// What saves believes, it believes here too: the document has always taken itself for saved then.
TEST_F(ClosingTheProgram, YesAndACancelledSaveAsStillEndsIt)
{
    start();
    trigger(*window, "mnuFileNew");
    document(0).setChanged(-1);
    expectQuestion(Messages::Answer::Yes);
    const auto asked = onNextDialog([](QWidget &) {});
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_TRUE(asked->handled);
}

TEST_F(ClosingTheProgram, WhileMinimisedAsksAsWell)
{
    startChanged({1});
    window->showMinimized();
    settle();
    expectQuestion(Messages::Answer::No);
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_TRUE(settings.values.isEmpty());
}

// One document

TEST_F(ClosingTheProgram, TheCloseCommandAsksAboutTheActiveDocumentOnly)
{
    startChanged({0, 1, 2});
    expectQuestion(Messages::Answer::Yes);
    trigger(*window, "mnuFileClose");
    settle();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    EXPECT_EQ(fakeFiles.content["/c.zcf"], "c\r\n");
    EXPECT_EQ(fakeFiles.writes, 1);
}

TEST_F(ClosingTheProgram, CancelKeepsTheDocumentThatWasToClose)
{
    startChanged({2});
    expectQuestion(Messages::Answer::Cancel);
    trigger(*window, "mnuFileClose");
    expectAllOpen();
    EXPECT_EQ(activeCaption(), "/c.zcf");
}

TEST_F(ClosingTheProgram, TheCloseBoxOfADocumentAsks)
{
    startChanged({2});
    expectQuestion(Messages::Answer::No);
    document(2).parentWidget()->close();
    settle();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    EXPECT_EQ(window->findChildren<QMdiSubWindow *>().size(), 2);
}

TEST_F(ClosingTheProgram, TheCloseButtonOfADocumentAsks)
{
    startChanged({2});
    expectQuestion(Messages::Answer::Cancel);
    press(document(2), "CloseButton");
    expectAllOpen();
    expectQuestion(Messages::Answer::No);
    press(document(2), "CloseButton");
    settle();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
}

TEST_F(ClosingTheProgram, AnErrorWhileSavingKeepsTheDocumentThatWasToClose)
{
    startChanged({2});
    fakeFiles.writeError = RuntimeError(RuntimeError::PermissionDenied, "/c.zcf");
    expectQuestion(Messages::Answer::Yes);
    messages.expectShow("Run-time error '70':\n\nPermission denied\n\n/c.zcf", Messages::Icon::Critical);
    trigger(*window, "mnuFileClose");
    expectAllOpen();
    EXPECT_EQ(activeCaption(), "/c.zcf");
}

TEST_F(ClosingTheProgram, ClosingDocumentsOneByOneLeavesTheStatusOfTheWindow)
{
    startChanged({});
    for (int i = 0; i < 3; ++i) {
        trigger(*window, "mnuFileClose");
        settle();
    }
    EXPECT_TRUE(captions().isEmpty());
    EXPECT_EQ(window->activeDocument(), nullptr);
    EXPECT_EQ(status(), "");
    EXPECT_FALSE(isMenuVisible("mnuItem"));
    EXPECT_FALSE(isMenuVisible("mnuEdit"));
}

} // namespace

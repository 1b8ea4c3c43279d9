#include "app/frmMain.h"

#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"

#include <QDialog>
#include <QTest>

namespace {

/// Somebody other than the user asks the program to end: a signal, or the end of the session.
class EndRequest : public Program
{
protected:
    EndRequest()
    {
        fakeFiles.content["/a.zcf"] = "a\n";
        fakeFiles.content["/b.zcf"] = "b\n";
    }

    void startChanged()
    {
        start({"/a.zcf", "/b.zcf"});
        document(0).setChanged(-1);
    }

    [[nodiscard]] bool endsOnRequest()
    {
        return endsAfter([this] { window->closeOnRequest(); });
    }
};

TEST_F(EndRequest, EndsAProgramWithoutChanges)
{
    start({"/a.zcf"});
    EXPECT_TRUE(endsOnRequest());
    EXPECT_FALSE(settings.values.isEmpty()) << "the place is not stored";
}

TEST_F(EndRequest, AsksAboutChanges)
{
    startChanged();
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(endsOnRequest());
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    expectQuestion(Messages::Answer::Yes);
    EXPECT_TRUE(endsOnRequest());
    EXPECT_EQ(fakeFiles.content["/a.zcf"], "a\r\n");
}

// What the dialog's answer would still have done to a document would be lost.
TEST_F(EndRequest, WaitsUntilADialogIsClosed)
{
    start({"/a.zcf"});
    EXPECT_TRUE(endsAfter([this] {
        const auto asked = onNextDialog([this](QWidget &) {
            window->closeOnRequest();
            window->closeOnRequest();
            EXPECT_TRUE(window->isVisible());
        });
        trigger(*window, "mnuFileOpen");
        EXPECT_TRUE(asked->handled);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    }));
}

TEST_F(EndRequest, WaitsForADialogThatComesAfterAnother)
{
    start({"/a.zcf"});
    EXPECT_TRUE(endsAfter([this] {
        QDialog first(window.get());
        const auto firstShown = onNextDialog([this](QWidget &) { window->closeOnRequest(); });
        (void)first.exec();
        EXPECT_TRUE(firstShown->handled);
        QDialog second(window.get());
        const auto secondShown = onNextDialog([this](QWidget &) {
            settle();
            EXPECT_TRUE(window->isVisible());
        });
        (void)second.exec();
        EXPECT_TRUE(secondShown->handled);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    }));
}

TEST_F(EndRequest, IsServedOnce)
{
    startChanged();
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(endsAfter([this] {
        const auto asked = onNextDialog([this](QWidget &) { window->closeOnRequest(); });
        trigger(*window, "mnuFileOpen");
        EXPECT_TRUE(asked->handled);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !messages.isExpecting(); }));
        // The next dialog is none that a request waits for.
        const auto next = onNextDialog([](QWidget &) {});
        trigger(*window, "mnuFileOpen");
        EXPECT_TRUE(next->handled);
        settle();
    }));
}

TEST_F(EndRequest, OfTheSessionClosesNothing)
{
    startChanged();
    expectQuestion(Messages::Answer::No);
    EXPECT_TRUE(window->queryEndOfSession());
    messages.verify();
    EXPECT_EQ(captions(), (QStringList{"/a.zcf", "/b.zcf"}));
    EXPECT_EQ(document(0).changed(), -1);
    // The session went on after all: what was agreed to then does not count any more.
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(endsAfterClosing());
}

TEST_F(EndRequest, OfTheSessionSavesWhatTheUserWants)
{
    startChanged();
    expectQuestion(Messages::Answer::Yes);
    EXPECT_TRUE(window->queryEndOfSession());
    EXPECT_EQ(fakeFiles.content["/a.zcf"], "a\r\n");
    EXPECT_EQ(document(0).changed(), 0);
    EXPECT_TRUE(endsAfterClosing());
}

TEST_F(EndRequest, OfTheSessionIsRefusedWhenTheUserCancels)
{
    startChanged();
    expectQuestion(Messages::Answer::Cancel);
    EXPECT_FALSE(window->queryEndOfSession());
}

TEST_F(EndRequest, OfTheSessionIsRefusedWhenSavingFails)
{
    startChanged();
    fakeFiles.writeError = RuntimeError(RuntimeError::DiskFull, "/a.zcf");
    expectQuestion(Messages::Answer::Yes);
    messages.expectShow("Run-time error '61':\n\nDisk full\n\n/a.zcf", Messages::Icon::Critical);
    EXPECT_FALSE(window->queryEndOfSession());
    EXPECT_EQ(document(0).changed(), -1);
}

} // namespace

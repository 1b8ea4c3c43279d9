#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/Random.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

#include <new>

namespace {

const Messages::Icon critical = Messages::Icon::Critical;

class Errors : public ProgramOnFiles
{
protected:
    void SetUp() override
    {
        good = write("good.zcf", "g1\r\ng2\r\n");
        start({good});
        clickRow(list(document(0)), 1);
        document(0).setChanged(-1);
    }

    /// Opens a file by the Open command's dialog, as a user does.
    void open(const QString &path)
    {
        const auto asked = onNextDialog([&](QWidget &dialog) { chooseInFileDialog(dialog, path); });
        trigger(*window, "mnuFileOpen");
        EXPECT_TRUE(asked->handled);
        messages.verify();
    }

    /// The other document is as it was, and active.
    void expectOthersStay() const
    {
        EXPECT_EQ(captions(), QStringList{good});
        EXPECT_EQ(document(0).rowList().rows(), (QStringList{"g1", "g2"}));
        EXPECT_EQ(document(0).changed(), -1);
        EXPECT_EQ(activeCaption(), good);
        EXPECT_EQ(status(), "Line 2/2");
        EXPECT_TRUE(isMenuVisible("mnuItem"));
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }

    void expectOpens(const QString &path, int rows)
    {
        open(path);
        ASSERT_EQ(captions(), (QStringList{good, path}));
        EXPECT_EQ(document(1).rowList().rowCount(), rows);
        document(1).setChanged(0);
        trigger(*window, "mnuFileClose");
        settle();
        expectOthersStay();
    }

    QString good;
};

TEST_F(Errors, AFolderGivenToTheProgramIsNotFound)
{
    messages.expectShow("File " + folder.path() + " not found", Messages::Icon::Exclamation);
    window->LoadAll({folder.path()});
    messages.verify();
    expectOthersStay();
}

TEST_F(Errors, AFileOf40000LinesIsRefusedWithTheLimitAndItsCount)
{
    QByteArray bytes;
    for (int i = 0; i < 40000; ++i)
        bytes += "C:\\file\r\n";
    const QString path = write("long.zcf", bytes);
    messages.expectShow("Run-time error '6':\n\nOverflow\n\n"
                        "A document holds at most 32767 lines. This one has 40000.\n\n" +
                            path,
                        critical);
    open(path);
    expectOthersStay();
}

TEST_F(Errors, AFileOfTheMostLinesOpens)
{
    QByteArray bytes;
    for (int i = 0; i < 32767; ++i)
        bytes += "x\n";
    expectOpens(write("most.zcf", bytes), 32767);
}

TEST_F(Errors, AFileOfOneLineTooManyIsRefused)
{
    QByteArray bytes;
    for (int i = 0; i < 32768; ++i)
        bytes += "x\n";
    const QString path = write("most.zcf", bytes);
    messages.expectShow("Run-time error '6':\n\nOverflow\n\n"
                        "A document holds at most 32767 lines. This one has 32768.\n\n" +
                            path,
                        critical);
    open(path);
    expectOthersStay();
}

TEST_F(Errors, AFileOfBlankLinesOnlyIsRefused)
{
    const QString path = write("blank.zcf", "\r\n\r\n\r\n");
    messages.expectShow(
        "Run-time error '5':\n\nInvalid procedure call or argument\n\nThe file holds only empty lines.\n\n" + path,
        critical);
    open(path);
    expectOthersStay();
}

TEST_F(Errors, AnEmptyFileIsAnEmptyDocument)
{
    expectOpens(write("empty.zcf", ""), 0);
}

TEST_F(Errors, ABinaryFileOf20MegabytesIsRefusedWithItsCountOfLines)
{
    constexpr int size = 20 << 20;
    Random random(20);
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(random.number(0, 255));
    bytes.back() = 'x';
    // Counted in a way of its own: CR LF is one end, and the last byte is none.
    QByteArray ends = bytes;
    ends.replace("\r\n", "\n");
    const qsizetype lines = ends.count('\n') + ends.count('\r') + 1;
    ASSERT_GT(lines, 32767);
    const QString path = write("binary.zcf", bytes);
    messages.expectShow("Run-time error '6':\n\nOverflow\n\n" +
                            QStringLiteral("A document holds at most 32767 lines. This one has %1.\n\n").arg(lines) +
                            path,
                        critical);
    open(path);
    expectOthersStay();
}

TEST_F(Errors, ABinaryFileOf20MegabytesOfZerosIsOneLongLine)
{
    constexpr int size = 20 << 20;
    const QString path = write("zeros.zcf", QByteArray(size, '\0'));
    open(path);
    ASSERT_EQ(captions(), (QStringList{good, path}));
    EXPECT_EQ(document(1).rowList().rowCount(), 1);
    EXPECT_EQ(document(1).rowList().rows().first().size(), size);
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(bytesOf(path), QByteArray(size, '\0') + "\r\n");
}

TEST_F(Errors, AFileThatIsGoneWhenItIsReadIsReported)
{
    const QString path = write("gone.zcf", "a\r\n");
    open(path);
    ASSERT_TRUE(QFile::remove(path));
    messages.expectShow("Run-time error '53':\n\nFile not found\n\n" + path, critical);
    // As a command of the program runs: within an event.
    QTimer::singleShot(0, window.get(), [this] { document(1).Reload(); });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !messages.isExpecting(); }));
    EXPECT_EQ(document(1).rowList().rows(), QStringList{"a"});
}

TEST_F(Errors, SavingIntoAFolderThatIsGoneIsReportedAndTheDocumentStaysChanged)
{
    QDir(folder.path()).mkdir("sub");
    const QString path = write("sub/a.zcf", "a\r\n");
    open(path);
    document(1).setChanged(-1);
    ASSERT_TRUE(QDir(at("sub")).removeRecursively());
    messages.expectShow("Run-time error '76':\n\nPath not found\n\n" + path, critical);
    trigger(*window, "mnuFileSave");
    messages.verify();
    EXPECT_EQ(document(1).changed(), -1);
    EXPECT_EQ(captions(), (QStringList{good, path}));
}

// Most of the toolkit is built without exceptions; one that passed through it would leave its guards as they are.
TEST_F(Errors, OfACommandDoNotPassThroughTheToolkit)
{
    FakeMessages outermost;
    const UseMessages useOutermost(outermost);
    const QString blank = write("blank.zcf", "\n");
    const QString text =
        "Run-time error '5':\n\nInvalid procedure call or argument\n\nThe file holds only empty lines.\n\n" + blank;
    messages.expectShow(text, critical);
    open(blank);
    messages.expectShow(text, critical);
    drop({blank});
    messages.verify();
    ASSERT_TRUE(QFile::remove(good));
    ASSERT_TRUE(QDir(folder.path()).mkdir("good.zcf"));
    expectQuestion(Messages::Answer::Yes);
    messages.expectShow("Run-time error '75':\n\nPath/File access error\n\n" + good, critical);
    EXPECT_FALSE(endsAfterClosing());
    messages.verify();
    expectOthersStay();
}

TEST_F(Errors, SeveralInARowAreOneMessageEach)
{
    const QString blank = write("blank.zcf", "\n");
    for (int i = 0; i < 3; ++i) {
        messages.expectShow(
            "Run-time error '5':\n\nInvalid procedure call or argument\n\nThe file holds only empty lines.\n\n" + blank,
            critical);
    }
    messages.expectShow("File " + at("missing.zcf") + " not found", Messages::Icon::Exclamation);
    window->LoadAll({blank, blank, blank, at("missing.zcf")});
    messages.verify();
    expectOthersStay();
}

// The outermost handler

/// Raises an error whenever it gets an event of its own.
class Raiser final : public QObject
{
public:
    static constexpr QEvent::Type own = QEvent::User;

    std::function<void()> raise;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == own)
            raise();
        return QObject::event(event);
    }
};

TEST_F(Errors, EndAtTheApplicationObject)
{
    Raiser raiser;
    raiser.raise = [] { throw RuntimeError(RuntimeError::TypeMismatch); };
    messages.expectShow("Run-time error '13':\n\nType mismatch", critical);
    QEvent direct(Raiser::own);
    EXPECT_FALSE(QCoreApplication::sendEvent(&raiser, &direct));
    messages.verify();

    messages.expectShow("Run-time error '13':\n\nType mismatch", critical);
    QCoreApplication::postEvent(&raiser, std::make_unique<QEvent>(Raiser::own).release());
    QCoreApplication::processEvents();
    messages.verify();
    expectOthersStay();
}

TEST_F(Errors, OfATimerEndThereToo)
{
    messages.expectShow("Run-time error '70':\n\nPermission denied\n\n/x", critical);
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, window.get(),
                     [] { throw RuntimeError(RuntimeError::PermissionDenied, "/x"); });
    timer.start(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !messages.isExpecting(); }));
    expectOthersStay();
}

TEST_F(Errors, OfMemoryAreReportedToo)
{
    Raiser raiser;
    raiser.raise = [] { throw std::bad_alloc(); };
    messages.expectShow("There is not enough memory for this command.", critical);
    QEvent event(Raiser::own);
    EXPECT_FALSE(QCoreApplication::sendEvent(&raiser, &event));
    messages.verify();
    expectOthersStay();
}

} // namespace

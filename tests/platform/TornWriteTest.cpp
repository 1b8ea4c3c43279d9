#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include <utility>

namespace {

/// Fails in place of a write to a file that has other names.
class TornWrite : public FileWorld
{
protected:
    void SetUp() override
    {
        FileWorld::SetUp();
        store(file(), oldBytes);
        ASSERT_EQ(link(file().constData(), at("other").constData()), 0);
    }

    [[nodiscard]] QByteArray file() const { return at("file"); }
    [[nodiscard]] QByteArray copy() const
    {
        const QByteArrayList names = namesIn(recoveryFolder());
        return names.size() == 1 ? recoveryFolder() + '/' + names.first() : "<no copy>";
    }

    /// Writes a part of the new bytes; everything that changes the file fails from then on.
    [[nodiscard]] std::optional<RuntimeError> tear(qsizetype written) const
    {
        auto torn = std::make_shared<Interruption>();
        const auto isKept = std::make_shared<bool>(false);
        const auto left = std::make_shared<qsizetype>(written);
        torn->errorOf = [=](const Interruption::Call &call) {
            *isKept = *isKept || call.name == QByteArray("rename");
            const bool changesTheFile = call.name == QByteArray("write") || call.name == QByteArray("ftruncate");
            return *isKept && changesTheFile && *left == 0 ? EIO : 0;
        };
        torn->pieceOf = [=](size_t size) {
            if (!*isKept || *left == 0)
                return size;
            return size_t(std::exchange(*left, 0));
        };
        return errorOf([&] { access(torn)->writeFile(decodeBytes(file()), newBytes); });
    }

    [[nodiscard]] static QByteArray tornBytes(qsizetype written)
    {
        return newBytes.first(written) + oldBytes.sliced(written) + QByteArray(newBytes.size() - oldBytes.size(), '\0');
    }

    static inline const QByteArray oldBytes = content(5'000, 1);
    static inline const QByteArray newBytes = content(12'000, 2);
};

TEST_F(TornWrite, ThatCannotBeUndoneLeavesTheCopyAndNamesIt)
{
    const auto error = tear(100);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), RuntimeError::DeviceError);
    EXPECT_EQ(error->path(), decodeBytes(file()));
    ASSERT_EQ(bytesOf(file()), tornBytes(100));
    EXPECT_TRUE(error->message().contains("A copy is kept in \"" + decodeBytes(copy()) + "\"."))
        << error->message().toStdString();
    // A person finds in it what the file was and what it was to become.
    EXPECT_TRUE(bytesOf(copy()).contains(file()));
    EXPECT_TRUE(bytesOf(copy()).contains(oldBytes));
    EXPECT_TRUE(bytesOf(copy()).contains(newBytes));

    EXPECT_EQ(read(file()), newBytes);
    EXPECT_EQ(bytesOf(at("other")), newBytes);
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
}

TEST_F(TornWrite, IsBroughtToItsEndThroughAnyName)
{
    ASSERT_TRUE(tear(100));
    ASSERT_EQ(symlink("other", at("toOther").constData()), 0);
    EXPECT_EQ(read(at("toOther")), newBytes);
    EXPECT_EQ(bytesOf(file()), newBytes);
}

TEST_F(TornWrite, IsOverwrittenByTheNextSave)
{
    ASSERT_TRUE(tear(100));
    EXPECT_EQ(writeError(file(), "next"), 0);
    EXPECT_EQ(read(file()), "next");
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
}

TEST_F(TornWrite, IsWholeAfterTheNextSaveFailed)
{
    ASSERT_TRUE(tear(100));
    const auto failing = std::make_shared<Interruption>();
    failing->errorOf = [](const Interruption::Call &call) { return call.name == QByteArray("rename") ? EIO : 0; };
    EXPECT_TRUE(errorOf([&] { access(failing)->writeFile(decodeBytes(file()), "next"); }));
    EXPECT_EQ(bytesOf(file()), newBytes);
}

TEST_F(TornWrite, LeavesNoCopyWhenTheFileIsReplaced)
{
    ASSERT_TRUE(tear(100));
    ASSERT_EQ(unlink(at("other").constData()), 0);
    EXPECT_EQ(writeError(file(), "next"), 0);
    EXPECT_EQ(read(file()), "next");
    // Its number is another file's some day.
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
}

TEST_F(TornWrite, ThatSomebodyHasEditedSinceIsLeftAlone)
{
    QByteArray edited = tornBytes(100);
    edited[50] = '\0';
    for (const QByteArray &bytes : {edited, tornBytes(100) + "x", tornBytes(100).first(4'999), QByteArray("short")}) {
        store(file(), oldBytes);
        ASSERT_TRUE(tear(100));
        store(file(), bytes);
        EXPECT_EQ(read(file()), bytes);
        EXPECT_EQ(bytesOf(at("other")), bytes);
        EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
    }
}

TEST_F(TornWrite, DamagedCopyIsNotUsed)
{
    ASSERT_TRUE(tear(100));
    const QByteArray path = copy();
    const QByteArray whole = bytesOf(path);
    for (const QByteArray &bytes : {QByteArray(), whole.first(1'000), whole + "x", QByteArray("X") + whole.sliced(1),
                                    QByteArray(whole)
                                        .replace(QByteArray("5000\0", 5), QByteArray("-500\0", 5))
                                        .replace(QByteArray("12000\0", 6), QByteArray("17500\0", 6)),
                                    QByteArray(whole).replace(QByteArray("5000\0", 5), QByteArray("5001\0", 5))}) {
        ASSERT_NE(bytes, whole);
        store(file(), tornBytes(100));
        store(path, bytes);
        EXPECT_EQ(read(file()), tornBytes(100));
    }
    // The same file with the whole copy is mended: it was the damage that kept the others from it.
    store(path, whole);
    EXPECT_EQ(read(file()), newBytes);
}

TEST_F(TornWrite, CopyMayBeALinkToNowhere)
{
    // A copy is never read or written through a link that somebody has put in its place.
    ASSERT_TRUE(tear(100));
    const QByteArray path = copy();
    ASSERT_EQ(rename(path.constData(), at("elsewhere").constData()), 0);
    ASSERT_EQ(symlink(at("elsewhere").constData(), path.constData()), 0);
    EXPECT_EQ(read(file()), tornBytes(100));
}

TEST_F(TornWrite, IsNotReadAsIfItWereWhole)
{
    ASSERT_TRUE(tear(100));
    // Whatever call fails: the torn bytes are not handed out as the file's.
    int refusals = 0;
    for (int n = 1; n < 100; ++n) {
        for (const int number : {EIO, EMFILE}) {
            store(file(), oldBytes);
            ASSERT_TRUE(tear(100));
            const auto failing = std::make_shared<Interruption>();
            failing->errorOf = failAt(n, number);
            QByteArray bytes;
            const auto error = errorOf(
                [&] { access(failing)->readFile(decodeBytes(file()), [&](QByteArrayView piece) { bytes += piece; }); });
            if (error)
                ++refusals;
            else
                EXPECT_EQ(bytes, newBytes) << "call " << n << ": " << failing->calls[size_t(n) - 1].name;
            EXPECT_EQ(read(file()), newBytes);
            if (failing->count() < n) {
                EXPECT_GT(refusals, 10);
                return;
            }
        }
    }
    ADD_FAILURE() << "there was no end of calls";
}

TEST_F(TornWrite, MayBeMendedInSeveralStarts)
{
    // The process that mends it may itself end at any call.
    for (int n = 1; n < 100; ++n) {
        store(file(), oldBytes);
        ASSERT_TRUE(tear(100));
        const int code = exitCodeOf([&] {
            const auto ending = std::make_shared<Interruption>();
            ending->errorOf = endAt(n, endedCode);
            // Short pieces, so that there are states in between.
            ending->pieceOf = [](size_t) { return size_t(3'000); };
            access(ending)->readFile(decodeBytes(file()), [](QByteArrayView) {});
        });
        EXPECT_EQ(read(file()), newBytes) << "ended in place of call " << n;
        if (code == 0) {
            EXPECT_GT(n, 10);
            return;
        }
        ASSERT_EQ(code, endedCode);
    }
    ADD_FAILURE() << "there was no end of calls";
}

TEST_F(TornWrite, IsRefusedWhileAProgramIsStillWritingIt)
{
    auto writing = std::make_shared<Interruption>();
    int refusals = 0;
    bool isKept = false;
    writing->errorOf = [&](const Interruption::Call &call) {
        if (isKept && (call.name == QByteArray("write") || call.name == QByteArray("ftruncate"))) {
            EXPECT_EQ(readError(file()), RuntimeError::PermissionDenied);
            EXPECT_EQ(writeError(file()), RuntimeError::PermissionDenied);
            ++refusals;
        }
        isKept = isKept || call.name == QByteArray("rename");
        return 0;
    };
    writing->pieceOf = [](size_t) { return size_t(1'000); };
    access(writing)->writeFile(decodeBytes(file()), newBytes);
    EXPECT_EQ(refusals, 13);
    EXPECT_EQ(read(file()), newBytes);
}

} // namespace

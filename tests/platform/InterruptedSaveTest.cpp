#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"
#include "tests/support/Printers.h"
#include "tests/support/Random.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>
#include <iterator>
#include <ostream>

namespace {

constexpr int endedCode = 77;

/// A save, with the surroundings that decide how it is done.
struct Save
{
    enum Kind { Replaced, New, HardLinked, ClosedFolder, ReplacedByName, NewByName };

    const char *name;
    Kind kind;
    int before;
    int after;
};

void PrintTo(const Save &save, std::ostream *stream)
{
    *stream << save.name;
}

// clang-format off
const std::array saves {
    Save {"Replaced",             Save::Replaced,       5'000, 12'000},
    Save {"New",                  Save::New,                0, 12'000},
    Save {"HardLinkedLonger",     Save::HardLinked,     5'000, 12'000},
    Save {"HardLinkedShorter",    Save::HardLinked,     5'000,    700},
    Save {"HardLinkedSameLength", Save::HardLinked,     5'000,  5'000},
    Save {"HardLinkedFromEmpty",  Save::HardLinked,         0,    700},
    Save {"HardLinkedToEmpty",    Save::HardLinked,       700,      0},
    Save {"ClosedFolderLonger",   Save::ClosedFolder,   5'000, 12'000},
    Save {"ClosedFolderShorter",  Save::ClosedFolder,   5'000,    700},
    // File systems that have no files without a name.
    Save {"ReplacedByName",       Save::ReplacedByName, 5'000, 12'000},
    Save {"NewByName",            Save::NewByName,          0, 12'000},
};
// clang-format on

class InterruptedSave : public FileWorld, public testing::WithParamInterface<Save>
{
protected:
    [[nodiscard]] Save::Kind kind() const { return GetParam().kind; }
    [[nodiscard]] bool isNew() const { return kind() == Save::New || kind() == Save::NewByName; }
    [[nodiscard]] bool isInPlace() const { return kind() == Save::HardLinked || kind() == Save::ClosedFolder; }
    [[nodiscard]] bool isByName() const { return kind() == Save::ReplacedByName || kind() == Save::NewByName; }

    [[nodiscard]] QByteArray folderOfFile() const { return kind() == Save::ClosedFolder ? at("closed") : folder(); }
    [[nodiscard]] QByteArray file() const { return folderOfFile() + "/file"; }
    [[nodiscard]] QByteArray oldBytes() const { return isNew() ? QByteArray() : content(GetParam().before, 1); }
    [[nodiscard]] QByteArray newBytes() const { return content(GetParam().after, 2); }

    /// Everything as it is before a save.
    void prepare() const
    {
        clear();
        if (kind() == Save::ClosedFolder) {
            ASSERT_EQ(mkdir(folderOfFile().constData(), 0755), 0);
        }
        if (!isNew())
            store(file(), oldBytes());
        if (kind() == Save::HardLinked) {
            ASSERT_EQ(link(file().constData(), at("other").constData()), 0);
        }
        if (kind() == Save::ClosedFolder) {
            ASSERT_EQ(chmod(folderOfFile().constData(), 0555), 0);
        }
    }

    [[nodiscard]] std::shared_ptr<Interruption> interruption(std::function<int(const Interruption::Call &)> rule) const
    {
        auto result = std::make_shared<Interruption>();
        result->errorOf = [isByName = isByName(), rule = std::move(rule)](const Interruption::Call &call) {
            const int error = rule(call);
            return error == 0 && isByName && asksForNamelessFile(call) ? EOPNOTSUPP : error;
        };
        return result;
    }

    /// Several writes a file, so that there are states in between.
    [[nodiscard]] static std::shared_ptr<Interruption> inPieces(std::shared_ptr<Interruption> interruption)
    {
        interruption->pieceOf = [](size_t) { return size_t(2'500); };
        return interruption;
    }

    void save(const std::shared_ptr<Interruption> &interruption) const
    {
        access(interruption)->writeFile(decodeBytes(file()), newBytes());
    }

    /// The calls of a save in which nothing goes wrong.
    [[nodiscard]] std::vector<Interruption::Call> callsOfASave() const
    {
        prepare();
        const auto undisturbed = inPieces(interruption([](const Interruption::Call &) { return 0; }));
        save(undisturbed);
        EXPECT_EQ(bytesOf(file()), newBytes());
        EXPECT_EQ(isInPlace(), !namesIn(stateFolder()).isEmpty());
        return undisturbed->calls;
    }

    /// Through the system: what is there now, without anybody's mending.
    [[nodiscard]] bool isOld() const
    {
        return isNew() ? !namesIn(folderOfFile()).contains("file") : bytesOf(file()) == oldBytes();
    }

    [[nodiscard]] QByteArrayList namesBeside() const
    {
        QByteArrayList names = namesIn(folderOfFile());
        names.removeAll("file");
        names.removeAll("other");
        return names;
    }

    /// The file as the next start of the program reads it.
    void expectOldOrNew() const
    {
        if (isNew() && isOld())
            return;
        const QByteArray bytes = read(file());
        EXPECT_TRUE(bytes == oldBytes() || bytes == newBytes()) << "torn: " << bytes.size() << " bytes";
        EXPECT_EQ(bytesOf(file()), bytes);
        if (kind() == Save::HardLinked) {
            EXPECT_EQ(bytesOf(at("other")), bytes);
        }
    }

    void expectNextSaveWorks() const
    {
        EXPECT_EQ(writeError(file(), "next"), 0);
        EXPECT_EQ(read(file()), "next");
        EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
    }

    /// One save after the other, each with another call that goes wrong, until one is made without a wrong call.
    /// @param look is called after each with the error that was raised and the name of the call
    void
    forEveryCall(const std::function<std::function<int(const Interruption::Call &)>(int n)> &rule,
                 const std::function<void(const std::optional<RuntimeError> &, const QByteArray &call)> &look) const
    {
        constexpr int tooMany = 500;
        for (int n = 1; n < tooMany && !HasFailure(); ++n) {
            prepare();
            const int filesBefore = openFiles();
            const auto disturbed = interruption(rule(n));
            const auto error = errorOf([&] { save(disturbed); });
            const QByteArray call = n <= disturbed->count() ? disturbed->calls[size_t(n) - 1].name : "none";
            SCOPED_TRACE(testing::Message()
                         << "call " << n << " of " << disturbed->count() << ": " << call.constData());
            EXPECT_EQ(openFiles(), filesBefore);
            look(error, call);
            if (disturbed->count() < n) {
                EXPECT_FALSE(error);
                EXPECT_GT(n, 10);
                return;
            }
        }
        EXPECT_TRUE(HasFailure()) << "there was no end of calls";
    }
};

TEST_P(InterruptedSave, AnyCallMayFail)
{
    asOrdinaryUser([this] {
        for (const int number : {EIO, ENOSPC, EACCES, EPERM, ENOENT, EMFILE}) {
            SCOPED_TRACE(std::strerror(number));
            forEveryCall([&](int n) { return failAt(n, number); },
                         [&](const std::optional<RuntimeError> &error, const QByteArray &call) {
                             EXPECT_EQ(namesBeside(), QByteArrayList());
                             if (call != "unlink") {
                                 EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
                             }
                             // What is not known to be on the disk is not called saved.
                             if (call == "fsync" && (number == EIO || number == ENOSPC)) {
                                 EXPECT_TRUE(error);
                             }
                             if (!error) {
                                 EXPECT_EQ(bytesOf(file()), newBytes());
                             } else if (error->detail().isEmpty()) {
                                 EXPECT_TRUE(isOld()) << error->message().toStdString();
                             } else {
                                 // The one error that comes after the file is in its place.
                                 EXPECT_EQ(error->detail(),
                                           "The new content is in its place, but a power cut may undo it.");
                                 EXPECT_EQ(bytesOf(file()), newBytes());
                             }
                             expectOldOrNew();
                             expectNextSaveWorks();
                         });
        }
    });
}

TEST_P(InterruptedSave, StepsAreInAnOrderThatOutlastsAPowerCut)
{
    asOrdinaryUser([this] {
        QByteArrayList steps;
        for (const Interruption::Call &call : callsOfASave()) {
            const QByteArray name = call.name;
            const bool isStep = name == "mkdir" || name == "write" || name == "fsync" || name == "link" ||
                                name == "rename" || name == "fallocate" || name == "ftruncate";
            if (isStep && !(name == "write" && !steps.isEmpty() && steps.last() == "write"))
                steps << name;
        }
        // Bytes before the name under which they are found, and then the name itself.
        QByteArray expected = "write fsync rename fsync";
        if (kind() == Save::Replaced)
            expected = "write fsync link rename fsync";
        if (kind() == Save::New)
            expected = "write fsync link fsync";
        if (isInPlace()) {
            // The folders of the copy (the outer one is missing at first), the copy, and only then the file.
            expected = "mkdir mkdir fsync mkdir fsync " + expected;
            if (GetParam().after > GetParam().before)
                expected += " fallocate";
            if (GetParam().after > 0)
                expected += " write";
            expected += " ftruncate fsync";
        }
        EXPECT_EQ(steps.join(' '), expected);
    });
}

TEST_P(InterruptedSave, AllCallsMayFailFromAnyOn)
{
    asOrdinaryUser([this] {
        forEveryCall([](int n) { return failFrom(n, EIO); },
                     [this](const std::optional<RuntimeError> &error, const QByteArray &) {
                         if (!error) {
                             EXPECT_EQ(bytesOf(file()), newBytes());
                         }
                         // Nobody could take a draft's name away again.
                         EXPECT_LE(namesBeside().size(), 1);
                         EXPECT_EQ(namesBeside(), draftsIn(folderOfFile()));
                         if (error && error->detail().isEmpty()) {
                             EXPECT_TRUE(isOld()) << error->message().toStdString();
                         }
                         expectOldOrNew();
                         expectNextSaveWorks();
                     });
    });
}

TEST_P(InterruptedSave, AnyCallMayBeInterrupted)
{
    // The calls that a signal can interrupt: signal(7).
    const QByteArrayList interruptible{"open", "read", "write", "ftruncate", "fallocate", "fsync", "close"};
    asOrdinaryUser([&] {
        forEveryCall(
            [&](int n) {
                return [=](const Interruption::Call &call) {
                    return call.number == n && interruptible.contains(call.name) ? EINTR : 0;
                };
            },
            [this](const std::optional<RuntimeError> &error, const QByteArray &) {
                EXPECT_FALSE(error) << error->message().toStdString();
                EXPECT_EQ(bytesOf(file()), newBytes());
                EXPECT_EQ(namesBeside(), QByteArrayList());
            });
    });
}

TEST_P(InterruptedSave, WritesMayBeShort)
{
    asOrdinaryUser([this] {
        Random random(5);
        const std::array<std::function<size_t(size_t)>, 3> sizes{
            [](size_t) { return size_t(1); },
            [&random](size_t) { return size_t(random.number(1, 900)); },
            [](size_t size) { return size - size / 2; },
        };
        for (const auto &size : sizes) {
            prepare();
            const auto shortened = interruption([](const Interruption::Call &call) {
                return call.number % 7 == 0 && call.name == QByteArray("write") ? EINTR : 0;
            });
            shortened->pieceOf = size;
            save(shortened);
            EXPECT_EQ(bytesOf(file()), newBytes());
            expectNextSaveWorks();
        }
        // A disk that takes nothing and gives no reason is full.
        prepare();
        class StuckCalls final : public SystemCalls
        {
            ssize_t write(int, const void *, size_t) override { return 0; }
        };
        LinuxFileAccess files(std::make_unique<StuckCalls>(), recoveryFolder());
        const auto error = errorOf([&] { files.writeFile(decodeBytes(file()), "x"); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), RuntimeError::DiskFull);
        EXPECT_TRUE(isOld());
    });
}

/// What a process that ends in place of its n-th call may leave beside the file: a draft from when it has a name until
/// it is renamed. A nameless one gets a name for the moment of the renaming only, and not at all where the file is new.
bool mayLeaveDraft(const std::vector<Interruption::Call> &calls, int n)
{
    const auto isDraft = [](const Interruption::Call &call) {
        return call.path.contains("/.zentilconf-") &&
               (call.name == QByteArray("link") || (call.name == QByteArray("open") && (call.flags & O_CREAT)));
    };
    const auto named = std::find_if(calls.begin(), calls.end(), isDraft);
    const auto renamed =
        std::find_if(named, calls.end(), [](const auto &call) { return call.name == QByteArray("rename"); });
    return named != calls.end() && n > named->number && n <= renamed->number;
}

TEST_P(InterruptedSave, ProcessMayEndAtAnyCall)
{
    asOrdinaryUser([this] {
        const auto calls = callsOfASave();
        ASSERT_GT(calls.size(), 10U);
        int drafts = 0;
        int mended = 0;
        for (int n = 1; n <= int(calls.size()); ++n) {
            SCOPED_TRACE(testing::Message() << "in place of call " << n << ": " << calls[size_t(n) - 1].name);
            prepare();
            EXPECT_EQ(exitCodeOf([&] { save(inPieces(interruption(endAt(n, endedCode)))); }), endedCode);

            const bool isTorn = !isOld() && bytesOf(file()) != newBytes();
            EXPECT_TRUE(isInPlace() || !isTorn);
            mended += isTorn;
            expectOldOrNew();

            const QByteArrayList names = namesBeside();
            EXPECT_EQ(names, draftsIn(folderOfFile()));
            EXPECT_EQ(names.size(), mayLeaveDraft(calls, n) ? 1 : 0);
            drafts += int(names.size());
            // In the state folder: at most the copy that was not yet whole. The read above dropped the whole one.
            const QByteArrayList copies = namesIn(recoveryFolder());
            EXPECT_LE(copies.size(), isInPlace() ? 1 : 0);
            EXPECT_TRUE(copies.isEmpty() || copies.first().endsWith(".new"));
            expectNextSaveWorks();
        }
        // The loop has been where it was to go.
        const bool isTornSomewhere = isInPlace() && GetParam().after > 0;
        EXPECT_EQ(mended > 0, isTornSomewhere);
        if (kind() == Save::Replaced) {
            EXPECT_EQ(drafts, 2) << "before closing and before renaming";
        } else {
            EXPECT_EQ(drafts > 0, isByName());
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Saves, InterruptedSave, testing::ValuesIn(saves),
                         [](const auto &test) { return test.param.name; });

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

/// A text of one letter, whose length tells which one it has to be.
QByteArray version(int number)
{
    return {1'000 + 700 * number, static_cast<char>('a' + number)};
}

constexpr int versions = 20;

bool isVersion(const QByteArray &bytes)
{
    const auto number = int(bytes.size() - 1'000) / 700;
    return number >= 0 && number < versions && bytes == version(number);
}

class SeveralPrograms : public FileWorld
{
protected:
    /// @param mayBeBusy whether a program may be told that another one is writing
    void saveAtOnce(bool mayBeBusy, const std::function<void()> &meanwhile) const
    {
        constexpr int programs = 4;
        constexpr int rounds = 60;
        std::array<pid_t, programs> children{};
        for (int program = 0; program < programs; ++program) {
            const pid_t child = fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                alarm(100);
                Random random(unsigned(program) + 1);
                for (int saved = 0; saved < rounds;) {
                    const int error = writeError(at("file"), version(random.number(0, versions - 1)));
                    if (error != 0 && !(mayBeBusy && error == RuntimeError::PermissionDenied))
                        _exit(error);
                    saved += error == 0;
                }
                _exit(0);
            }
            children[size_t(program)] = child;
        }
        for (const pid_t child : children) {
            int status = 0;
            pid_t ended = 0;
            while ((ended = waitpid(child, &status, WNOHANG)) == 0)
                meanwhile();
            EXPECT_EQ(ended, child);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        }
    }
};

TEST_F(SeveralPrograms, SaveOneFileAtOnce)
{
    store(at("file"), version(0));
    int looks = 0;
    saveAtOnce(false, [&] {
        ++looks;
        const QByteArray bytes = read(at("file"));
        ASSERT_TRUE(isVersion(bytes)) << bytes.size();
    });
    EXPECT_GT(looks, 10);
    EXPECT_TRUE(isVersion(read(at("file"))));
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

TEST_F(SeveralPrograms, MakeOneFileAtOnce)
{
    saveAtOnce(false, [this] {
        if (access()->fileExists(decodeBytes(at("file")))) {
            ASSERT_TRUE(isVersion(read(at("file"))));
        }
    });
    EXPECT_TRUE(isVersion(read(at("file"))));
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

TEST_F(SeveralPrograms, SaveOneLinkedFileAtOnce)
{
    store(at("file"), version(0));
    ASSERT_EQ(link(at("file").constData(), at("other").constData()), 0);
    saveAtOnce(true, [] {});
    EXPECT_TRUE(isVersion(read(at("file"))));
    EXPECT_EQ(bytesOf(at("other")), read(at("file")));
    EXPECT_EQ(namesIn(folder()), (QByteArrayList{"file", "other"}));
    EXPECT_EQ(namesIn(recoveryFolder()), QByteArrayList());
}

} // namespace

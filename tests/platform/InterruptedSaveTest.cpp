#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"
#include "tests/support/Random.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ostream>

namespace {

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
            EXPECT_EQ(drafts, 1) << "before renaming";
        } else {
            EXPECT_EQ(drafts > 0, isByName());
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Saves, InterruptedSave, testing::ValuesIn(saves),
                         [](const auto &test) { return test.param.name; });

} // namespace

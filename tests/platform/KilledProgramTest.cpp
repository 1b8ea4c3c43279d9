#include "platform/ByteText.h"
#include "platform/linux/IniUserSettings.h"
#include "platform/linux/SqliteRegistry.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"
#include "tests/platform/RegistryUser.h"
#include "tests/support/Random.h"

#include <poll.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <iostream>
#include <ostream>
#include <vector>

namespace {

constexpr int ordinaryKills = 40;

/// How many times a test kills: what ZENTILCONF_KILLS says, or else what takes a second or less.
int killCount()
{
    const int wanted = qEnvironmentVariableIntValue("ZENTILCONF_KILLS");
    return wanted > 0 ? wanted : ordinaryKills;
}

/// A process that does one step after the other, from number 1 on, and tells of each that is done.
class Steps final
{
public:
    explicit Steps(const std::function<bool(int number)> &step)
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        m_told = ends[0];
        m_child = fork();
        if (m_child == 0) {
            close(ends[0]);
            for (int number = 1; step(number) && ::write(ends[1], "+", 1) == 1;)
                ++number;
            _exit(1);
        }
        EXPECT_GT(m_child, 0);
        close(ends[1]);
    }
    Steps(const Steps &) = delete;
    Steps &operator=(const Steps &) = delete;

    /// Waits until the first step is done, and then for a moment.
    void run(int microseconds)
    {
        char sign = 0;
        EXPECT_EQ(::read(m_told, &sign, 1), 1) << "the first step failed";
        m_count = 1;
        // The other end is closed when the process has ended by itself, which it does for a step that fails.
        pollfd ended{m_told, 0, 0};
        const timespec moment{0, microseconds * 1'000L};
        EXPECT_EQ(ppoll(&ended, 1, &moment, nullptr), 0) << "a step failed";
    }

    /// @return how many steps it has told of
    int kill()
    {
        EXPECT_EQ(::kill(m_child, SIGKILL), 0);
        int status = 0;
        EXPECT_EQ(waitpid(m_child, &status, 0), m_child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it had ended before";
        std::array<char, 4096> signs{};
        for (ssize_t size = 0; (size = ::read(m_told, signs.data(), signs.size())) > 0;)
            m_count += int(size);
        close(m_told);
        return m_count;
    }

private:
    pid_t m_child = 0;
    int m_told = -1;
    int m_count = 0;
};

/// Different lengths, and no two that are alike anywhere but in their digits.
QByteArray version(int number)
{
    return (QByteArray::number(number).rightJustified(8, '0') + '\n').repeated(100 + 97 * (number % 13));
}

struct Way
{
    enum Kind { Replaced, ReplacedByName, New, NewByName, HardLinked, ClosedFolder };

    const char *name;
    Kind kind;
};

void PrintTo(const Way &way, std::ostream *stream)
{
    *stream << way.name;
}

// clang-format off
constexpr std::array ways {
    Way {"Replaced",       Way::Replaced},
    // File systems that have no files without a name.
    Way {"ReplacedByName", Way::ReplacedByName},
    Way {"New",            Way::New},
    Way {"NewByName",      Way::NewByName},
    Way {"HardLinked",     Way::HardLinked},
    Way {"ClosedFolder",   Way::ClosedFolder},
};
// clang-format on

class KilledWhileSaving : public FileWorld, public testing::WithParamInterface<Way>
{
protected:
    [[nodiscard]] bool isNew() const { return GetParam().kind == Way::New || GetParam().kind == Way::NewByName; }
    [[nodiscard]] bool isByName() const
    {
        return GetParam().kind == Way::ReplacedByName || GetParam().kind == Way::NewByName;
    }
    [[nodiscard]] QByteArray folderOfFile() const
    {
        return GetParam().kind == Way::ClosedFolder ? at("closed") : folder();
    }
    [[nodiscard]] QByteArray file() const { return folderOfFile() + "/file"; }

    void prepare() const
    {
        if (GetParam().kind == Way::ClosedFolder) {
            ASSERT_EQ(mkdir(folderOfFile().constData(), 0755), 0);
        }
        store(file(), version(0));
        ASSERT_EQ(chmod(file().constData(), 0640), 0);
        ASSERT_EQ(setxattr(file().constData(), "user.note", "mine", 4, 0), 0);
        if (GetParam().kind == Way::HardLinked) {
            ASSERT_EQ(link(file().constData(), at("other").constData()), 0);
        }
        if (GetParam().kind == Way::ClosedFolder) {
            ASSERT_EQ(chmod(folderOfFile().constData(), 0555), 0);
        }
    }

    /// In pieces, so that there are many moments in between.
    [[nodiscard]] bool save(const QByteArray &bytes) const
    {
        if (isNew())
            (void)unlink(file().constData());
        const auto inPieces = std::make_shared<Interruption>();
        inPieces->pieceOf = [](size_t) { return size_t(50); };
        inPieces->errorOf = [isByName = isByName()](const Interruption::Call &call) {
            return isByName && asksForNamelessFile(call) ? EOPNOTSUPP : 0;
        };
        return !errorOf([&] { access(inPieces)->writeFile(decodeBytes(file()), bytes); });
    }

    void expectSaved(int told, int round) const
    {
        const bool isThere = namesIn(folderOfFile()).contains("file");
        EXPECT_TRUE(isThere || isNew());
        if (!isThere)
            return;
        const QByteArray bytes = read(file());
        EXPECT_TRUE(bytes == version(told + round) || bytes == version(told + round + 1))
            << "after " << told << " saves: " << bytes.size() << " bytes";
        EXPECT_EQ(bytesOf(file()), bytes);
        if (isNew())
            return;
        std::array<char, 5> note{};
        EXPECT_EQ(modeOf(file()), 0640U);
        EXPECT_EQ(getxattr(file().constData(), "user.note", note.data(), note.size()), 4);
        EXPECT_STREQ(note.data(), "mine");
        if (GetParam().kind == Way::HardLinked) {
            EXPECT_EQ(bytesOf(at("other")), bytes);
        }
    }

    /// What lies about that is not the file, in the file's folder and among the copies.
    [[nodiscard]] QByteArrayList litter() const
    {
        QByteArrayList names = namesIn(folderOfFile()) + namesIn(recoveryFolder());
        names.removeAll("file");
        names.removeAll("other");
        return names;
    }
};

TEST_P(KilledWhileSaving, LosesNothingAndLeavesNoLitter)
{
    asOrdinaryUser([this] {
        constexpr int longestUs = 3'000;
        prepare();
        Random random(unsigned(GetParam().kind) + 1);
        int torn = 0;
        int littered = 0;
        for (int round = 0; round < killCount() && !HasFailure(); ++round) {
            SCOPED_TRACE(testing::Message() << "kill " << round + 1);
            Steps steps([&](int number) { return save(version(number + round)); });
            steps.run(random.number(0, longestUs));
            const int told = steps.kill();
            const QByteArray left = bytesOf(file());
            torn += left != "<no file>" && left != version(told + round) && left != version(told + round + 1);
            // At most what the last one left: the one before has been cleared away.
            EXPECT_LE(litter().size(), 1) << litter().join(' ').constData();
            littered += int(litter().size());
            expectSaved(told, round);
        }
        EXPECT_TRUE(save("next"));
        EXPECT_EQ(read(file()), "next");
        EXPECT_EQ(litter(), QByteArrayList());
        std::cout << killCount() << " kills: " << torn << " files torn and mended, " << littered
                  << " drafts or copies left\n";
    });
}

INSTANTIATE_TEST_SUITE_P(Ways, KilledWhileSaving, testing::ValuesIn(ways),
                         [](const auto &test) { return test.param.name; });

/// Several programs that store at once, and are killed one after the other.
class KilledWhileStoring : public FileWorld
{
protected:
    /// @param store what a program does with its own name and a number; false where another program has had the lock
    ///        for so long that this one has given up
    /// @param storedNumber what is stored under a program's name; -1 for anything that is no number
    void killOften(const std::function<bool(const QByteArray &name, int number)> &store,
                   const std::function<int(const QByteArray &name)> &storedNumber) const
    {
        constexpr int programs = 3;
        constexpr int longestUs = 10'000;
        Random random(9);
        std::array<int, programs> before{};
        for (int killed = 0; killed < killCount() && !HasFailure(); killed += programs) {
            std::vector<std::unique_ptr<Steps>> running;
            for (int program = 0; program < programs; ++program) {
                running.push_back(std::make_unique<Steps>([&, program](int number) {
                    while (!store(nameOf(program), before[size_t(program)] + number)) {
                    }
                    return true;
                }));
            }
            for (int program = 0; program < programs; ++program) {
                SCOPED_TRACE(testing::Message() << "kill " << killed + program + 1);
                running[size_t(program)]->run(random.number(0, longestUs));
                const int told = before[size_t(program)] + running[size_t(program)]->kill();
                const int stored = storedNumber(nameOf(program));
                EXPECT_TRUE(stored == told || stored == told + 1) << stored << " after " << told;
                before[size_t(program)] = stored;
            }
        }
    }

private:
    [[nodiscard]] static QByteArray nameOf(int program) { return "Program" + QByteArray::number(program); }
};

TEST_F(KilledWhileStoring, UserSettingsLoseNothing)
{
    const auto settings = [this](const auto &use) {
        const auto files = access();
        IniUserSettings own(*files, decodeBytes(at("ZentilConf/ZentilConf.ini")));
        return use(own);
    };
    ASSERT_TRUE(settings([](IniUserSettings &own) { return own.SaveSetting("Other", "Key", "stays"); }));
    killOften(
        [&](const QByteArray &name, int number) {
            return settings(
                [&](IniUserSettings &own) { return own.SaveSetting("Test", name, QString::number(number)); });
        },
        [&](const QByteArray &name) {
            return settings([&](IniUserSettings &own) { return own.GetSetting("Test", name, "-1").toInt(); });
        });
    EXPECT_TRUE(settings([](IniUserSettings &own) { return own.SaveSetting("Other", "Last", "1"); }));
    EXPECT_EQ(settings([](IniUserSettings &own) { return own.GetSetting("Other", "Key", {}); }), "stays");
    EXPECT_EQ(namesIn(at("ZentilConf")), QByteArrayList{"ZentilConf.ini"});
}

TEST_F(KilledWhileStoring, RegistryLosesNothing)
{
    const QByteArray file = at("registry.db");
    SqliteRegistry registry(file, "me");
    const RegistryUser user(registry);
    user.set(Registry::CurrentUser, "other", "stays");
    killOften(
        [&](const QByteArray &name, int number) {
            SqliteRegistry own(file, "me");
            const auto result = own.RegSetValueExA(Registry::CurrentUser, name, 3, QByteArray::number(number));
            if (result != Registry::Result::Success && result != Registry::Result::Busy)
                _exit(int(result));
            return result == Registry::Result::Success;
        },
        [&](const QByteArray &name) {
            bool isNumber = false;
            const int number = user.get(Registry::CurrentUser, name).toInt(&isNumber);
            return isNumber ? number : -1;
        });
    user.set(Registry::CurrentUser, "last", "1");
    EXPECT_EQ(user.get(Registry::CurrentUser, "other"), "stays");
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"registry.db"});
}

} // namespace

#include "platform/ByteText.h"
#include "tests/platform/FileWorld.h"
#include "tests/support/Random.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>

namespace {

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

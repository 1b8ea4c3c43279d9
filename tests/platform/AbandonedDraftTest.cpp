#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <ostream>

namespace {

bool isCall(const Interruption::Call &call, const char *name)
{
    return call.name == QByteArray(name);
}

struct FileSystemKind
{
    const char *name;
    bool hasNamelessFiles;
};

void PrintTo(const FileSystemKind &kind, std::ostream *stream)
{
    *stream << kind.name;
}

/// What a program that was killed while it saved has left beside the file.
class AbandonedDraft : public FileWorld, public testing::WithParamInterface<FileSystemKind>
{
protected:
    void SetUp() override
    {
        FileWorld::SetUp();
        store(file(), "old");
    }

    [[nodiscard]] QByteArray file() const { return at("file"); }

    /// @param look at each call; what it returns is the call's error
    [[nodiscard]] std::shared_ptr<Interruption> calls(const std::function<int(const Interruption::Call &)> &look) const
    {
        auto result = std::make_shared<Interruption>();
        result->errorOf = [look](const Interruption::Call &call) {
            if (!GetParam().hasNamelessFiles && asksForNamelessFile(call))
                return EOPNOTSUPP;
            return look(call);
        };
        return result;
    }

    void save(const QByteArray &bytes, const std::function<int(const Interruption::Call &)> &look) const
    {
        access(calls(look))->writeFile(decodeBytes(file()), bytes);
    }

    void save(const QByteArray &bytes) const
    {
        save(bytes, [](const Interruption::Call &) { return 0; });
    }

    /// @return the path of the draft
    [[nodiscard]] QByteArray abandon() const
    {
        EXPECT_EQ(exitCodeOf([this] {
                      save("killed", [](const Interruption::Call &call) {
                          if (isCall(call, "rename"))
                              _exit(7);
                          return 0;
                      });
                  }),
                  7);
        const QByteArrayList drafts = draftsIn(folder());
        EXPECT_EQ(drafts.size(), 1);
        return at(drafts.value(0));
    }
};

TEST_P(AbandonedDraft, IsRemovedByTheNextSave)
{
    const QByteArray draft = abandon();
    EXPECT_EQ(bytesOf(draft), "killed");
    EXPECT_EQ(bytesOf(file()), "old");
    save("next");
    EXPECT_EQ(bytesOf(file()), "next");
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

TEST_P(AbandonedDraft, DoesNotAddUp)
{
    const QByteArray first = abandon();
    EXPECT_EQ(abandon(), first);
}

TEST_P(AbandonedDraft, ThatIsInUseStays)
{
    int others = 0;
    save("mine", [&](const Interruption::Call &call) {
        if (isCall(call, "rename")) {
            const QByteArrayList mine = draftsIn(folder());
            EXPECT_EQ(mine.size(), 1);
            // Another program saves the same file, and is as far as this one.
            save("other", [&](const Interruption::Call &otherCall) {
                if (isCall(otherCall, "rename")) {
                    EXPECT_EQ(draftsIn(folder()).size(), 2);
                    ++others;
                }
                return 0;
            });
            EXPECT_EQ(draftsIn(folder()), mine);
            EXPECT_EQ(bytesOf(file()), "other");
        }
        return 0;
    });
    EXPECT_EQ(others, 1);
    EXPECT_EQ(bytesOf(file()), "mine");
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"file"});
}

TEST_P(AbandonedDraft, ThatCannotBeLockedIsTakenForSomebodys)
{
    const QByteArray draft = abandon();
    save("next", [](const Interruption::Call &call) { return isCall(call, "flock") ? ENOLCK : 0; });
    EXPECT_EQ(bytesOf(file()), "next");
    EXPECT_EQ(draftsIn(folder()), QByteArrayList{draft.sliced(folder().size() + 1)});
}

TEST_P(AbandonedDraft, NameOfAnythingElseIsNoObstacle)
{
    const QByteArray name = abandon();
    ASSERT_EQ(unlink(name.constData()), 0);
    store(at("precious"), "precious");
    const std::array<std::function<int()>, 3> things{
        [&] { return mkdir(name.constData(), 0755); },
        [&] { return symlink(at("precious").constData(), name.constData()); },
        [&] { return mkfifo(name.constData(), 0600); },
    };
    for (const auto &make : things) {
        ASSERT_EQ(make(), 0);
        const ino_t before = statusOf(name).st_ino;
        save("next");
        EXPECT_EQ(bytesOf(file()), "next");
        EXPECT_EQ(statusOf(name).st_ino, before);
        EXPECT_EQ(draftsIn(folder()).size(), 1);
        ASSERT_EQ(remove(name.constData()), 0);
    }
    EXPECT_EQ(bytesOf(at("precious")), "precious");
}

INSTANTIATE_TEST_SUITE_P(FileSystems, AbandonedDraft,
                         testing::Values(FileSystemKind{"WithNamelessFiles", true},
                                         FileSystemKind{"WithoutNamelessFiles", false}),
                         [](const auto &test) { return test.param.name; });

} // namespace

#include "platform/windows/WindowsPrograms.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int patienceMs = 60000;

class WindowsProgramsTest : public testing::Test
{
protected:
    /// Has the command interpreter make a file, and waits until it is there.
    [[nodiscard]] bool makesAFile(const QString &interpreter)
    {
        const QString made = QDir::toNativeSeparators(folder.filePath("made"));
        return programs.start(interpreter, {"/c", "mkdir", made}) &&
               QTest::qWaitFor([&] { return QFile::exists(made); }, patienceMs);
    }

    QTemporaryDir folder;
    WindowsPrograms programs;
};

TEST_F(WindowsProgramsTest, StartsWhatTheSystemFindsByName)
{
    EXPECT_TRUE(makesAFile("cmd.exe"));
}

TEST_F(WindowsProgramsTest, ReplacesVariablesInAPath)
{
    // As the registry has paths.
    EXPECT_TRUE(makesAFile("%SystemRoot%\\system32\\cmd.exe"));
}

TEST_F(WindowsProgramsTest, SaysWhatCannotBeStarted)
{
    for (const char *name : {"none.exe", "C:\\nowhere\\none.exe", "%NoSuchVariable%\\none.exe", ""})
        EXPECT_FALSE(programs.start(name, {})) << name;
}

TEST_F(WindowsProgramsTest, LeavesTheToolThatTellsOfTheSystemToTheRegistry)
{
    EXPECT_EQ(programs.systemInformationTools(), QStringList());
}

} // namespace

#include "platform/linux/LinuxPrograms.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int patienceMs = 30000;

/// Two folders of programs and nothing else on the path.
class LinuxProgramsTest : public testing::Test
{
protected:
    LinuxProgramsTest()
    {
        EXPECT_TRUE(QDir(folder.path()).mkdir("first") && QDir(folder.path()).mkdir("second"));
        qputenv("PATH", (at("first") + ':' + at("second")).toUtf8());
    }
    ~LinuxProgramsTest() override { qputenv("PATH", path); }

    [[nodiscard]] QString at(const QString &name) const { return folder.filePath(name); }

    void make(const QString &name, const QByteArray &script = "#!/bin/sh\n", bool isExecutable = true) const
    {
        QFile file(at(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(script), script.size());
        file.close();
        if (isExecutable) {
            ASSERT_TRUE(file.setPermissions(file.permissions() | QFile::ExeOwner));
        }
    }

    /// A program that writes its arguments, one a line, into a file of that name.
    void makeTelling(const QString &name, const QString &told) const
    {
        const QByteArray target = at(told).toUtf8();
        make(name, "#!/bin/sh\nprintf '%s\\n' \"$@\" >'" + target + ".part'\n/bin/mv '" + target + ".part' '" + target +
                       "'\n");
    }

    [[nodiscard]] QByteArray told(const QString &name) const
    {
        QFile file(at(name));
        EXPECT_TRUE(QTest::qWaitFor([&] { return file.exists(); }, patienceMs)) << "the program was not started";
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QByteArray path = qgetenv("PATH");
    QTemporaryDir folder;
    LinuxPrograms programs;
};

TEST_F(LinuxProgramsTest, StartsWhatIsOnThePathWithItsArguments)
{
    makeTelling("second/tool", "told");
    EXPECT_TRUE(programs.start("tool", {"a b", "$HOME", "", QStringLiteral(u"\u00e4")}));
    EXPECT_EQ(told("told"), "a b\n$HOME\n\n\xC3\xA4\n");
}

TEST_F(LinuxProgramsTest, StartsAProgramByItsPath)
{
    makeTelling("tool", "told");
    EXPECT_TRUE(programs.start(at("tool"), {"1"}));
    EXPECT_EQ(told("told"), "1\n");
}

TEST_F(LinuxProgramsTest, DoesNotWaitForItsEnd)
{
    // It ends only once it has been let; a start that waited would never return.
    makeTelling("first/later", "told");
    make("first/waiting", "#!/bin/sh\nwhile ! [ -e '" + at("go").toUtf8() + "' ]; do :; done\nexec later done\n");
    EXPECT_TRUE(programs.start("waiting", {}));
    make("go");
    EXPECT_EQ(told("told"), "done\n");
}

TEST_F(LinuxProgramsTest, LetsThemPrintNothing)
{
    const QByteArray target = at("told").toUtf8();
    make("first/printing",
         "#!/bin/sh\nprinted=$(/bin/readlink /proc/$$/fd/1 /proc/$$/fd/2)\nprintf '%s' \"$printed\" >'" + target +
             ".part'\n/bin/mv '" + target + ".part' '" + target + "'\n");
    EXPECT_TRUE(programs.start("printing", {}));
    EXPECT_EQ(told("told"), "/dev/null\n/dev/null");
}

TEST_F(LinuxProgramsTest, SaysWhatCannotBeStarted)
{
    make("first/readonly", "#!/bin/sh\n", false);
    make("first/brokenstart", "#!/nowhere/shell\n");
    for (const char *name : {"none", "readonly", "brokenstart", "/nowhere/tool", ""})
        EXPECT_FALSE(programs.start(name, {})) << name;
}

TEST_F(LinuxProgramsTest, FindsTheToolsThatTellOfTheSystemTheBestFirst)
{
    EXPECT_EQ(programs.systemInformationTools(), QStringList());
    make("first/lshw-gtk");
    make("second/kinfocenter");
    make("first/hardinfo", "", false);
    EXPECT_EQ(programs.systemInformationTools(), (QStringList{at("second/kinfocenter"), at("first/lshw-gtk")}));
    make("second/hardinfo");
    make("second/hardinfo2");
    EXPECT_EQ(programs.systemInformationTools(), (QStringList{at("second/hardinfo2"), at("second/hardinfo"),
                                                              at("second/kinfocenter"), at("first/lshw-gtk")}));
}

} // namespace

#include "platform/linux/DesktopFiles.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct CommandCase
{
    const char *path;
    const char *command;
};

// clang-format off
constexpr std::array commandCases {
    CommandCase {"/usr/bin/zentilconf",   R"("/usr/bin/zentilconf" %F)"},
    CommandCase {"/opt/a b/zentilconf",   R"("/opt/a b/zentilconf" %F)"},
    CommandCase {R"(/opt/"a"/z)",         R"("/opt/\\"a\\"/z" %F)"},
    CommandCase {R"(/opt/$a`b/z)",        R"("/opt/\\$a\\`b/z" %F)"},
    CommandCase {R"(/opt/a\b/z)",         R"("/opt/a\\\\b/z" %F)"},
    CommandCase {"/opt/100%F/z",          R"("/opt/100%%F/z" %F)"},
    CommandCase {"/opt/M\xC3\xBCller/z",  "\"/opt/M\xC3\xBCller/z\" %F"},
};
// clang-format on

TEST(DesktopFiles, CommandIsQuoted)
{
    for (const CommandCase &row : commandCases)
        EXPECT_EQ(desktopCommand(row.path), row.command);
}

TEST(DesktopFiles, EntryStartsTheProgram)
{
    const QByteArray entry = "[Desktop Entry]\nName=Exec=\nExec=zentilconf %F\nTryExec=zentilconf\nIcon=zentilconf\n";
    EXPECT_EQ(entryForProgram(entry, "/opt/a b/z\\"),
              "[Desktop Entry]\nName=Exec=\nExec=\"/opt/a b/z\\\\\\\\\" %F\nTryExec=/opt/a b/z\\\\\n"
              "Icon=zentilconf\n");
}

TEST(DesktopFiles, TextOfAnEntry)
{
    const QByteArray entry = "# Exec=1\n[Other]\nExec=2\n[Desktop Entry]\n Exec = 3 \nTryExec=4\n[Last]\nName=5\n";
    EXPECT_EQ(entryText(entry, "Exec"), "3");
    EXPECT_EQ(entryText(entry, "TryExec"), "4");
    EXPECT_EQ(entryText(entry, "Name"), "");
}

QByteArray withDefault(const QByteArray &list)
{
    return withDefaultEntry(list, "a/b", "z.desktop");
}

TEST(DesktopFiles, EmptyListGetsBothGroups)
{
    const QByteArray expected = "[Added Associations]\na/b=z.desktop;\n\n[Default Applications]\na/b=z.desktop;\n";
    EXPECT_EQ(withDefault({}), expected);
    EXPECT_EQ(withDefault(expected), expected) << "once more changes nothing";
}

TEST(DesktopFiles, OtherLinesOfTheListStay)
{
    EXPECT_EQ(withDefault("# mine\n\n[Default Applications]\ntext/plain=e.desktop\nnonsense\n\n"
                          "[Removed Associations]\na/b=x.desktop;\n"),
              "# mine\n\n[Default Applications]\ntext/plain=e.desktop\nnonsense\na/b=z.desktop;\n\n"
              "[Removed Associations]\na/b=x.desktop;\n\n[Added Associations]\na/b=z.desktop;\n");
}

TEST(DesktopFiles, EntryStandsBeforeTheOthers)
{
    EXPECT_EQ(withDefault("[Default Applications]\na/b = x.desktop;y.desktop\na/bc=y.desktop\n"
                          "[Added Associations]\na/b=y.desktop;z.desktop;x.desktop;\n"),
              "[Default Applications]\na/b=z.desktop;x.desktop;y.desktop;\na/bc=y.desktop\n"
              "[Added Associations]\na/b=z.desktop;y.desktop;x.desktop;\n");
}

TEST(DesktopFiles, ListWithoutALineEndIsKept)
{
    EXPECT_EQ(withDefault("[Default Applications]\ntext/plain=e.desktop"),
              "[Default Applications]\ntext/plain=e.desktop\na/b=z.desktop;\n\n"
              "[Added Associations]\na/b=z.desktop;\n");
}

} // namespace

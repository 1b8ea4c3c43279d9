#include "platform/windows/CommandLineText.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(CommandLineTextTest, DropsTheProgramsName)
{
    const std::pair<QString, QString> rows[] = {
        {QStringLiteral("zentilconf.exe"), QString()},
        {QStringLiteral("zentilconf.exe "), QString()},
        {QStringLiteral("zentilconf.exe a b"), QStringLiteral("a b")},
        // What stands behind the name stays as it was typed, quotes and blanks included.
        {QStringLiteral("\"C:\\Program Files\\z.exe\"  \"C:\\a b.zcf\" "), QStringLiteral("\"C:\\a b.zcf\" ")},
        {QStringLiteral("C:\\Pro\"gram Files\"\\z.exe\tc.zcf"), QStringLiteral("c.zcf")},
        {QString(), QString()},
    };
    for (const auto &[commandLine, text] : rows)
        EXPECT_EQ(behindProgramName(commandLine), text) << commandLine.toStdString();
}

} // namespace

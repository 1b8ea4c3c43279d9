#include "platform/windows/WindowsPath.h"

#include <QDir>

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(WindowsPathTest, GivesTheFormForLongPaths)
{
    const std::pair<QString, QString> rows[] = {
        {QStringLiteral("C:\\a\\b.zcf"), QStringLiteral("\\\\?\\C:\\a\\b.zcf")},
        {QStringLiteral("\\\\host\\C$\\b.zcf"), QStringLiteral("\\\\?\\UNC\\host\\C$\\b.zcf")},
        {QStringLiteral("\\\\?\\C:\\a"), QStringLiteral("\\\\?\\C:\\a")},
        {QStringLiteral("\\\\.\\nul"), QStringLiteral("\\\\.\\nul")},
        {QString(), QString()},
    };
    for (const auto &[path, extended] : rows) {
        EXPECT_EQ(extendedPath(path), extended);
        EXPECT_EQ(readablePath(extended), path.startsWith(QStringLiteral("\\\\?\\")) ? path.sliced(4) : path);
    }
    // Without its beginning this would be another path.
    const QString volume = QStringLiteral("\\\\?\\Volume{1}\\a");
    EXPECT_EQ(readablePath(volume), volume);
}

TEST(WindowsPathTest, CountsARelativePathFromTheCurrentFolder)
{
    const QString expected = QStringLiteral("\\\\?\\") + QDir::toNativeSeparators(QDir::currentPath());
    EXPECT_EQ(WindowsPath(QStringLiteral("a/../b.zcf")).native(),
              QDir::toNativeSeparators(expected + QStringLiteral("/b.zcf")));
    EXPECT_EQ(WindowsPath(QStringLiteral("b.zcf")).shown(), QStringLiteral("b.zcf"));
}

} // namespace

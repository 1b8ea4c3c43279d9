#include "config/ConfigFile.h"

#include "config/RowList.h"
#include "platform/RuntimeError.h"
#include "tests/support/Errors.h"
#include "tests/support/FakeFileAccess.h"
#include "tests/support/FakeShell.h"

#include <gtest/gtest.h>

namespace {

class ConfigFileTest : public testing::Test
{
protected:
    QStringList linesOf(const QByteArray &bytes)
    {
        files.content["f.zcf"] = bytes;
        file.SetInfo("f.zcf");
        return file.GetFile();
    }

    FakeFileAccess files;
    FakeShell shell;
    ConfigFile file{files, shell};
};

TEST_F(ConfigFileTest, EmptyLineInsideStaysAndEmptyLinesAtTheEndGo)
{
    EXPECT_EQ(linesOf("a\r\n\r\nb\r\n\r\n\r\n"), QStringList({"a", "", "b"}));
}

TEST_F(ConfigFileTest, FileWithLfLineEndsGivesTheRowsOfItsCrLfTwin)
{
    EXPECT_EQ(linesOf("a\n\nb\n"), linesOf("a\r\n\r\nb\r\n"));
    EXPECT_EQ(linesOf("a\r\rb\r"), linesOf("a\r\n\r\nb\r\n"));
}

TEST_F(ConfigFileTest, EmptyFileGivesNoLines)
{
    EXPECT_EQ(linesOf(""), QStringList());
}

TEST_F(ConfigFileTest, FileOfEmptyLinesOnlyRaisesInvalidCall)
{
    const auto error = errorOf([this] { (void)linesOf("\r\n\r\n"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 5);
    EXPECT_EQ(error->path(), "f.zcf");
}

TEST_F(ConfigFileTest, SavingADocumentWithoutRowsWritesAnEmptyFile)
{
    file.SetInfo("f.zcf");
    qint16 success = 0;
    file.SetFile(RowList().text(), 0, success);
    EXPECT_EQ(success, 1);
    EXPECT_EQ(files.content["f.zcf"], QByteArray(""));
    EXPECT_EQ(files.writes, 1);
}

TEST_F(ConfigFileTest, TitleIsConfigurationWhateverThePath)
{
    EXPECT_EQ(file.Title(), "Configuration");
    file.SetInfo("f.zcf");
    EXPECT_EQ(file.Title(), "Configuration");
}

TEST_F(ConfigFileTest, ThereIsNoRemoteHost)
{
    EXPECT_EQ(file.GetRemote("server"), "");
    EXPECT_EQ(file.TryRemoteConnect("server", "C", "user", "password"), "");
}

TEST_F(ConfigFileTest, TextIsWrittenAsUtf8AndCarriedBytesAsThemselves)
{
    file.SetInfo("f.zcf");
    qint16 success = 0;
    file.SetFile(QString("\u20AC") + QChar(0xDCE9) + "\r\n", 1, success);
    EXPECT_EQ(files.content["f.zcf"], QByteArray("\xE2\x82\xAC\xE9\r\n"));
}

TEST_F(ConfigFileTest, WithoutAPathSaveAsIsRunAndSuccessReportedEvenWhenItWasCancelled)
{
    qint16 success = 0;
    file.SetFile("a\r\n", 1, success);
    EXPECT_EQ(shell.saveAsCalls, 1);
    EXPECT_EQ(success, 1);
    EXPECT_EQ(files.writes, 0);
}

TEST_F(ConfigFileTest, FailedWriteReportsNoSuccess)
{
    file.SetInfo("f.zcf");
    files.content["f.zcf"] = "old";
    files.writeError = RuntimeError(RuntimeError::DiskFull, "f.zcf");
    qint16 success = 0;
    EXPECT_THROW(file.SetFile("new\r\n", 1, success), RuntimeError);
    EXPECT_EQ(success, 0);
    EXPECT_EQ(files.content["f.zcf"], "old");
}

TEST_F(ConfigFileTest, ErrorWhileReadingReachesTheCaller)
{
    file.SetInfo("missing.zcf");
    EXPECT_EQ(errorNumberOf([this] { (void)file.GetFile(); }), 53);
}

} // namespace

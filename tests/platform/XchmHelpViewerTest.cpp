#include "platform/linux/XchmHelpViewer.h"

#include "platform/ByteText.h"
#include "platform/RuntimeError.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePrograms.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

using Command = HelpViewer::Command;

/// A help file in a folder that is the drive "P:".
class XchmHelpViewerTest : public testing::Test
{
protected:
    XchmHelpViewerTest()
    {
        const QDir root(folder.path());
        EXPECT_TRUE(root.mkpath("Product/help") && root.mkpath("dosdevices"));
        EXPECT_TRUE(QFile::link(folder.filePath("Product"), folder.filePath("dosdevices/p:")));
        QFile help(folder.filePath("Product/help/Zentil.chm"));
        EXPECT_TRUE(help.open(QIODevice::WriteOnly));
    }

    [[nodiscard]] QString descriptionOf(const QString &file)
    {
        const auto error = errorOf([&] { viewer.HtmlHelpA(file, Command::HelpContext, 1); });
        if (!error)
            return "<shown>";
        EXPECT_EQ(error->number(), RuntimeError::FileNotFound);
        return error->description();
    }

    QTemporaryDir folder;
    /// The system's path of the file on the drive.
    const QString helpPath = folder.filePath("dosdevices/p:/help/Zentil.chm");
    FakePrograms programs;
    XchmHelpViewer viewer{programs, encodeText(folder.filePath("dosdevices"))};
};

TEST_F(XchmHelpViewerTest, ShowsATopicByItsContextNumber)
{
    viewer.HtmlHelpA("P:\\Help\\zentil.chm", Command::HelpContext, 4711);
    EXPECT_EQ(programs.started, (QList<QStringList>{{"xchm", "--contextid=4711", helpPath}}));
}

TEST_F(XchmHelpViewerTest, ShowsContentsAndSearchWithoutATopic)
{
    viewer.HtmlHelpA("P:\\Help\\zentil.chm", Command::DisplayTableOfContents, 4711);
    viewer.HtmlHelpA("P:\\Help\\zentil.chm", Command::DisplaySearch, 4711);
    EXPECT_EQ(programs.started, (QList<QStringList>{{"xchm", helpPath}, {"xchm", helpPath}}));
}

TEST_F(XchmHelpViewerTest, FindsTheFileOfAProductWhereverItIsRegistered)
{
    // The product's folder with what is always put behind it, whatever the case of the names.
    EXPECT_TRUE(viewer.hasFile("P:\\Help\\zentil.chm"));
    EXPECT_TRUE(viewer.hasFile("p:/help/ZENTIL.CHM"));
    EXPECT_TRUE(viewer.hasFile(folder.filePath("Product") + "\\Help\\zentil.chm"));
    EXPECT_FALSE(viewer.hasFile("Q:\\Help\\zentil.chm"));
    EXPECT_FALSE(viewer.hasFile("P:\\Help\\other.chm"));
    EXPECT_FALSE(viewer.hasFile(folder.filePath("Other") + "\\Help\\zentil.chm"));
    EXPECT_FALSE(viewer.hasFile("P:\\Help"));
    // Without a product there is no folder before it.
    EXPECT_FALSE(viewer.hasFile("\\Help\\zentil.chm"));
    EXPECT_FALSE(viewer.hasFile(""));
}

TEST_F(XchmHelpViewerTest, SaysWhichFileIsMissing)
{
    EXPECT_EQ(descriptionOf("\\Help\\zentil.chm"), "Cannot find file \\Help\\zentil.chm");
    EXPECT_EQ(descriptionOf("P:\\Help\\other.chm"), "Cannot find file P:\\Help\\other.chm");
    EXPECT_EQ(programs.started, QList<QStringList>());
}

TEST_F(XchmHelpViewerTest, SaysThatTheViewerIsMissing)
{
    programs.isStartable = false;
    EXPECT_EQ(descriptionOf("P:\\Help\\zentil.chm"),
              "Cannot start \"xchm\", which shows the help. It is in the package of that name.");
}

} // namespace

#include "platform/windows/HtmlHelpViewer.h"

#include "platform/RuntimeError.h"
#include "tests/support/Errors.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

TEST(HtmlHelpViewer, FindsTheFile)
{
    const QTemporaryDir folder;
    const QString path = QDir::toNativeSeparators(folder.filePath("zentil.chm"));
    const HtmlHelpViewer viewer;
    EXPECT_FALSE(viewer.hasFile(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(viewer.hasFile(path));
    EXPECT_FALSE(viewer.hasFile(QDir::toNativeSeparators(folder.path())));
}

TEST(HtmlHelpViewer, SaysWhichFileIsMissing)
{
    HtmlHelpViewer viewer;
    for (const auto command : {HelpViewer::Command::DisplayTableOfContents, HelpViewer::Command::DisplaySearch,
                               HelpViewer::Command::HelpContext}) {
        const auto error = errorOf([&] { viewer.HtmlHelpA("C:\\nowhere\\zentil.chm", command, 1); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), RuntimeError::FileNotFound);
        EXPECT_EQ(error->description(), "Cannot find file C:\\nowhere\\zentil.chm");
    }
}

} // namespace

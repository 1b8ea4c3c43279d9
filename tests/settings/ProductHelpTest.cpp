#include "settings/ProductHelp.h"

#include "tests/support/FakeHelpViewer.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace {

using Command = HelpViewer::Command;

class ProductHelpTest : public testing::Test
{
protected:
    void install(const QByteArray &release, const QByteArray &folder)
    {
        registry.set("HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software\\Zentil\\" + release, "Directory", folder);
    }

    FakeRegistry registry;
    FakeHelpViewer viewer;
    FakeMessages messages;
    ProductHelp help{registry, viewer, messages};
};

TEST_F(ProductHelpTest, IsTheFileBelowTheProductsFolder)
{
    install("2.0", QByteArray("C:\\Zentil\0", 10));
    help.showTopic(12);
    help.showContents();
    help.showSearch();
    ASSERT_EQ(viewer.calls.size(), 3);
    EXPECT_EQ(viewer.calls[0], (FakeHelpViewer::Call{"C:\\Zentil\\Help\\zentil.chm", Command::HelpContext, 12}));
    EXPECT_EQ(viewer.calls[1],
              (FakeHelpViewer::Call{"C:\\Zentil\\Help\\zentil.chm", Command::DisplayTableOfContents, 0}));
    EXPECT_EQ(viewer.calls[2], (FakeHelpViewer::Call{"C:\\Zentil\\Help\\zentil.chm", Command::DisplaySearch, 0}));
}

TEST_F(ProductHelpTest, ATopicIsAskedForWithCommand15)
{
    EXPECT_EQ(quint32(Command::HelpContext), 15U);
}

TEST_F(ProductHelpTest, IsLookedForAnewEachTime)
{
    // The product may be installed while the program runs.
    viewer.files = QStringList{"C:\\Zentil\\Help\\zentil.chm"};
    EXPECT_FALSE(help.hasFile());
    install("2.0", "C:\\Zentil");
    EXPECT_TRUE(help.hasFile());
    install("3.0", "D:\\Zentil");
    EXPECT_FALSE(help.hasFile());
}

TEST_F(ProductHelpTest, WithoutAProductTheFileHasNoFolder)
{
    help.showTopic(0);
    ASSERT_EQ(viewer.calls.size(), 1);
    EXPECT_EQ(viewer.calls[0].file, "\\Help\\zentil.chm");
}

TEST_F(ProductHelpTest, AnErrorsDescriptionIsShown)
{
    viewer.error = RuntimeError::described(RuntimeError::FileNotFound, missingHelpFileText("C:\\zentil.chm"));
    messages.expectShow("Cannot find file C:\\zentil.chm");
    help.showTopic(1);
    messages.expectShow("Cannot find file C:\\zentil.chm");
    help.showContents();
    messages.expectShow("Cannot find file C:\\zentil.chm");
    help.showSearch();
    messages.verify();
}

} // namespace

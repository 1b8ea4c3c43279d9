#include "settings/ProductLookup.h"

#include "settings/Config.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace {

const QByteArray productPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software\\Zentil";

class ProductLookup : public testing::Test
{
protected:
    void install(const QByteArray &release, const QByteArray &directory, const QByteArray &number = {})
    {
        registry.set(productPath + '\\' + release, "Directory", directory);
        registry.set(productPath + '\\' + release, "relver", number);
    }

    FakeRegistry registry;
};

TEST_F(ProductLookup, ProductThatIsNotInstalled)
{
    EXPECT_EQ(InstallationDirectory(registry), "");
    EXPECT_EQ(ReleaseNumber(registry), 0);
    registry.make(productPath);
    EXPECT_EQ(InstallationDirectory(registry), "");
    registry.make(productPath + "\\1.0");
    EXPECT_EQ(InstallationDirectory(registry), "");
    EXPECT_EQ(ReleaseNumber(registry), 0);
    EXPECT_EQ(registry.paths().size(), 11) << "looking makes nothing";
}

TEST_F(ProductLookup, OfTwoReleasesTheGreaterIsRead)
{
    install("2.0", "C:\\two", "2");
    install("1.0", "C:\\one", "1");
    EXPECT_EQ(InstallationDirectory(registry), "C:\\two");
    EXPECT_EQ(ReleaseNumber(registry), '2');
    EXPECT_EQ(registry.openHandles(), 0);
}

TEST_F(ProductLookup, GreatestIsMeantAsText)
{
    install("9.0", "C:\\nine");
    install("10.0", "C:\\ten");
    EXPECT_EQ(InstallationDirectory(registry), "C:\\nine");
    install("a", "C:\\a");
    install("Z", "C:\\Z");
    EXPECT_EQ(InstallationDirectory(registry), "C:\\a");
}

TEST_F(ProductLookup, TextEndsAtItsFirstZero)
{
    install("1.0", QByteArray("C:\\a\0b\0", 7), QByteArray("\x05\0", 2));
    EXPECT_EQ(InstallationDirectory(registry), "C:\\a");
    EXPECT_EQ(ReleaseNumber(registry), 5);
}

TEST_F(ProductLookup, ReleaseNumberIsTheFirstByte)
{
    for (const int number : {1, 65, 200, 255}) {
        install("1.0", "", QByteArray(1, static_cast<char>(number)) + "rest");
        EXPECT_EQ(ReleaseNumber(registry), number);
        EXPECT_EQ(Config(registry).RelVer(), number);
    }
    install("1.0", "", QByteArray(3, '\0'));
    EXPECT_EQ(ReleaseNumber(registry), 0);
}

TEST_F(ProductLookup, KeyThatMayNotBeOpenedGivesNothing)
{
    install("1.0", "C:\\one", "1");
    registry.denied << productPath + "\\1.0";
    EXPECT_EQ(InstallationDirectory(registry), "");
    EXPECT_EQ(ReleaseNumber(registry), 0);
    registry.denied = {productPath};
    EXPECT_EQ(ProductValue(registry, "Directory"), "");
}

} // namespace

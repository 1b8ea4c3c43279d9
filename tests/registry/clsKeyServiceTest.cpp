// The layer over the system's own registry, or the store that stands for it.
#include "platform/Platform.h"
#include "registry/clsKey.h"
#include "registry/RegistryConstants.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using RegistryConstants::allAccess;

namespace {

class clsKeyService : public testing::Test
{
protected:
    void SetUp() override
    {
        parent.OpenFull("HKEY_CURRENT_USER", "", 0, allAccess);
        parent.AddSubKey(path);
        key.OpenFull("HKEY_CURRENT_USER\\" + path, "", 0, allAccess);
        ASSERT_TRUE(key.KeyOK());
    }

    void TearDown() override
    {
        key.CloseKey();
        parent.DeleteSubKey(path + "\\b\\c");
        parent.DeleteSubKey(path + "\\b");
        parent.DeleteSubKey(path);
        clsKey gone(*platform.registry);
        gone.OpenFull("HKEY_CURRENT_USER\\" + path, "", 0, allAccess);
        EXPECT_FALSE(gone.KeyOK());
    }

    const Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    const QString path = QStringLiteral("Software\\ZentilConf layer %1").arg(QCoreApplication::applicationPid());
    clsKey parent{*platform.registry};
    clsKey key{*platform.registry};
};

TEST_F(clsKeyService, StoresAsManyBytesAsCharacters)
{
    key.Value("text", "abc");
    EXPECT_EQ(key.Value("text")->DataString(), "abc");
    key.Value("number", 300);
    EXPECT_EQ(key.Value("number")->DataString(), "300");
    key.Value("empty", "");
    EXPECT_EQ(key.Value("empty")->size(), 0);
    key.Value("ended", QString("abc") + QChar(0));
    EXPECT_EQ(key.Value("ended")->size(), 4);
}

TEST_F(clsKeyService, TextBeyondAsciiComesBackThroughTheCodePage)
{
    const QString text = QStringLiteral(u"M\u00FCller \u00DF");
    key.Value("text", text);
    const QByteArray bytes = key.Value("text")->DataString().toLatin1();
    EXPECT_EQ(platform.registry->fromCodePage(bytes), text);
}

TEST_F(clsKeyService, LongDataGivesNothing)
{
    key.Value("255", QByteArray(255, 'x'), 3);
    key.Value("256", QByteArray(256, 'x'), 3);
    EXPECT_EQ(key.Value("255")->size(), 255);
    EXPECT_FALSE(key.Value("256"));
}

TEST_F(clsKeyService, FindsSubKeysAndTheirContent)
{
    key.AddSubKey("b\\c");
    ASSERT_EQ(key.SubKeys().size(), 1U);
    clsKey &below = key.SubKeys().front();
    EXPECT_EQ(below.Name(), "b");
    below.OpenKey(allAccess);
    EXPECT_EQ(below.MaxSubKeyLength, 1U);
    below.Value("v", "1");
    EXPECT_EQ(below.Value(0)->Name(), "v");
    below.DeleteValue("v");
    EXPECT_FALSE(below.Value("v"));
}

} // namespace

#include "platform/windows/WindowsRegistry.h"

#include "platform/windows/WindowsCalls.h"
#include "tests/platform/RegistryUser.h"

#include <gtest/gtest.h>

#include <array>

namespace {

// Latin with an accent, Cyrillic, Chinese, and a character outside the first plane.
const QString manyScripts = QStringLiteral(u"\u00E4\u0416\u6587\U0001F600");

/// What the system's own registry is beyond what every registry is: RegistryConformanceTest.
class WindowsRegistryTest : public testing::Test
{
protected:
    void SetUp() override { base = user.made(Registry::CurrentUser, m_path.toLatin1()); }

    void TearDown() override
    {
        user.close(base);
        RegDeleteTreeW(HKEY_CURRENT_USER, wide(m_path));
    }

    /// The text of a value below the test's key, as wide functions see it.
    [[nodiscard]] QString wideText(const QString &subKey, const QString &name) const
    {
        std::array<wchar_t, 64> text{};
        DWORD size = sizeof text;
        EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, wide(m_path + '\\' + subKey), wide(name), RRF_RT_REG_SZ, nullptr,
                               text.data(), &size),
                  ERROR_SUCCESS);
        return QString::fromWCharArray(text.data());
    }

    const QString m_path = QStringLiteral("Software\\ZentilConf registry %1").arg(GetCurrentProcessId());
    WindowsRegistry registry;
    const RegistryUser user{registry};
    Registry::Handle base = 0;
};

TEST_F(WindowsRegistryTest, CodePageIsUtf8)
{
    // As the manifest says. A code page of one byte a character could not give all of this back.
    EXPECT_EQ(registry.toCodePage(manyScripts), manyScripts.toUtf8());
    EXPECT_EQ(registry.fromCodePage(manyScripts.toUtf8()), manyScripts);
    EXPECT_EQ(registry.toCodePage(QString()), QByteArray());
    EXPECT_EQ(registry.fromCodePage(QByteArray()), QString());
}

TEST_F(WindowsRegistryTest, PartOfATextIsConverted)
{
    const QString text = "ab" + manyScripts;
    EXPECT_EQ(registry.toCodePage(QStringView(text).first(1)), "a");
    EXPECT_EQ(registry.fromCodePage(QByteArrayView("abc").first(2)), "ab");
}

TEST_F(WindowsRegistryTest, NamesAndTextsOfAnyScriptAreThoseOfWideFunctions)
{
    const QByteArray narrow = registry.toCodePage(manyScripts);
    const Registry::Handle key = user.made(base, narrow);
    user.set(key, narrow, narrow, REG_SZ);
    EXPECT_EQ(wideText(manyScripts, manyScripts), manyScripts);
    EXPECT_EQ(user.get(key, narrow), narrow);
    EXPECT_EQ(user.valueNames(key), QByteArrayList{narrow});
    EXPECT_EQ(user.subKeys(base), QByteArrayList{narrow});
    user.close(key);
}

TEST_F(WindowsRegistryTest, HivesHaveTheirNumbersOnAPointersWidth)
{
    // Carried on without its sign, the number would be no hive.
    for (const Registry::Handle hive : {Registry::ClassesRoot, Registry::CurrentUser, Registry::LocalMachine,
                                        Registry::Users, Registry::CurrentConfig}) {
        const Registry::Handle opened = user.opened(hive, QByteArray(), Registry::ReadAccess);
        EXPECT_NE(opened, 0U) << hive;
        user.close(opened);
        EXPECT_GT(user.info(hive).subKeys, 0U) << hive;
    }
}

TEST_F(WindowsRegistryTest, ThisMachineIsConnectedToByItsNameToo)
{
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD length = name.size();
    ASSERT_TRUE(GetComputerNameA(name.data(), &length));
    for (const QByteArray &machine : {QByteArray(), QByteArray(name.data()), "\\\\" + QByteArray(name.data())}) {
        Registry::Handle hive = 0;
        EXPECT_EQ(registry.RegConnectRegistryA(machine, Registry::LocalMachine, &hive), Registry::Result::Success)
            << machine.constData();
        user.close(user.opened(hive, "Software", Registry::ReadAccess));
        user.close(hive);
    }
}

} // namespace

#include "platform/windows/WindowsUserSettings.h"

#include "platform/windows/WindowsCalls.h"

#include <gtest/gtest.h>

namespace {

class WindowsUserSettingsTest : public testing::Test
{
protected:
    ~WindowsUserSettingsTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, wide(m_key)); }

    const QString m_key = QStringLiteral("Software\\ZentilConf test %1").arg(GetCurrentProcessId());
    WindowsUserSettings m_settings{m_key};
    const QString m_section = QStringLiteral("Settings");
};

TEST_F(WindowsUserSettingsTest, GivesBackWhatWasStored)
{
    for (const QString &text :
         {QString(), QStringLiteral("1000"), QStringLiteral(u"\u00e4\u6587"), QString(5'000, u'x')}) {
        ASSERT_TRUE(m_settings.SaveSetting(m_section, QStringLiteral("Key"), text));
        EXPECT_EQ(WindowsUserSettings(m_key).GetSetting(m_section, QStringLiteral("Key"), QStringLiteral("absent")),
                  text);
    }
}

TEST_F(WindowsUserSettingsTest, StoresAsAdministratorsKnowIt)
{
    ASSERT_TRUE(m_settings.SaveSetting(m_section, QStringLiteral("MainLeft"), QStringLiteral("1000")));
    wchar_t text[8] = {};
    DWORD size = sizeof text;
    ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, wide(m_key + QStringLiteral("\\Settings")), L"MainLeft", RRF_RT_REG_SZ,
                           nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_STREQ(text, L"1000");
}

TEST_F(WindowsUserSettingsTest, AnswersAbsentForWhatIsNotThereOrNoText)
{
    const QString absent = QStringLiteral("absent");
    EXPECT_EQ(m_settings.GetSetting(m_section, QStringLiteral("None"), absent), absent);
    const DWORD number = 7;
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, wide(m_key + QStringLiteral("\\Settings")), L"Number", REG_DWORD,
                              &number, sizeof number),
              ERROR_SUCCESS);
    EXPECT_EQ(m_settings.GetSetting(m_section, QStringLiteral("Number"), absent), absent);
}

TEST_F(WindowsUserSettingsTest, SaysWhenATextCannotBeStored)
{
    // No key of the registry may have a name of more than 255 characters.
    EXPECT_FALSE(m_settings.SaveSetting(QString(300, u'x'), QStringLiteral("Key"), QStringLiteral("1")));
}

} // namespace

#include "settings/StoredPreferences.h"

#include "platform/RuntimeError.h"
#include "settings/Config.h"
#include "tests/support/Errors.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace {

class StoredPreferencesTest : public testing::Test
{
protected:
    FakeRegistry registry;
    Config config{registry};
    StoredPreferences preferences{registry, config};
};

TEST_F(StoredPreferencesTest, AreTheSettingsOfTheMachine)
{
    config.setEdit(1);
    config.setremote(1);
    EXPECT_EQ(preferences.Edit(), 1);
    EXPECT_EQ(preferences.remote(), 1);
    config.setEdit(0);
    EXPECT_EQ(preferences.Edit(), 0);
}

TEST_F(StoredPreferencesTest, AskNothingOfARegistryThatIsNotThere)
{
    registry.isThere = false;
    EXPECT_EQ(preferences.Edit(), 0);
    EXPECT_EQ(preferences.remote(), 0);
    EXPECT_EQ(preferences.listFont().family, std::nullopt);
    EXPECT_EQ(preferences.listFont().size, std::nullopt);
    EXPECT_EQ(registry.calls, QByteArrayList());
}

TEST_F(StoredPreferencesTest, HaveNoFontUntilOneIsStored)
{
    // The defaults, "MS Sans Serif" in 8 points, would replace the desktop's font on every machine.
    EXPECT_EQ(preferences.listFont().family, std::nullopt);
    EXPECT_EQ(preferences.listFont().size, std::nullopt);
    EXPECT_EQ(config.FontName(), "MS Sans Serif");
}

TEST_F(StoredPreferencesTest, HaveTheFontThatWasStored)
{
    preferences.storeListFont("DejaVu Sans Mono", 11);
    EXPECT_EQ(config.FontName(), "DejaVu Sans Mono");
    EXPECT_EQ(config.FontSize(), 11);
    EXPECT_EQ(preferences.listFont().family, "DejaVu Sans Mono");
    EXPECT_EQ(preferences.listFont().size, 11);
}

TEST_F(StoredPreferencesTest, HaveTheHalfOfAFontThatWasStored)
{
    config.setFontSize(20);
    EXPECT_EQ(preferences.listFont().family, std::nullopt);
    EXPECT_EQ(preferences.listFont().size, 20);
}

TEST_F(StoredPreferencesTest, TellOfAFontThatTheRegistryDoesNotKeep)
{
    const auto errorOfStoring = [this](const QString &family) {
        return errorNumberOf([&] { preferences.storeListFont(family, 11); });
    };
    EXPECT_EQ(errorOfStoring("DejaVu Sans"), 0);
    // The code page does not have these characters.
    EXPECT_EQ(errorOfStoring(QStringLiteral(u"\u660E\u671D")), RuntimeError::DeviceError);
    EXPECT_EQ(errorOfStoring("DejaVu Sans"), 0);
    registry.isFull = true;
    EXPECT_EQ(errorOfStoring("DejaVu Serif"), RuntimeError::DeviceError);
    EXPECT_EQ(preferences.listFont().family, "DejaVu Sans");
}

TEST_F(StoredPreferencesTest, RaiseWhatReadingRaises)
{
    for (const auto &setting : {ConfigSettings::edit, ConfigSettings::remote, ConfigSettings::fontSize})
        config.SetSetting(setting.section, setting.name, "many");
    EXPECT_THROW((void)preferences.Edit(), RuntimeError);
    EXPECT_THROW((void)preferences.remote(), RuntimeError);
    EXPECT_THROW((void)preferences.listFont(), RuntimeError);
    registry.denied = {"HKEY_LOCAL_MACHINE\\SOFTWARE"};
    EXPECT_THROW((void)preferences.Edit(), RuntimeError);
    EXPECT_THROW(preferences.storeListFont("DejaVu Sans", 9), RuntimeError);
}

} // namespace

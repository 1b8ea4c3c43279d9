#include "settings/SettingsReader.h"

#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace {

class SettingsReaderTest : public testing::Test
{
protected:
    void store(const Config::Setting &setting, const QString &text)
    {
        config.SetSetting(setting.section, setting.name, text);
    }

    [[nodiscard]] qint32 readCommand() { return reader.read(&Config::RefreshCommand, ConfigSettings::refreshCommand); }
    [[nodiscard]] qint32 readHost() { return reader.read(&Config::RefreshHost, ConfigSettings::refreshHost); }
    [[nodiscard]] qint16 readEdit() { return reader.read(&Config::Edit, ConfigSettings::edit); }
    [[nodiscard]] QString readServer() { return reader.read(&Config::Server, ConfigSettings::server); }

    FakeRegistry registry;
    Config config{registry};
    SettingsReader reader{config};
};

TEST_F(SettingsReaderTest, ReadsWhatIsStoredAndHasNoProblem)
{
    store(ConfigSettings::refreshCommand, "70000");
    store(ConfigSettings::edit, "1");
    store(ConfigSettings::server, "main");
    EXPECT_EQ(readCommand(), 65535);
    EXPECT_EQ(readHost(), 0);
    EXPECT_EQ(readEdit(), 1);
    EXPECT_EQ(readServer(), "main");
    EXPECT_EQ(reader.problems(), "");
}

TEST_F(SettingsReaderTest, GivesTheDefaultForWhatIsNoNumberAndTellsItsName)
{
    store(ConfigSettings::refreshCommand, "often");
    EXPECT_EQ(readCommand(), 5);
    EXPECT_EQ(reader.problems(), "Run-time error '13':\n\nType mismatch\n\n"
                                 "These settings cannot be read and are shown with their defaults: RefreshCommand");
}

TEST_F(SettingsReaderTest, TellsEachErrorOnceWithItsSettings)
{
    store(ConfigSettings::refreshCommand, "often");
    store(ConfigSettings::edit, "100000");
    store(ConfigSettings::refreshHost, "");
    EXPECT_EQ(readCommand(), 5);
    EXPECT_EQ(readEdit(), 0);
    EXPECT_EQ(readHost(), 0);
    EXPECT_EQ(reader.problems(),
              "Run-time error '13':\n\nType mismatch\n\n"
              "These settings cannot be read and are shown with their defaults: RefreshCommand, RefreshHost\n\n"
              "Run-time error '6':\n\nOverflow\n\n"
              "These settings cannot be read and are shown with their defaults: Edit");
}

TEST_F(SettingsReaderTest, WithoutRightsGivesEveryDefault)
{
    registry.denied = {"HKEY_LOCAL_MACHINE\\SOFTWARE"};
    EXPECT_EQ(readCommand(), 5);
    EXPECT_EQ(readEdit(), 0);
    EXPECT_EQ(readServer(), "Unknown");
    EXPECT_TRUE(reader.problems().endsWith("RefreshCommand, Edit, Server")) << reader.problems().toStdString();
}

} // namespace

#include "settings/Config.h"

#include "platform/RuntimeError.h"
#include "tests/support/Errors.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <set>

namespace {

const QByteArray applicationPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software\\ZentilAdmin";

class ConfigTest : public testing::Test
{
protected:
    [[nodiscard]] QByteArray stored(const QByteArray &section, const QByteArray &name) const
    {
        return registry.data(applicationPath + '\\' + section, name).value_or("<none>");
    }
    void store(const QByteArray &section, const QByteArray &name, const QByteArray &data)
    {
        registry.set(applicationPath + '\\' + section, name, data);
    }

    static void expectNoSubKey(const std::function<void()> &work)
    {
        const auto error = errorOf(work);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), 10001);
        EXPECT_EQ(error->description(), "Unable to create subkey");
    }

    FakeRegistry registry;
    Config config{registry};
};

// Reading

TEST_F(ConfigTest, FreshMachineHasTheDefaults)
{
    EXPECT_EQ(config.OutputFlip(), 0);
    EXPECT_EQ(config.FontName(), "MS Sans Serif");
    EXPECT_EQ(config.FontSize(), 8);
    EXPECT_EQ(config.RefreshHost(), 0);
    EXPECT_EQ(config.RefreshCommand(), 5);
    EXPECT_EQ(config.RefreshProp(), 0);
    EXPECT_EQ(config.AutoStart(), 0);
    EXPECT_EQ(config.DSN(), "");
    EXPECT_EQ(config.ODBCserver(), "");
    EXPECT_EQ(config.ODBCuser(), "");
    EXPECT_EQ(config.ODBCdb(), "");
    EXPECT_EQ(config.ODBCdriver(), "");
    EXPECT_EQ(config.ODBCdsn(), "");
    EXPECT_EQ(config.Server(), "Unknown");
    EXPECT_EQ(config.Edit(), 0);
    EXPECT_EQ(config.remote(), 0);
    EXPECT_EQ(config.RelVer(), 0);
}

TEST_F(ConfigTest, ReadingMakesTheSectionsKey)
{
    EXPECT_FALSE(registry.hasKey(applicationPath));
    EXPECT_EQ(config.FontSize(), 8);
    EXPECT_TRUE(registry.hasKey(applicationPath + "\\options"));
    EXPECT_FALSE(registry.hasKey(applicationPath + "\\odbc"));
    EXPECT_EQ(stored("options", "fontsize"), "<none>");
    EXPECT_EQ(registry.openHandles(), 0);
}

TEST_F(ConfigTest, ReadingAMissingReleaseMakesNothing)
{
    EXPECT_EQ(config.RelVer(), 0);
    EXPECT_FALSE(registry.hasKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software"));
}

TEST_F(ConfigTest, RefreshHostAbove65535ReadsAs65535)
{
    struct Case
    {
        const char *stored;
        qint32 read;
    };
    // clang-format off
    constexpr std::array<Case, 8> cases {{
        {"70000",        65535},
        {"65536",        65535},
        {"65535",        65535},
        {"65535.4",      65535},
        {"99999999999",  65535},
        {"10",           10},
        {"-5",           -5},
        {"-2147483648",  std::numeric_limits<qint32>::min()},
    }};
    // clang-format on
    for (const Case &row : cases) {
        store("options", "refreshhost", row.stored);
        store("options", "refreshcommand", row.stored);
        store("options", "refreshprop", row.stored);
        EXPECT_EQ(config.RefreshHost(), row.read) << row.stored;
        EXPECT_EQ(config.RefreshCommand(), row.read) << row.stored;
        EXPECT_EQ(config.RefreshProp(), row.read) << row.stored;
    }
    store("options", "refreshhost", "-99999999999");
    EXPECT_EQ(errorNumberOf([this] { (void)config.RefreshHost(); }), 6);
}

TEST_F(ConfigTest, OtherNumbersAreNotLimited)
{
    store("options", "fontsize", "32767");
    EXPECT_EQ(config.FontSize(), 32767);
    store("options", "editdefault", "-1");
    EXPECT_EQ(config.Edit(), -1);
    store("options", "remoteflag", " 1 ");
    EXPECT_EQ(config.remote(), 1);
}

TEST_F(ConfigTest, EndingZeroOfAStoredTextIsNoPartOfIt)
{
    store("options", "fontsize", QByteArray("10\0", 3));
    EXPECT_EQ(config.FontSize(), 10);
    store("options", "fontname", QByteArray("Co\0urier\0\0", 10));
    EXPECT_EQ(config.FontName(), "Courier");
}

TEST_F(ConfigTest, TextThatIsNoNumberIsATypeMismatch)
{
    for (const QByteArray &text :
         {QByteArray("eight"), QByteArray(""), QByteArray("8pt"), QByteArray("\x08\0\0\0", 4)}) {
        store("options", "fontsize", text);
        EXPECT_EQ(errorNumberOf([this] { (void)config.FontSize(); }), 13);
        store("options", "refreshcommand", text);
        EXPECT_EQ(errorNumberOf([this] { (void)config.RefreshCommand(); }), 13);
    }
    store("options", "fontsize", "32768");
    EXPECT_EQ(errorNumberOf([this] { (void)config.FontSize(); }), 6);
    EXPECT_EQ(registry.openHandles(), 0);
}

TEST_F(ConfigTest, TextThatIsTooLongForTheLayerIsAbsent)
{
    store("options", "server", QByteArray(256, 's'));
    EXPECT_EQ(config.Server(), "Unknown");
}

// Writing

TEST_F(ConfigTest, FontSizeIsStoredAsItsDigits)
{
    config.setFontSize(10);
    EXPECT_EQ(stored("options", "fontsize"), "10");
    EXPECT_EQ(registry.type(applicationPath + "\\options", "fontsize"), 1U);
    EXPECT_EQ(config.FontSize(), 10);
}

TEST_F(ConfigTest, NothingIsLimitedWhenItIsWritten)
{
    config.setRefreshHost(70000);
    EXPECT_EQ(stored("options", "refreshhost"), "70000");
    EXPECT_EQ(config.RefreshHost(), 65535);
    config.setRefreshProp(-3);
    EXPECT_EQ(stored("options", "refreshprop"), "-3");
    config.setOutputFlip(-1);
    EXPECT_EQ(stored("options", "outputflip"), "-1");
}

TEST_F(ConfigTest, SectionsHaveNamesOfTheirOwn)
{
    config.setDSN("one");
    EXPECT_EQ(config.ODBCdsn(), "");
    config.setODBCdsn("two");
    EXPECT_EQ(config.DSN(), "one");
    EXPECT_EQ(config.ODBCdsn(), "two");
    config.setServer("three");
    config.setODBCserver("four");
    EXPECT_EQ(config.Server(), "three");
    EXPECT_EQ(stored("odbc", "server"), "four");
    EXPECT_EQ(stored("options", "server"), "three");
}

TEST_F(ConfigTest, EveryPropertyIsStoredWhereItsRowSays)
{
    config.setOutputFlip(1);
    config.setFontName("2");
    config.setFontSize(3);
    config.setRefreshHost(4);
    config.setRefreshCommand(5);
    config.setRefreshProp(6);
    config.setAutoStart(7);
    config.setDSN("8");
    config.setODBCserver("9");
    config.setODBCuser("10");
    config.setODBCdb("11");
    config.setODBCdriver("12");
    config.setODBCdsn("13");
    config.setServer("14");
    config.setEdit(15);
    config.setremote(16);
    // Written out once more: the settings of other versions and other programs are at these places.
    // clang-format off
    constexpr std::array<std::array<const char *, 3>, 16> places {{
        {"options", "outputflip",     "1"},
        {"options", "fontname",       "2"},
        {"options", "fontsize",       "3"},
        {"options", "refreshhost",    "4"},
        {"options", "refreshcommand", "5"},
        {"options", "refreshprop",    "6"},
        {"options", "autostart",      "7"},
        {"options", "dsn",            "8"},
        {"odbc",    "server",         "9"},
        {"odbc",    "user",           "10"},
        {"odbc",    "db",             "11"},
        {"odbc",    "driver",         "12"},
        {"odbc",    "dsn",            "13"},
        {"options", "server",         "14"},
        {"options", "editdefault",    "15"},
        {"options", "remoteflag",     "16"},
    }};
    // clang-format on
    for (const auto &[section, name, text] : places)
        EXPECT_EQ(stored(section, name), text) << section << ' ' << name;
    EXPECT_EQ(config.OutputFlip(), 1);
    EXPECT_EQ(config.FontName(), "2");
    EXPECT_EQ(config.FontSize(), 3);
    EXPECT_EQ(config.RefreshHost(), 4);
    EXPECT_EQ(config.RefreshCommand(), 5);
    EXPECT_EQ(config.RefreshProp(), 6);
    EXPECT_EQ(config.AutoStart(), 7);
    EXPECT_EQ(config.DSN(), "8");
    EXPECT_EQ(config.ODBCserver(), "9");
    EXPECT_EQ(config.ODBCuser(), "10");
    EXPECT_EQ(config.ODBCdb(), "11");
    EXPECT_EQ(config.ODBCdriver(), "12");
    EXPECT_EQ(config.ODBCdsn(), "13");
    EXPECT_EQ(config.Server(), "14");
    EXPECT_EQ(config.Edit(), 15);
    EXPECT_EQ(config.remote(), 16);
    EXPECT_EQ(registry.openHandles(), 0);
}

TEST_F(ConfigTest, TableHasEveryPlaceOnce)
{
    std::set<QString> places;
    std::set<QString> properties;
    for (const Config::Setting &setting : ConfigSettings::all) {
        EXPECT_TRUE(places.insert(setting.section + QLatin1String("\\") + setting.name).second);
        EXPECT_TRUE(properties.insert(setting.property).second);
        // A default has to be what its setting can be read as.
        store(setting.section.data(), setting.name.data(), setting.absent.data());
    }
    EXPECT_EQ(places.size(), 16U);
    EXPECT_EQ(config.RefreshCommand(), 5);
    EXPECT_EQ(config.FontSize() + config.OutputFlip() + config.AutoStart() + config.Edit() + config.remote(), 8);
}

TEST_F(ConfigTest, TextBeyondAsciiComesBack)
{
    config.setODBCuser(QStringLiteral(u"M\u00FCller"));
    EXPECT_EQ(stored("odbc", "user"), "M\xFCller");
    EXPECT_EQ(config.ODBCuser(), QStringLiteral(u"M\u00FCller"));
}

TEST_F(ConfigTest, EmptyTextIsAText)
{
    config.setServer("");
    EXPECT_EQ(stored("options", "server"), "");
    EXPECT_EQ(config.Server(), "");
}

// The operations beneath

TEST_F(ConfigTest, GetSettingGivesTheDefaultUnchanged)
{
    EXPECT_EQ(config.GetSetting("other", "none", 5), QVariant(5));
    EXPECT_EQ(config.GetSetting("other", "none", QVariant()), QVariant());
    config.SetSetting("other", "none", 7);
    EXPECT_EQ(config.GetSetting("other", "none", 5), QVariant(QString("7")));
}

TEST_F(ConfigTest, IsStoredTellsWhatTheRegistryHasKept)
{
    EXPECT_FALSE(config.isStored(ConfigSettings::odbcUser, ""));
    config.setODBCuser("user");
    EXPECT_TRUE(config.isStored(ConfigSettings::odbcUser, "user"));
    EXPECT_FALSE(config.isStored(ConfigSettings::odbcUser, "User"));
    registry.isFull = true;
    config.setODBCuser("other");
    EXPECT_FALSE(config.isStored(ConfigSettings::odbcUser, "other"));
}

TEST_F(ConfigTest, CreateKeyGivesAnOpenKey)
{
    {
        const clsKey key = config.CreateKey("options");
        EXPECT_TRUE(key.KeyOK());
        EXPECT_EQ(registry.openPaths(), QByteArrayList{applicationPath + "\\options"});
    }
    EXPECT_EQ(registry.openHandles(), 0);
    EXPECT_TRUE(config.CreateKey("options").KeyOK());
}

TEST_F(ConfigTest, LoadNamesTheKeyAgain)
{
    config.Load();
    config.setFontSize(9);
    EXPECT_EQ(stored("options", "fontsize"), "9");
}

// A machine whose key may not be written

TEST_F(ConfigTest, SectionThatCannotBeMadeIsAnError)
{
    registry.denied << "HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software";
    expectNoSubKey([this] { (void)config.FontSize(); });
    expectNoSubKey([this] { config.setFontSize(9); });
    EXPECT_EQ(registry.openHandles(), 0);

    registry.denied = {applicationPath + "\\odbc"};
    EXPECT_EQ(config.FontSize(), 8);
    EXPECT_EQ(errorNumberOf([this] { (void)config.ODBCuser(); }), 10001);
    EXPECT_EQ(registry.openHandles(), 0);
}

TEST_F(ConfigTest, MachineWithoutAccessIsAnError)
{
    registry.denied << "HKEY_LOCAL_MACHINE\\SOFTWARE";
    EXPECT_FALSE(config.CreateKey("options").KeyOK());
    expectNoSubKey([this] { config.setFontSize(9); });
    expectNoSubKey([this] { (void)config.FontSize(); });
    EXPECT_EQ(registry.openHandles(), 0);
}

} // namespace

#include "settings/OptionValues.h"

#include "platform/RuntimeError.h"
#include "settings/Config.h"
#include "tests/support/Errors.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

#include <QMap>

namespace {

const QByteArray applicationPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software\\ZentilAdmin";

class OptionValuesTest : public testing::Test
{
protected:
    void apply()
    {
        applyOptions(config, values, [this] {
            ++updates;
            storedWhenUpdated = stored();
        });
    }

    /// What is stored, by section and name.
    [[nodiscard]] QMap<QByteArray, QByteArray> stored() const
    {
        QMap<QByteArray, QByteArray> result;
        for (const Config::Setting &setting : ConfigSettings::all) {
            const QByteArray section = QString(setting.section).toLatin1();
            const QByteArray name = QString(setting.name).toLatin1();
            if (const auto data = registry.data(applicationPath + '\\' + section, name))
                result[section + '/' + name] = *data;
        }
        return result;
    }

    [[nodiscard]] QString errorTextOf(int number)
    {
        const auto error = errorOf([this] { apply(); });
        if (!error)
            return "<none>";
        EXPECT_EQ(error->number(), number);
        return error->message();
    }

    FakeRegistry registry;
    Config config{registry};
    OptionValues values{1, 1, 70000, -3, 0, 1, {"source", "user", "db", "driver", "server"}};
    int updates = 0;
    QMap<QByteArray, QByteArray> storedWhenUpdated;
};

TEST_F(OptionValuesTest, AreStoredAsTextsUnderTheirNames)
{
    apply();
    EXPECT_EQ(stored(), (QMap<QByteArray, QByteArray>{
                            {"options/autostart", "1"},
                            {"options/remoteflag", "1"},
                            // Nothing is limited when it is written.
                            {"options/refreshhost", "70000"},
                            {"options/refreshcommand", "-3"},
                            {"options/refreshprop", "0"},
                            {"options/editdefault", "1"},
                            {"odbc/dsn", "source"},
                            {"odbc/user", "user"},
                            {"odbc/db", "db"},
                            {"odbc/driver", "driver"},
                            {"odbc/server", "server"},
                        }));
}

TEST_F(OptionValuesTest, WindowsAreToldOnceBetweenTheIntervalsAndTheDefaultEditor)
{
    apply();
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(storedWhenUpdated.keys(),
              (QByteArrayList{"options/autostart", "options/refreshcommand", "options/refreshhost",
                              "options/refreshprop", "options/remoteflag"}));
}

TEST_F(OptionValuesTest, AreStoredInTheirOrder)
{
    // The one that cannot be stored ends it; what stands before it is stored, what stands behind it is not.
    registry.denied = {applicationPath + "\\odbc"};
    EXPECT_EQ(errorTextOf(RuntimeError::RegistryError), "Run-time error '10001':\n\nUnable to create subkey");
    EXPECT_EQ(stored().size(), 6);
    EXPECT_EQ(stored().value("options/editdefault"), "1");
}

TEST_F(OptionValuesTest, WithoutRightsNothingIsStoredAndNobodyTold)
{
    registry.denied = {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software"};
    EXPECT_EQ(errorTextOf(RuntimeError::RegistryError), "Run-time error '10001':\n\nUnable to create subkey");
    EXPECT_EQ(updates, 0);
}

TEST_F(OptionValuesTest, WhatTheRegistryDoesNotStoreIsTold)
{
    apply();
    registry.isFull = true;
    values.refreshProp = 9;
    values.odbc.user = "other";
    EXPECT_TRUE(errorTextOf(RuntimeError::DeviceError)
                    .endsWith("The registry does not store these settings as they are: RefreshProp, ODBCuser"));
    EXPECT_EQ(stored().value("odbc/user"), "user");
}

TEST_F(OptionValuesTest, TextsThatTheRegistryChangesAreTold)
{
    // A character that is not in the code page, and a text that is longer than what is read back.
    values.odbc.user = QStringLiteral(u"\u0416ukov");
    values.odbc.server = QString(256, 's');
    EXPECT_TRUE(errorTextOf(RuntimeError::DeviceError)
                    .endsWith("The registry does not store these settings as they are: ODBCuser, ODBCserver"));
    values.odbc.user = QStringLiteral(u"M\u00FCller");
    values.odbc.server = QString(255, 's');
    EXPECT_EQ(errorTextOf(0), "<none>");
    EXPECT_EQ(config.ODBCuser(), QStringLiteral(u"M\u00FCller"));
}

TEST_F(OptionValuesTest, LeaveTheOtherSettingsAlone)
{
    config.setDSN("reports");
    config.setServer("main");
    config.setFontSize(12);
    apply();
    EXPECT_EQ(config.DSN(), "reports");
    EXPECT_EQ(config.Server(), "main");
    EXPECT_EQ(config.FontSize(), 12);
}

} // namespace

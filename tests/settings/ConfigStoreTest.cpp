// The machine's settings in the store that stands for a registry.
#include "platform/Platform.h"
#include "platform/RuntimeError.h"
#include "settings/Config.h"
#include "settings/ProductLookup.h"
#include "settings/StoredPreferences.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString storePath()
{
    return qEnvironmentVariable("XDG_DATA_HOME") + "/ZentilConf/registry.db";
}

Platform started()
{
    return makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
}

TEST(ConfigStore, SettingsAreThereForTheNextProgram)
{
    {
        const Platform platform = started();
        Config config(*platform.registry);
        EXPECT_EQ(config.FontSize(), 8);
        config.setFontSize(10);
        config.setODBCuser(QStringLiteral(u"M\u00FCller"));
    }
    const Platform platform = started();
    const Config config(*platform.registry);
    EXPECT_EQ(config.FontSize(), 10);
    EXPECT_EQ(config.ODBCuser(), QStringLiteral(u"M\u00FCller"));
    EXPECT_EQ(config.FontName(), "MS Sans Serif");
}

TEST(ConfigStore, OpeningADocumentMakesNoStore)
{
    const Platform platform = started();
    Config config(*platform.registry);
    StoredPreferences preferences(*platform.registry, config);
    EXPECT_EQ(preferences.remote(), 0);
    EXPECT_EQ(preferences.Edit(), 0);
    EXPECT_EQ(preferences.listFont().family, std::nullopt);
    EXPECT_FALSE(platform.registry->hasStore());
    EXPECT_FALSE(QFile::exists(storePath()));
    // Reading a setting itself does.
    EXPECT_EQ(config.Edit(), 0);
    EXPECT_TRUE(platform.registry->hasStore());
    EXPECT_TRUE(QFile::exists(storePath()));
}

TEST(ConfigStore, ADocumentSeesWhatAnotherProgramHasStoredMeanwhile)
{
    const Platform platform = started();
    Config config(*platform.registry);
    StoredPreferences preferences(*platform.registry, config);
    EXPECT_EQ(preferences.remote(), 0);
    {
        const Platform other = started();
        Config(*other.registry).setremote(1);
    }
    EXPECT_EQ(preferences.remote(), 1);
}

TEST(ConfigStore, StoreIsWhereItsVariableSays)
{
    const QTemporaryDir folder;
    qputenv("ZENTILCONF_REGISTRY", folder.filePath("own/settings.db").toUtf8());
    {
        const Platform platform = started();
        Config(*platform.registry).setEdit(1);
    }
    qunsetenv("ZENTILCONF_REGISTRY");
    EXPECT_TRUE(QFile::exists(folder.filePath("own/settings.db")));
    const Platform platform = started();
    EXPECT_EQ(Config(*platform.registry).Edit(), 0);
}

TEST(ConfigStore, RelativePathIsMeantFromTheFolderOfTheStart)
{
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    qputenv("ZENTILCONF_REGISTRY", "settings.db");
    const Platform platform = started();
    qunsetenv("ZENTILCONF_REGISTRY");
    QDir::setCurrent(before);
    EXPECT_EQ(Config(*platform.registry).Edit(), 0);
    EXPECT_TRUE(QFile::exists(folder.filePath("settings.db")));
}

TEST(ConfigStore, StoreThatCannotBeUsedIsAnErrorAndStaysAsItIs)
{
    QDir().mkpath(QFileInfo(storePath()).path());
    QFile file(storePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5'000, 'x'));
    file.close();
    const Platform platform = started();
    Config config(*platform.registry);
    EXPECT_THROW((void)config.FontSize(), RuntimeError);
    EXPECT_THROW(config.setFontSize(9), RuntimeError);
    EXPECT_EQ(config.RelVer(), 0);
    EXPECT_EQ(InstallationDirectory(*platform.registry), "");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray(5'000, 'x'));
}

} // namespace

#include "platform/linux/ServiceLibrary.h"
#include "platform/LdapDirectory.h"
#include "platform/linux/LateDataSources.h"
#include "platform/linux/LateDirectory.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

QStringList built()
{
    return {"/nowhere", SERVICE_FOLDER};
}

QStringList nowhere()
{
    return {"/nowhere"};
}

DirectoryStatus openIn(Directory &directory, const QString &path)
{
    std::unique_ptr<DirectoryObject> object;
    return directory.OpenDSObject(
        path, {}, {}, Directory::None, [] { return true; }, object);
}

bool isLoaded(const QByteArray &library)
{
    QFile maps("/proc/self/maps");
    EXPECT_TRUE(maps.open(QIODevice::ReadOnly));
    return maps.readAll().contains(library);
}

// What was loaded stays, so that there is one test for before and after.
TEST(ServiceLibrary, IsLoadedWhenItsServiceIsFirstUsed)
{
    LateDirectory directory(built);
    LateDataSources dataSources(built);
    EXPECT_FALSE(isLoaded("/zentilconf-services.so"));

    // The real service is behind it: it says of a path that is none what only it says.
    LdapDirectory plain;
    const DirectoryStatus status = openIn(directory, "no path");
    EXPECT_EQ(status.code, DirectoryStatus::Code::Failed);
    EXPECT_EQ(status.text, openIn(plain, "no path").text);
    EXPECT_TRUE(isLoaded("/zentilconf-services.so"));

    DataSources::Environment environment = nullptr;
    EXPECT_EQ(dataSources.SQLAllocEnv(&environment), DataSources::Result::Success);
    EXPECT_NE(environment, nullptr);
    EXPECT_EQ(dataSources.SQLFreeEnv(environment), DataSources::Result::Success);
}

TEST(ServiceLibrary, ADirectoryWithoutItsLibrarySaysWhatIsMissing)
{
    LateDirectory directory(nowhere);
    const DirectoryStatus status = openIn(directory, "LDAP://localhost/RootDSE");
    EXPECT_EQ(status.code, DirectoryStatus::Code::Failed);
    EXPECT_TRUE(status.text.startsWith("A part of the program is missing. ")) << status.text.toStdString();
    EXPECT_TRUE(status.text.contains("zentilconf-services")) << status.text.toStdString();
}

// The library may be there at the next try, after the program has been mended.
TEST(ServiceLibrary, IsLookedForAgain)
{
    QStringList folders = nowhere();
    LateDirectory directory([&folders] { return folders; });
    EXPECT_TRUE(openIn(directory, "no path").text.contains("missing"));
    folders = built();
    EXPECT_FALSE(openIn(directory, "no path").text.contains("missing"));
}

TEST(ServiceLibrary, DataSourcesWithoutTheirLibraryGiveNoEnvironment)
{
    LateDataSources dataSources(nowhere);
    char something = 0;
    DataSources::Environment environment = &something;
    EXPECT_EQ(dataSources.SQLAllocEnv(&environment), DataSources::Result::Error);
    EXPECT_EQ(environment, nullptr);
    EXPECT_EQ(dataSources.SQLDataSources(nullptr, DataSources::FetchFirst, nullptr, 0, nullptr),
              DataSources::Result::InvalidHandle);
    EXPECT_EQ(dataSources.SQLFreeEnv(nullptr), DataSources::Result::InvalidHandle);
}

// The first folder is that of the program, as it is built; an installed program has the other.
TEST(ServiceLibrary, IsInAFolderOfTheProgram)
{
    const QStringList folders = ServiceLibrary::folders();
    ASSERT_EQ(folders.size(), 2);
    EXPECT_TRUE(folders[1].startsWith(folders[0] + "/../")) << folders[1].toStdString();
    EXPECT_TRUE(folders[1].endsWith("/zentilconf/services")) << folders[1].toStdString();
}

TEST(ServiceLibrary, AFileThatIsNoLibraryIsNotLoaded)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("zentilconf-services.so"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("nothing");
    file.close();
    QString problem;
    EXPECT_EQ(ServiceLibrary::function("makeDirectory", {folder.path()}, problem), nullptr);
    EXPECT_FALSE(problem.isEmpty());
    EXPECT_EQ(ServiceLibrary::function("noSuchFunction", built(), problem), nullptr);
    EXPECT_TRUE(problem.endsWith(" is of another version.")) << problem.toStdString();
}

} // namespace

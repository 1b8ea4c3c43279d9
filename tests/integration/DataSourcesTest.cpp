// The names of data sources from the driver manager itself.
#include "platform/OdbcDataSources.h"
#include "settings/DataSourceNames.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

/// A configuration of the driver manager in a folder of its own.
class DriverManager : public testing::Test
{
protected:
    DriverManager()
    {
        qputenv("ODBCSYSINI", folder.path().toUtf8());
        qputenv("ODBCINI", folder.filePath("user.ini").toUtf8());
    }
    ~DriverManager() override
    {
        qunsetenv("ODBCSYSINI");
        qunsetenv("ODBCINI");
    }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    [[nodiscard]] std::optional<QStringList> names()
    {
        auto found = dataSourceNames(sources);
        if (found)
            found->sort();
        return found;
    }

    /// Whether the driver manager connects with a data source. In a process of its own: drivers leave memory behind.
    [[nodiscard]] static bool isUsable(const QString &name)
    {
        constexpr int patienceMs = 60000;
        QProcess program;
        program.setStandardInputFile(QProcess::nullDevice());
        program.start("isql", {"-b", name});
        EXPECT_TRUE(program.waitForFinished(patienceMs)) << program.errorString().toStdString();
        return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    }

    QTemporaryDir folder;
    OdbcDataSources sources;
};

TEST_F(DriverManager, NamesTheDataSourcesOfTheUserAndOfTheMachine)
{
    write("odbcinst.ini", "[SQLite3]\nDescription=SQLite3\nDriver=libsqlite3odbc.so\n");
    write("user.ini", "[zentil events]\nDriver=SQLite3\nDatabase=" + folder.filePath("events.db").toUtf8() + "\n");
    write("odbc.ini", "[machine's own]\nDriver=SQLite3\n");
    EXPECT_EQ(names(), (QStringList{"machine's own", "zentil events"}));
    // What is listed is what the driver manager connects with.
    EXPECT_TRUE(isUsable("zentil events"));
    EXPECT_FALSE(isUsable("none"));
}

TEST_F(DriverManager, NamesNothingWithoutDataSources)
{
    write("odbcinst.ini", "");
    write("user.ini", "");
    write("odbc.ini", "");
    EXPECT_EQ(names(), QStringList());
}

TEST_F(DriverManager, NamesNothingWithoutAnyConfiguration)
{
    EXPECT_EQ(names(), QStringList());
}

TEST_F(DriverManager, NamesASourceWithoutADriver)
{
    write("user.ini", "[unfinished]\n[other]\nDriver=none\n");
    EXPECT_EQ(names(), (QStringList{"other", "unfinished"}));
    EXPECT_FALSE(isUsable("other"));
}

TEST_F(DriverManager, NamesLongAndForeignNames)
{
    const QString longName(200, 'n');
    const QString foreign = QStringLiteral(u"B\u00FCro \u6587");
    write("user.ini", '[' + longName.toUtf8() + "]\nDriver=x\n[" + foreign.toUtf8() + "]\nDriver=x\n");
    EXPECT_EQ(names(), (QStringList{foreign, longName}));
}

TEST_F(DriverManager, CanBeAskedAgain)
{
    write("user.ini", "[one]\nDriver=x\n");
    for (int times = 0; times < 100; ++times)
        ASSERT_EQ(names(), QStringList{"one"});
}

} // namespace

#include "settings/DataSourceNames.h"

#include "tests/support/FakeDataSources.h"

#include <gtest/gtest.h>

namespace {

constexpr quint16 first = DataSources::FetchFirst;
constexpr quint16 next = DataSources::FetchNext;

TEST(DataSourceNames, AreGivenInTheDriverManagersOrder)
{
    FakeDataSources sources;
    sources.names = {"zulu", "alpha", "mike"};
    EXPECT_EQ(dataSourceNames(sources), (QStringList{"zulu", "alpha", "mike"}));
    // The first fetch, then further ones until there is no more data.
    EXPECT_EQ(sources.directions, (QList<quint16>{first, next, next, next}));
}

TEST(DataSourceNames, AreNoneOnAMachineWithoutDataSources)
{
    FakeDataSources sources;
    EXPECT_EQ(dataSourceNames(sources), QStringList());
    EXPECT_EQ(sources.directions, QList<quint16>{first});
}

TEST(DataSourceNames, AreReadWholeHoweverLong)
{
    // A buffer of fixed size would cut the second one.
    const QByteArray longest(3000, 'n');
    FakeDataSources sources;
    sources.names = {"short", longest, QByteArray(255, 'a'), QByteArray(256, 'b')};
    EXPECT_EQ(dataSourceNames(sources), (QStringList{"short", longest, QString(255, 'a'), QString(256, 'b')}));
}

TEST(DataSourceNames, AreInTheSystemsEncoding)
{
    FakeDataSources sources;
    sources.names = {QStringLiteral(u"M\u00FCller & Co").toLocal8Bit()};
    EXPECT_EQ(dataSourceNames(sources), QStringList{QStringLiteral(u"M\u00FCller & Co")});
}

TEST(DataSourceNames, AreUnknownWithoutAnEnvironment)
{
    FakeDataSources sources;
    sources.isWorking = false;
    EXPECT_EQ(dataSourceNames(sources), std::nullopt);
    EXPECT_EQ(sources.directions, QList<quint16>());
}

TEST(DataSourceNames, AreUnknownWhenTheListBreaksOff)
{
    // Half a list would look like all of it.
    FakeDataSources sources;
    sources.names = {"alpha", "bravo"};
    sources.failing = 1;
    EXPECT_EQ(dataSourceNames(sources), std::nullopt);
}

} // namespace

#include "platform/RuntimeError.h"
#include "tests/app/ProgramFixture.h"

#include <QDir>
#include <QScreen>

namespace {

// The place of the window

class PlaceOfTheWindow : public Program
{
};

TEST_F(PlaceOfTheWindow, IsTheStoredOne)
{
    settings.values = {{"Settings/MainLeft", "1500"},
                       {"Settings/MainTop", "750"},
                       {"Settings/MainWidth", "9000"},
                       {"Settings/MainHeight", "7500"}};
    start();
    EXPECT_EQ(window->pos(), QPoint(100, 50));
    EXPECT_EQ(window->size(), QSize(600, 500));
}

TEST_F(PlaceOfTheWindow, DefaultsTo1000And6500Twips)
{
    start();
    EXPECT_EQ(window->pos(), QPoint(67, 67));
    EXPECT_EQ(window->size(), QSize(433, 433));
}

TEST_F(PlaceOfTheWindow, IsMovedOntoTheScreen)
{
    settings.values = {{"Settings/MainLeft", "900000"}, {"Settings/MainTop", "-900000"}};
    start();
    EXPECT_TRUE(window->screen()->availableGeometry().contains(QRect(window->pos(), window->size())));
}

TEST_F(PlaceOfTheWindow, IsStoredInTwipsWhenItCloses)
{
    start();
    window->move(20, 30);
    window->resize(640, 480);
    settle();
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(settings.values, (QMap<QString, QString>{{"Settings/MainLeft", "300"},
                                                       {"Settings/MainTop", "450"},
                                                       {"Settings/MainWidth", "9600"},
                                                       {"Settings/MainHeight", "7200"}}));
}

TEST_F(PlaceOfTheWindow, IsReadBackByTheNextStart)
{
    start();
    window->move(20, 30);
    window->resize(640, 480);
    settle();
    EXPECT_TRUE(endsAfterClosing());
    start();
    EXPECT_EQ(window->pos(), QPoint(20, 30));
    EXPECT_EQ(window->size(), QSize(640, 480));
}

TEST_F(PlaceOfTheWindow, IsKeptWhenItClosesMinimised)
{
    const QMap<QString, QString> stored{{"Settings/MainLeft", "1500"},
                                        {"Settings/MainTop", "750"},
                                        {"Settings/MainWidth", "9000"},
                                        {"Settings/MainHeight", "7500"}};
    settings.values = stored;
    start();
    window->move(20, 30);
    window->showMinimized();
    settle();
    EXPECT_TRUE(endsAfterClosing());
    EXPECT_EQ(settings.values, stored);
    start();
    EXPECT_EQ(window->pos(), QPoint(100, 50));
}

TEST_F(PlaceOfTheWindow, GarbageIsReadAsTheDefault)
{
    settings.values = {{"Settings/MainLeft", "left"}, {"Settings/MainWidth", "1e999"}};
    start();
    EXPECT_EQ(window->pos(), QPoint(67, 67));
    EXPECT_EQ(window->size(), QSize(433, 433));
}

TEST_F(PlaceOfTheWindow, ThatCannotBeStoredIsReportedAndTheProgramEnds)
{
    start();
    settings.isWritable = false;
    messages.expectShow("The place of the window cannot be stored.", Messages::Icon::Exclamation);
    EXPECT_TRUE(endsAfterClosing());
}

// The association of configuration files

class Association : public Program
{
};

TEST_F(Association, IsCheckedOnceWithTheProgramsPath)
{
    programPath = {QDir::separator(), QString()};
    start();
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
    EXPECT_EQ(associations.calls, (QList<QStringList>{{program, "Zentil Config", ".zcf"}}));
}

TEST_F(Association, IsCheckedWithThePathAsTheSystemWritesIt)
{
    programPath = {"\\", ".exe"};
    start();
    ASSERT_EQ(associations.calls.size(), 1);
    EXPECT_TRUE(associations.calls.first().first().endsWith("\\frmMainTest.exe"))
        << associations.calls.first().first().toStdString();
}

// Nothing is around the start of the program that would catch it: the program would end.
TEST_F(Association, ThatCannotBeRegisteredIsReportedAndTheProgramStarts)
{
    associations.onCheck = [] {
        throw RuntimeError::described(RuntimeError::RegistryError, "Unable to create subkey");
    };
    fakeFiles.content["/a.zcf"] = "a\r\n";
    messages.expectShow("Run-time error '10001':\n\nUnable to create subkey", Messages::Icon::Critical);
    start({"/a.zcf"});
    messages.verify();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
}

struct IgnoreCase
{
    const char *name;
    const char *value;
    int calls;
};

class IgnoreAssoc : public Program, public testing::WithParamInterface<IgnoreCase>
{
};

TEST_P(IgnoreAssoc, DecidesWhetherTheAssociationIsChecked)
{
    settings.values["Settings/IgnoreAssoc"] = GetParam().value;
    start();
    EXPECT_EQ(associations.calls.size(), GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(Values, IgnoreAssoc,
                         testing::Values(IgnoreCase{"One", "1", 0}, IgnoreCase{"MinusOne", "-1", 0},
                                         IgnoreCase{"Zero", "0", 1}, IgnoreCase{"Empty", "", 1},
                                         IgnoreCase{"Text", "no", 1}),
                         [](const auto &tested) { return tested.param.name; });

} // namespace

#include "settings/Associations.h"

#include "settings/RunReported.h"
#include "tests/support/FakeFileTypes.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeUserSettings.h"

#include <gtest/gtest.h>

namespace {

const QString program = QStringLiteral("C:\\Program Files\\ZentilConf\\zentilconf.exe");
const QString offer =
    QStringLiteral("ZentilConf has not been set as your default browser for .zcf files. Do you want to do so now? ");
const QString everyTime = QStringLiteral("Do you want to check this association every time the application starts? ");
const QString done = QStringLiteral("The extension .zcf has been associated with this application");

constexpr auto yesNo = Messages::Buttons::YesNo;
constexpr auto yes = Messages::Answer::Yes;
constexpr auto no = Messages::Answer::No;

class AssociationsTest : public testing::Test
{
protected:
    void check(int force = 0, const QString &path = program)
    {
        Associations associations("ZentilConf", registry, fileTypes, settings, messages);
        runReported(messages, [&] { associations.check(path, "Zentil Config", ".zcf", force); });
        messages.verify();
        EXPECT_EQ(registry.openHandles(), 0);
    }

    void associate()
    {
        messages.expectAsk(offer, yesNo, yes);
        messages.expectShow(done, Messages::Icon::Information);
        check();
    }

    [[nodiscard]] QByteArray classText(const QByteArray &path) const
    {
        return registry.data("HKEY_CLASSES_ROOT\\" + path, "").value_or("<none>");
    }

    FakeRegistry registry;
    FakeFileTypes fileTypes;
    FakeUserSettings settings;
    FakeMessages messages;
};

TEST_F(AssociationsTest, YesRegisters)
{
    associate();
    EXPECT_EQ(classText(".zcf"), "zcffile");
    EXPECT_EQ(classText("zcffile"), "Zentil Config");
    EXPECT_EQ(classText("zcffile\\DefaultIcon"), "C:\\Program Files\\ZentilConf\\zentilconf.exe,0");
    EXPECT_EQ(classText("zcffile\\shell\\open\\command"), "\"C:\\Program Files\\ZentilConf\\zentilconf.exe\" \"%1\"");
    EXPECT_EQ(registry.type("HKEY_CLASSES_ROOT\\.zcf", ""), 1U);
    EXPECT_EQ(fileTypes.calls, QList<QStringList>{QStringList({".zcf", program})});
    EXPECT_TRUE(settings.values.isEmpty());
}

TEST_F(AssociationsTest, OpenCommandOfAProgramInAFolderWithBlanksIsOneQuotedPathAndTheQuotedFile)
{
    messages.expectAsk(offer, yesNo, yes);
    messages.expectShow(done, Messages::Icon::Information);
    check(0, "C:\\My own tools\\zentil conf.exe");
    EXPECT_EQ(classText("zcffile\\shell\\open\\command"), "\"C:\\My own tools\\zentil conf.exe\" \"%1\"");
}

TEST_F(AssociationsTest, SetAssociationAsksNothing)
{
    associate();
    registry.calls.clear();
    check();
    EXPECT_EQ(fileTypes.calls.size(), 1);
    for (const QByteArray &call : registry.calls)
        EXPECT_FALSE(call.startsWith("RegSet") || call.startsWith("RegCreate")) << call.constData();
}

TEST_F(AssociationsTest, ForceRegistersASetAssociationUnasked)
{
    associate();
    registry.set("HKEY_CLASSES_ROOT\\zcffile\\DefaultIcon", "", "other");
    messages.expectShow(done, Messages::Icon::Information);
    check(1);
    EXPECT_EQ(classText("zcffile\\DefaultIcon"), "C:\\Program Files\\ZentilConf\\zentilconf.exe,0");
    EXPECT_EQ(fileTypes.calls.size(), 2);
    // Not so a force number that is not greater than 0.
    check(-1);
    EXPECT_EQ(fileTypes.calls.size(), 2);
}

TEST_F(AssociationsTest, ForceAsksWhereNothingIsSet)
{
    messages.expectAsk(offer, yesNo, no);
    messages.expectAsk(everyTime, yesNo, yes);
    check(1);
    EXPECT_EQ(classText(".zcf"), "<none>");
}

TEST_F(AssociationsTest, NoTwiceIsRemembered)
{
    messages.expectAsk(offer, yesNo, no);
    messages.expectAsk(everyTime, yesNo, no);
    check();
    EXPECT_EQ(settings.values, (QMap<QString, QString>{{"Settings/IgnoreAssoc", "1"}}));
    EXPECT_FALSE(registry.hasKey("HKEY_CLASSES_ROOT\\.zcf"));
    EXPECT_TRUE(fileTypes.calls.isEmpty());
}

TEST_F(AssociationsTest, NoThenYesStoresNothingAndAsksAgain)
{
    for (int start = 0; start < 2; ++start) {
        messages.expectAsk(offer, yesNo, no);
        messages.expectAsk(everyTime, yesNo, yes);
        check();
    }
    EXPECT_TRUE(settings.values.isEmpty());
    EXPECT_FALSE(registry.hasKey("HKEY_CLASSES_ROOT\\.zcf"));
}

TEST_F(AssociationsTest, AnswerThatCannotBeStoredIsTold)
{
    settings.isWritable = false;
    messages.expectAsk(offer, yesNo, no);
    messages.expectAsk(everyTime, yesNo, no);
    messages.expectShow("The answer cannot be stored.", Messages::Icon::Exclamation);
    check();
}

TEST_F(AssociationsTest, AssociationOfAnotherProgramIsNotSet)
{
    associate();
    messages.expectAsk(offer, yesNo, no);
    messages.expectAsk(everyTime, yesNo, yes);
    check(0, "C:\\elsewhere\\zentilconf.exe");
    registry.set("HKEY_CLASSES_ROOT\\.zcf", "", "otherfile");
    messages.expectAsk(offer, yesNo, no);
    messages.expectAsk(everyTime, yesNo, yes);
    check();
    EXPECT_EQ(classText(".zcf"), "otherfile");
}

TEST_F(AssociationsTest, TextsThatEndWithAZeroAreTheSame)
{
    associate();
    registry.set("HKEY_CLASSES_ROOT\\.zcf", "", QByteArray("zcffile\0", 8));
    check();
}

TEST_F(AssociationsTest, AssociationThatMayOnlyBeReadIsSet)
{
    associate();
    registry.isReadOnly = true;
    check();
}

TEST_F(AssociationsTest, PathThatIsTooLongToBeReadIsAskedForOnce)
{
    const QString path = "C:\\" + QString(300, 'x') + ".exe";
    messages.expectAsk(offer, yesNo, yes);
    messages.expectShow(done, Messages::Icon::Information);
    check(0, path);
    check(0, path);
    EXPECT_EQ(classText("zcffile\\shell\\open\\command"), '"' + path.toLatin1() + "\" \"%1\"");
}

TEST_F(AssociationsTest, PathWithSignsStaysAPath)
{
    const QString path = QStringLiteral(u"/opt/100%1 %2 M\u00FCller/zentilconf");
    messages.expectAsk(offer, yesNo, yes);
    messages.expectShow(done, Messages::Icon::Information);
    check(0, path);
    EXPECT_EQ(classText("zcffile\\shell\\open\\command"), "\"/opt/100%1 %2 M\xFCller/zentilconf\" \"%1\"");
    check(0, path);
}

// What cannot be registered

class AssociationFailure : public AssociationsTest
{
protected:
    void SetUp() override
    {
        registry.set("HKEY_CLASSES_ROOT\\.zcf", "", "otherfile", 2);
        registry.set("HKEY_CLASSES_ROOT\\.zcf", "Content Type", "text/plain");
        registry.set("HKEY_CLASSES_ROOT\\otherfile", "", "Other");
        registry.make("HKEY_CLASSES_ROOT\\zcffile\\shell");
        m_before = registry.paths();
    }

    void expectNothingChanged()
    {
        EXPECT_EQ(registry.paths(), m_before);
        EXPECT_EQ(classText(".zcf"), "otherfile");
        EXPECT_EQ(registry.type("HKEY_CLASSES_ROOT\\.zcf", ""), 2U);
        EXPECT_EQ(classText("zcffile"), "<none>");
        EXPECT_TRUE(fileTypes.calls.isEmpty());
    }

    void checkFails(const QString &error)
    {
        messages.expectAsk(offer, yesNo, yes);
        messages.expectShow(error, Messages::Icon::Critical);
        check();
        expectNothingChanged();
    }

private:
    QByteArrayList m_before;
};

TEST_F(AssociationFailure, KeyThatCannotBeMadeLeavesNothingBehind)
{
    for (const char *path : {"zcffile\\shell\\open", "zcffile\\shell\\open\\command", "zcffile\\DefaultIcon"}) {
        registry.denied = {"HKEY_CLASSES_ROOT\\" + QByteArray(path)};
        checkFails("Run-time error '10001':\n\nUnable to create subkey");
    }
    registry.denied = {"HKEY_CLASSES_ROOT"};
    messages.expectAsk(offer, yesNo, yes);
    messages.expectShow("Run-time error '10001':\n\nUnable to create subkey", Messages::Icon::Critical);
    check();
}

TEST_F(AssociationFailure, ValueThatIsNotStoredLeavesNothingBehind)
{
    registry.isFull = true;
    checkFails("Run-time error '57':\n\nDevice I/O error\n\nThe registry does not store the association.");
}

TEST_F(AssociationFailure, DesktopThatCannotBeToldLeavesNothingBehind)
{
    fileTypes.error = RuntimeError(RuntimeError::PermissionDenied, "/home/.config/mimeapps.list");
    checkFails("Run-time error '70':\n\nPermission denied\n\n/home/.config/mimeapps.list");
    // What was in the way of nothing is used.
    fileTypes.error.reset();
    messages.expectAsk(offer, yesNo, yes);
    messages.expectShow(done, Messages::Icon::Information);
    check();
    EXPECT_EQ(registry.data("HKEY_CLASSES_ROOT\\.zcf", "Content Type"), QByteArray("text/plain"));
}

} // namespace

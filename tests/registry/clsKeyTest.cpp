#include "registry/clsKey.h"

#include "platform/RuntimeError.h"
#include "registry/RegistryConstants.h"
#include "tests/support/Errors.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

#include <functional>

using RegistryConstants::allAccess;

namespace {

const QString notOpen = QStringLiteral("Key must be opened before operations are allowed");
const QString noSubKey = QStringLiteral("Unable to create subkey");

class clsKeyTest : public testing::Test
{
protected:
    void SetUp() override
    {
        registry.make("HKEY_USERS\\a");
        key.OpenFull("HKEY_USERS\\a", "", 0, allAccess);
        ASSERT_TRUE(key.KeyOK());
    }

    [[nodiscard]] QByteArray stored(const QByteArray &name) const
    {
        return registry.data("HKEY_USERS\\a", name).value_or("<none>");
    }

    [[nodiscard]] static QString text(const std::optional<clsValue> &value)
    {
        return value ? value->DataString() : QStringLiteral("<nothing>");
    }

    [[nodiscard]] QStringList names()
    {
        QStringList names;
        for (const clsKey &below : key.SubKeys())
            names << below.Name();
        return names;
    }

    static void expectError(const QString &description, const std::function<void()> &work)
    {
        const auto error = errorOf(work);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), 10001);
        EXPECT_EQ(error->description(), description);
        EXPECT_EQ(error->message(), "Run-time error '10001':\n\n" + description);
    }

    FakeRegistry registry;
    clsKey key{registry};
};

// A key that is not open

TEST_F(clsKeyTest, KeyMustBeOpened)
{
    clsKey closed(registry, "a");
    expectError(notOpen, [&] { closed.DeleteValue("v"); });
    expectError(notOpen, [&] { closed.DeleteSubKey("x"); });
    expectError(notOpen, [&] { (void)closed.SubKeys(); });
    expectError(notOpen, [&] { (void)closed.Value(); });
    expectError(notOpen, [&] { (void)closed.Value("v"); });
    expectError(notOpen, [&] { (void)closed.Value(0); });
    expectError(notOpen, [&] { closed.Value("v", "1"); });
    expectError(notOpen, [&] { closed.Value(0, "1"); });
}

TEST_F(clsKeyTest, AddSubKeyOfAKeyThatIsNotOpenCannotCreate)
{
    clsKey closed(registry, "a");
    expectError(noSubKey, [&] { closed.AddSubKey("x"); });
}

TEST_F(clsKeyTest, OverrideHandleStandsForTheKey)
{
    registry.make("HKEY_USERS\\a\\b");
    clsKey closed(registry, "x");
    EXPECT_EQ(closed.SubKeys(key.Handle()).size(), 1U);
    closed.DeleteSubKey("b", key.Handle());
    EXPECT_FALSE(registry.hasKey("HKEY_USERS\\a\\b"));
}

TEST_F(clsKeyTest, ClosedKeyGivesNothing)
{
    registry.set("HKEY_USERS\\a", "v", "1");
    key.CloseKey();
    // Its number is not cleared, so it counts as open; the registry knows better.
    EXPECT_EQ(text(key.Value("v")), "<nothing>");
    key.Value("v", "2");
    EXPECT_EQ(stored("v"), "1");
}

// Sub-keys

TEST_F(clsKeyTest, AddSubKeyMakesAndClosesIt)
{
    key.AddSubKey("b\\c");
    EXPECT_TRUE(registry.hasKey("HKEY_USERS\\a\\b\\c"));
    key.AddSubKey("B");
    EXPECT_EQ(registry.openPaths(), QByteArrayList{"HKEY_USERS\\a"});
}

TEST_F(clsKeyTest, AddSubKeyThatCannotBeMadeIsAnError)
{
    registry.denied << "HKEY_USERS\\a\\b";
    expectError(noSubKey, [this] { key.AddSubKey("b"); });
    EXPECT_FALSE(registry.hasKey("HKEY_USERS\\a\\b"));
}

TEST_F(clsKeyTest, DeleteSubKeyIgnoresWhatCannotBeDeleted)
{
    registry.make("HKEY_USERS\\a\\b\\c");
    key.DeleteSubKey("none");
    key.DeleteSubKey("b");
    EXPECT_TRUE(registry.hasKey("HKEY_USERS\\a\\b"));
    key.DeleteSubKey("b\\c");
    key.DeleteSubKey("b");
    EXPECT_FALSE(registry.hasKey("HKEY_USERS\\a\\b"));
}

TEST_F(clsKeyTest, SubKeysAreNotOpened)
{
    registry.make("HKEY_USERS\\a\\x");
    registry.make("HKEY_USERS\\a\\b\\c");
    EXPECT_EQ(names(), (QStringList{"b", "x"}));
    EXPECT_EQ(registry.openHandles(), 1);
    clsKey &below = key.SubKeys().front();
    EXPECT_EQ(below.Handle(), 0U);
    below.OpenKey(allAccess);
    EXPECT_TRUE(below.KeyOK());
    EXPECT_EQ(below.SubKeys().size(), 1U);
}

TEST_F(clsKeyTest, SubKeysAreFoundOnce)
{
    registry.make("HKEY_USERS\\a\\b");
    const std::vector<clsKey> *first = &key.SubKeys();
    EXPECT_EQ(names(), QStringList{"b"});
    registry.make("HKEY_USERS\\a\\c");
    registry.remove("HKEY_USERS\\a\\b");
    EXPECT_EQ(&key.SubKeys(), first);
    EXPECT_EQ(names(), QStringList{"b"});
    // Also where another key is asked for: the object has found its keys.
    registry.make("HKEY_USERS\\other\\d");
    EXPECT_EQ(key.SubKeys(Registry::Users).front().Name(), "b");
}

TEST_F(clsKeyTest, NoSubKeysAreLookedForAgain)
{
    EXPECT_EQ(names(), QStringList());
    registry.make("HKEY_USERS\\a\\b");
    EXPECT_EQ(names(), QStringList{"b"});
}

TEST_F(clsKeyTest, SubKeyWithALongNameIsLeftOut)
{
    registry.make("HKEY_USERS\\a\\" + QByteArray(255, 'k'));
    registry.make("HKEY_USERS\\a\\" + QByteArray(256, 'l'));
    registry.make("HKEY_USERS\\a\\z");
    EXPECT_EQ(names(), (QStringList{QString(255, 'k'), "z"}));
}

TEST_F(clsKeyTest, NamesBeyondAsciiAreTexts)
{
    registry.make("HKEY_USERS\\a\\Gr\xF6\xDF"
                  "e");
    EXPECT_EQ(names(), QStringList{QString::fromLatin1("Gr\xF6\xDF"
                                                       "e")});
    clsKey &below = key.SubKeys().front();
    below.OpenKey(allAccess);
    EXPECT_TRUE(below.KeyOK());
}

// Values

TEST_F(clsKeyTest, ValueIsReadByName)
{
    registry.set("HKEY_USERS\\a", "v", "abc", 2);
    const auto value = key.Value("V");
    EXPECT_EQ(text(value), "abc");
    EXPECT_EQ(value->Type(), 2U);
    EXPECT_EQ(value->size(), 3);
    EXPECT_EQ(text(key.Value("none")), "<nothing>");
}

TEST_F(clsKeyTest, ValueReadByNameHasTheUntouchedNameBuffer)
{
    registry.set("HKEY_USERS\\a", "v", "abc");
    EXPECT_EQ(key.Value("v")->Name(), QString(255, ' '));
}

TEST_F(clsKeyTest, ValueIsReadByPosition)
{
    registry.set("HKEY_USERS\\a", "first", "1", 3);
    registry.set("HKEY_USERS\\a", "second", "22", 4);
    const auto value = key.Value(1);
    EXPECT_EQ(text(value), "22");
    EXPECT_EQ(value->Name(), "second");
    EXPECT_EQ(value->Type(), 4U);
    EXPECT_EQ(key.Value(0)->Name(), "first");
    EXPECT_EQ(text(key.Value(2)), "<nothing>");
    EXPECT_EQ(text(key.Value(-1)), "<nothing>");
}

TEST_F(clsKeyTest, ValueWithoutIndexIsTheDefaultValue)
{
    EXPECT_EQ(text(key.Value()), "<nothing>");
    registry.set("HKEY_USERS\\a", "", "default");
    EXPECT_EQ(text(key.Value()), "default");
    EXPECT_EQ(text(key.Value("")), "default");
}

TEST_F(clsKeyTest, ValueOf256BytesGivesNothing)
{
    registry.set("HKEY_USERS\\a", "255", QByteArray(255, 'x'));
    registry.set("HKEY_USERS\\a", "256", QByteArray(256, 'x'));
    registry.set("HKEY_USERS\\a", "5000", QByteArray(5'000, 'x'));
    EXPECT_EQ(text(key.Value("255")), QString(255, 'x'));
    EXPECT_EQ(text(key.Value("256")), "<nothing>");
    EXPECT_EQ(text(key.Value("5000")), "<nothing>");
    EXPECT_EQ(text(key.Value(0)), QString(255, 'x'));
    EXPECT_EQ(text(key.Value(1)), "<nothing>");
}

TEST_F(clsKeyTest, ValueWithALongNameHasNoPosition)
{
    registry.set("HKEY_USERS\\a", QByteArray(255, 'n'), "1");
    registry.set("HKEY_USERS\\a", QByteArray(256, 'n'), "2");
    EXPECT_EQ(key.Value(0)->Name(), QString(255, 'n'));
    EXPECT_EQ(text(key.Value(1)), "<nothing>");
    EXPECT_EQ(text(key.Value(QString(256, 'n'))), "2");
}

TEST_F(clsKeyTest, EndingZeroIsACharacter)
{
    registry.set("HKEY_USERS\\a", "v", QByteArray("abc\0", 4));
    EXPECT_EQ(text(key.Value("v")), QString("abc") + QChar(0));
}

TEST_F(clsKeyTest, EmptyValueIsAValue)
{
    registry.set("HKEY_USERS\\a", "v", "");
    EXPECT_EQ(text(key.Value("v")), "");
    EXPECT_EQ(key.Value("v")->size(), 0);
}

TEST_F(clsKeyTest, TextIsStoredWithoutAZero)
{
    key.Value("v", "abc");
    EXPECT_EQ(stored("v"), "abc");
    EXPECT_EQ(registry.type("HKEY_USERS\\a", "v"), 1U);
    key.Value("v", QString());
    EXPECT_EQ(stored("v"), "");
    key.Value("e", QString("x"), 2);
    EXPECT_EQ(registry.type("HKEY_USERS\\a", "e"), 2U);
}

TEST_F(clsKeyTest, NumberIsStoredAsItsDigits)
{
    key.Value("v", 300);
    EXPECT_EQ(stored("v"), "300");
    key.Value("v", -7, 4);
    EXPECT_EQ(stored("v"), "-7");
    EXPECT_EQ(registry.type("HKEY_USERS\\a", "v"), 4U);
    key.Value("v", QVariant::fromValue(qint16(12)));
    EXPECT_EQ(stored("v"), "12");
}

TEST_F(clsKeyTest, BytesAreStoredAsTheyAre)
{
    key.Value("v", QByteArray("\xFF\0\xC3\xA9", 4), 3);
    EXPECT_EQ(stored("v"), QByteArray("\xFF\0\xC3\xA9", 4));
}

TEST_F(clsKeyTest, CharactersAreStoredInTheCodePage)
{
    key.Value("v", QStringLiteral(u"M\u00FCller"));
    EXPECT_EQ(stored("v"), "M\xFCller");
    EXPECT_EQ(text(key.Value("v")), QStringLiteral(u"M\u00FCller"));
}

TEST_F(clsKeyTest, PositionStoresNothing)
{
    registry.set("HKEY_USERS\\a", "v", "1");
    key.Value(0, "2");
    EXPECT_EQ(stored("v"), "1");
    EXPECT_EQ(key.ValuesCount, 0U);
    EXPECT_EQ(text(key.Value(1)), "<nothing>");
}

TEST_F(clsKeyTest, WritingThatFailsIsNotTold)
{
    registry.isFull = true;
    key.Value("v", "1");
    EXPECT_EQ(stored("v"), "<none>");
}

TEST_F(clsKeyTest, ValueIsDeleted)
{
    registry.set("HKEY_USERS\\a", "v", "1");
    key.DeleteValue("v");
    EXPECT_EQ(stored("v"), "<none>");
    key.DeleteValue("v");
}

} // namespace

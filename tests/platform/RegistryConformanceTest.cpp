// What every registry does, whatever is behind it. The cases run against the program's own store on Linux and against
// the system's registry on Windows, so that the one is held to the other.
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "tests/platform/RegistryUser.h"

#include <QByteArrayList>
#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>

namespace {

using Handle = Registry::Handle;
using Result = Registry::Result;

constexpr quint32 typeText = 1;
constexpr quint32 typeBytes = 3;
constexpr quint32 typeNumber = 4;

class RegistryConformance : public testing::Test
{
protected:
    void SetUp() override { base = user.made(Registry::CurrentUser, basePath); }

    void TearDown() override
    {
        user.close(base);
        user.removeTree(Registry::CurrentUser, basePath);
    }

    const Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    Registry &registry = *platform.registry;
    const RegistryUser user{registry};
    const QByteArray basePath =
        "Software\\ZentilConf conformance " + QByteArray::number(QCoreApplication::applicationPid());
    Handle base = 0;
};

// Handles

TEST_F(RegistryConformance, UnknownHandleIsRefusedEverywhere)
{
    for (const Handle key : {Handle(0), Handle(0x1234560)}) {
        quint32 size = 0;
        RegistryKeyInfo keyInfo;
        EXPECT_EQ(user.openResult(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(user.openResult(key, ""), Result::InvalidHandle);
        EXPECT_EQ(user.createResult(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(registry.RegCloseKey(key), Result::InvalidHandle);
        EXPECT_EQ(registry.RegDeleteKeyA(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(registry.RegDeleteValueA(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(user.enumerateKeyResult(key), Result::InvalidHandle);
        EXPECT_EQ(user.enumerateValueResult(key), Result::InvalidHandle);
        EXPECT_EQ(registry.RegQueryInfoKeyA(key, nullptr, nullptr, &keyInfo), Result::InvalidHandle);
        EXPECT_EQ(registry.RegQueryValueExA(key, "a", nullptr, nullptr, &size), Result::InvalidHandle);
        EXPECT_EQ(registry.RegSetValueExA(key, "a", typeBytes, "1"), Result::InvalidHandle);
    }
}

TEST_F(RegistryConformance, ClosedHandleIsRefused)
{
    const Handle key = user.opened(base, "");
    user.close(key);
    EXPECT_EQ(registry.RegCloseKey(key), Result::InvalidHandle);
    EXPECT_EQ(user.openResult(key, ""), Result::InvalidHandle);
}

TEST_F(RegistryConformance, HandlesLiveOnTheirOwn)
{
    user.make(base, "a");
    const Handle one = user.opened(base, "a");
    const Handle two = user.opened(base, "a");
    EXPECT_NE(one, two);
    user.set(one, "v", "1");
    user.close(one);
    EXPECT_EQ(user.get(two, "v"), "1");
    user.close(two);
}

TEST_F(RegistryConformance, EmptyNameGivesOneMoreHandleToTheKey)
{
    const Handle again = user.opened(base, "");
    EXPECT_NE(again, base);
    user.set(again, "v", "1");
    user.close(again);
    EXPECT_EQ(user.get(base, "v"), "1");
}

// Hives

constexpr std::array ordinaryHives{Registry::ClassesRoot, Registry::CurrentUser, Registry::LocalMachine,
                                   Registry::Users, Registry::CurrentConfig};

TEST_F(RegistryConformance, HiveIsAlwaysOpen)
{
    for (const Handle hive : ordinaryHives) {
        EXPECT_EQ(user.opened(hive, ""), hive);
        // Closing it changes nothing.
        user.close(hive);
        user.close(hive);
        EXPECT_EQ(user.openResult(hive, "No such key of ZentilConf"), Result::FileNotFound);
        EXPECT_EQ(registry.RegDeleteKeyA(hive, "No such key of ZentilConf"), Result::FileNotFound);
        EXPECT_EQ(registry.RegDeleteKeyA(hive, ""), Result::AccessDenied);
        EXPECT_EQ(user.get(hive, "No such value of ZentilConf"), "<none> 2");
        EXPECT_EQ(user.info(hive).subKeys, quint32(user.subKeys(hive).size()));
    }
}

TEST_F(RegistryConformance, PerformanceDataHasNoKeys)
{
    EXPECT_EQ(user.opened(Registry::PerformanceData, ""), Registry::PerformanceData);
    EXPECT_EQ(user.openResult(Registry::PerformanceData, "a"), Result::InvalidHandle);
    EXPECT_EQ(registry.RegDeleteKeyA(Registry::PerformanceData, "a"), Result::InvalidHandle);
    EXPECT_EQ(registry.RegSetValueExA(Registry::PerformanceData, "a", typeBytes, "1"), Result::InvalidHandle);
    user.close(Registry::PerformanceData);
}

TEST_F(RegistryConformance, DynamicDataCanBeOpened)
{
    EXPECT_EQ(user.opened(Registry::DynData, ""), Registry::DynData);
    EXPECT_EQ(user.openResult(Registry::DynData, "No such key of ZentilConf"), Result::FileNotFound);
    user.close(Registry::DynData);
}

TEST_F(RegistryConformance, MachineHasSoftware)
{
    const Handle software = user.opened(Registry::LocalMachine, "SOFTWARE");
    user.close(software);
    user.close(user.opened(Registry::LocalMachine, "Software"));
    EXPECT_TRUE(user.subKeys(Registry::LocalMachine).join('\n').toUpper().contains("SOFTWARE"));
    EXPECT_EQ(registry.RegDeleteKeyA(Registry::LocalMachine, "SOFTWARE"), Result::AccessDenied);
}

TEST_F(RegistryConformance, CurrentUserIsAKeyOfUsers)
{
    user.set(base, "mark", "mine");
    int found = 0;
    for (const QByteArray &owner : user.subKeys(Registry::Users)) {
        Handle key = 0;
        if (registry.RegOpenKeyExA(Registry::Users, owner + '\\' + basePath, 0, Registry::ReadAccess, &key) !=
            Result::Success)
            continue;
        ++found;
        EXPECT_EQ(user.get(key, "mark"), "mine");
        user.close(key);
    }
    EXPECT_EQ(found, 1);
}

TEST_F(RegistryConformance, NewClassIsTheMachines)
{
    const QByteArray name = "ZentilConf.conformance." + QByteArray::number(QCoreApplication::applicationPid());
    const Handle key = user.made(Registry::ClassesRoot, name);
    user.set(key, "", "class", typeText);
    const Handle machine = user.opened(Registry::LocalMachine, "SOFTWARE\\Classes\\" + name);
    EXPECT_EQ(user.get(machine, ""), "class");
    user.close(machine);
    EXPECT_EQ(user.openResult(Registry::CurrentUser, "Software\\Classes\\" + name), Result::FileNotFound);
    EXPECT_TRUE(user.subKeys(Registry::ClassesRoot).contains(name));
    user.close(key);
    EXPECT_EQ(registry.RegDeleteKeyA(Registry::ClassesRoot, name), Result::Success);
    EXPECT_EQ(user.openResult(Registry::LocalMachine, "SOFTWARE\\Classes\\" + name), Result::FileNotFound);
}

TEST_F(RegistryConformance, HostThatCannotBeReachedIsABadPath)
{
    Handle result = 1;
    EXPECT_EQ(registry.RegConnectRegistryA("\\\\zentilconf-no-such-host.invalid", Registry::LocalMachine, &result),
              Result::BadNetPath);
    EXPECT_EQ(result, 0U);
    result = 1;
    EXPECT_EQ(registry.RegConnectRegistryA("zentilconf-no-such-host.invalid", Registry::LocalMachine, &result),
              Result::BadNetPath);
    EXPECT_EQ(result, 0U);
}

TEST_F(RegistryConformance, NoHostIsThisMachine)
{
    for (const QByteArray &name : {QByteArray(), QByteArray("")}) {
        Handle result = 1;
        EXPECT_EQ(registry.RegConnectRegistryA(name, Registry::LocalMachine, &result), Result::Success);
        EXPECT_EQ(user.openResult(result, "SOFTWARE", Registry::ReadAccess), Result::Success);
        user.close(result);
    }
}

// Keys

TEST_F(RegistryConformance, CreatingTellsWhatWasThere)
{
    Handle key = 0;
    quint32 disposition = 0;
    EXPECT_EQ(registry.RegCreateKeyExA(base, "new", {}, 0, Registry::AllAccess, &key, &disposition), Result::Success);
    EXPECT_EQ(disposition, Registry::CreatedNewKey);
    user.close(key);
    EXPECT_EQ(registry.RegCreateKeyExA(base, "NEW", {}, 0, Registry::AllAccess, &key, &disposition), Result::Success);
    EXPECT_EQ(disposition, Registry::OpenedExistingKey);
    user.close(key);
    EXPECT_EQ(registry.RegCreateKeyExA(base, "new\\below", {}, 0, Registry::AllAccess, &key, nullptr), Result::Success);
    user.close(key);
    EXPECT_EQ(user.subKeys(base), QByteArrayList{"new"});
}

TEST_F(RegistryConformance, KeysOnTheWayAreMade)
{
    user.make(base, "a\\b\\c");
    EXPECT_EQ(user.subKeys(base), QByteArrayList{"a"});
    const Handle a = user.opened(base, "a");
    EXPECT_EQ(user.subKeys(a), QByteArrayList{"b"});
    EXPECT_EQ(user.openResult(a, "b\\c"), Result::Success);
    EXPECT_EQ(user.openResult(a, "c"), Result::FileNotFound);
    user.close(a);
}

TEST_F(RegistryConformance, NamesAreComparedWithoutCaseAndKept)
{
    user.make(base, "Mixed Case");
    EXPECT_EQ(user.openResult(base, "mIXED cASE"), Result::Success);
    user.make(base, "MIXED CASE");
    EXPECT_EQ(user.subKeys(base), QByteArrayList{"Mixed Case"});
    user.set(base, "Name", "1");
    user.set(base, "NAME", "2");
    EXPECT_EQ(user.get(base, "name"), "2");
    EXPECT_EQ(user.valueNames(base), QByteArrayList{"Name"});
}

TEST_F(RegistryConformance, NamesBeyondAsciiComeBack)
{
    const QByteArray name = registry.toCodePage(QStringLiteral(u"\u00C9t\u00E9 \u00DF\u00F7\u00FF"));
    const QByteArray otherCase = registry.toCodePage(QStringLiteral(u"\u00E9T\u00C9 \u00DF\u00F7\u00FF"));
    user.make(base, name);
    EXPECT_EQ(user.subKeys(base), QByteArrayList{name});
    EXPECT_EQ(user.openResult(base, otherCase), Result::Success);
    user.set(base, name, "1");
    EXPECT_EQ(user.get(base, otherCase), "1");
    EXPECT_EQ(registry.fromCodePage(user.valueNames(base).value(0)),
              QStringLiteral(u"\u00C9t\u00E9 \u00DF\u00F7\u00FF"));
    // The multiplication and the division sign are no letters.
    user.make(base, registry.toCodePage(QStringLiteral(u"\u00F7")));
    EXPECT_EQ(user.openResult(base, registry.toCodePage(QStringLiteral(u"\u00D7"))), Result::FileNotFound);
}

TEST_F(RegistryConformance, NameEndsAtAZero)
{
    user.make(base, QByteArray("a\0b", 3));
    EXPECT_EQ(user.subKeys(base), QByteArrayList{"a"});
    user.set(base, QByteArray("v\0w", 3), "1");
    EXPECT_EQ(user.valueNames(base), QByteArrayList{"v"});
}

TEST_F(RegistryConformance, BackslashesSeparate)
{
    user.make(base, "a\\b");
    EXPECT_EQ(user.openResult(base, "\\a"), Result::BadPathName);
    EXPECT_EQ(user.openResult(base, "\\"), Result::BadPathName);
    EXPECT_EQ(user.createResult(base, "\\x"), Result::BadPathName);
    EXPECT_EQ(user.openResult(base, "a\\"), Result::Success);
    EXPECT_EQ(user.openResult(base, "a\\\\b"), Result::Success);
    EXPECT_EQ(user.openResult(base, "a\\b\\c"), Result::FileNotFound);
    user.make(base, "y\\\\z\\");
    EXPECT_EQ(user.openResult(base, "y\\z"), Result::Success);
}

TEST_F(RegistryConformance, LongestName)
{
    const QByteArray longest(255, 'k');
    user.make(base, longest);
    std::array<char, 256> name{};
    quint32 length = name.size();
    EXPECT_EQ(registry.RegEnumKeyExA(base, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::Success);
    EXPECT_EQ(QByteArray(name.data(), length), longest);
    EXPECT_EQ(user.info(base).longestSubKeyName, 255U);

    const QByteArray longestValue(16'383, 'v');
    user.set(base, longestValue, "1");
    EXPECT_EQ(user.get(base, longestValue), "1");
    EXPECT_EQ(registry.RegSetValueExA(base, longestValue + 'v', typeBytes, "1"), Result::InvalidParameter);
    EXPECT_EQ(user.get(base, longestValue + 'v'), "<none> 2");
}

TEST_F(RegistryConformance, KeyWithSubKeysIsNotDeleted)
{
    user.make(base, "a\\b");
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::AccessDenied);
    EXPECT_EQ(user.openResult(base, "a\\b"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a\\b"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::FileNotFound);
    EXPECT_EQ(registry.RegDeleteKeyA(base, QByteArray()), Result::InvalidParameter);
    EXPECT_EQ(user.subKeys(base), QByteArrayList());
}

TEST_F(RegistryConformance, ValuesGoWithTheirKey)
{
    user.make(base, "a");
    const Handle key = user.opened(base, "a");
    user.set(key, "v", "1");
    user.close(key);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::Success);
    const Handle again = user.made(base, "a");
    EXPECT_EQ(user.get(again, "v"), "<none> 2");
    user.close(again);
}

TEST_F(RegistryConformance, HandleOfADeletedKeyStaysWithoutOne)
{
    const Handle key = user.made(base, "a");
    user.set(key, "v", "1");
    EXPECT_EQ(registry.RegDeleteKeyA(key, ""), Result::Success);
    user.make(base, "a");

    quint32 size = 0;
    RegistryKeyInfo keyInfo;
    EXPECT_EQ(registry.RegQueryValueExA(key, "v", nullptr, nullptr, &size), Result::KeyDeleted);
    EXPECT_EQ(registry.RegSetValueExA(key, "v", typeBytes, "1"), Result::KeyDeleted);
    EXPECT_EQ(registry.RegDeleteValueA(key, "v"), Result::KeyDeleted);
    EXPECT_EQ(user.enumerateKeyResult(key), Result::KeyDeleted);
    EXPECT_EQ(user.enumerateValueResult(key), Result::KeyDeleted);
    EXPECT_EQ(registry.RegQueryInfoKeyA(key, nullptr, nullptr, &keyInfo), Result::KeyDeleted);
    EXPECT_EQ(user.openResult(key, ""), Result::KeyDeleted);
    EXPECT_EQ(user.createResult(key, "b"), Result::KeyDeleted);
    EXPECT_EQ(registry.RegDeleteKeyA(key, ""), Result::KeyDeleted);
    user.close(key);
    EXPECT_EQ(user.openResult(base, "a"), Result::Success);
}

TEST_F(RegistryConformance, SubKeysAreEnumeratedByPosition)
{
    user.make(base, "b");
    user.make(base, "a");
    user.make(base, "C");
    EXPECT_EQ(user.subKeys(base), (QByteArrayList{"a", "b", "C"}));
    EXPECT_EQ(registry.RegDeleteKeyA(base, "b"), Result::Success);
    EXPECT_EQ(user.subKeys(base), (QByteArrayList{"a", "C"}));
}

TEST_F(RegistryConformance, SubKeyNameNeedsRoomForItsEnd)
{
    user.make(base, "abc");
    std::array<char, 8> name{'#', '#', '#', '#', '#', '#', '#', '#'};
    for (const quint32 tooSmall : {1U, 3U}) {
        quint32 length = tooSmall;
        EXPECT_EQ(registry.RegEnumKeyExA(base, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::MoreData);
    }
    quint32 length = 4;
    quint64 lastWrite = 0;
    EXPECT_EQ(registry.RegEnumKeyExA(base, 0, name.data(), &length, nullptr, nullptr, &lastWrite), Result::Success);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(QByteArray(name.data(), 5), QByteArray("abc\0#", 5));
    // Between 2020 and 2200.
    EXPECT_GT(lastWrite, 132'223'104'000'000'000U);
    EXPECT_LT(lastWrite, 190'000'000'000'000'000U);
    EXPECT_EQ(registry.RegEnumKeyExA(base, 1, name.data(), &length, nullptr, nullptr, nullptr), Result::NoMoreItems);
}

TEST_F(RegistryConformance, KeyInformation)
{
    EXPECT_EQ(user.info(base).subKeys, 0U);
    EXPECT_EQ(user.info(base).values, 0U);
    EXPECT_EQ(user.info(base).longestSubKeyName, 0U);
    EXPECT_EQ(user.info(base).longestData, 0U);
    user.make(base, "a");
    user.make(base, "four\\and much below");
    user.set(base, "", "1");
    user.set(base, "fives", "12345678");
    const RegistryKeyInfo found = user.info(base);
    EXPECT_EQ(found.subKeys, 2U);
    EXPECT_EQ(found.longestSubKeyName, 4U);
    EXPECT_EQ(found.values, 2U);
    EXPECT_EQ(found.longestValueName, 5U);
    EXPECT_EQ(found.longestData, 8U);
}

TEST_F(RegistryConformance, LastWriteOfAKeyIsThatOfItsContent)
{
    const quint64 start = user.info(base).lastWrite;
    user.make(base, "a");
    const Handle a = user.opened(base, "a");
    const quint64 before = user.info(a).lastWrite;
    EXPECT_GE(before, start);
    do {
        user.set(a, "v", "1");
    } while (user.info(a).lastWrite == before);
    EXPECT_GT(user.info(a).lastWrite, before);
    user.close(a);
}

// Values

TEST_F(RegistryConformance, DataAndTypeComeBack)
{
    QByteArray allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes += static_cast<char>(byte);
    user.set(base, "all", allBytes);
    EXPECT_EQ(user.get(base, "all"), allBytes);
    user.set(base, "long", QByteArray(100'000, 'x'));
    EXPECT_EQ(user.get(base, "long"), QByteArray(100'000, 'x'));
    for (const quint32 type : {0U, 3U, 4U, 8U, 11U, 0x12345678U}) {
        user.set(base, "v", "abc", type);
        quint32 given = 99;
        quint32 size = 0;
        EXPECT_EQ(registry.RegQueryValueExA(base, "V", &given, nullptr, &size), Result::Success);
        EXPECT_EQ(given, type);
        EXPECT_EQ(size, 3U);
    }
}

TEST_F(RegistryConformance, TextIsStoredWithoutAnEndOfItsOwn)
{
    user.set(base, "three", "abc", typeText);
    EXPECT_EQ(user.get(base, "three"), "abc");
    user.set(base, "four", QByteArrayView("abc\0", 4), typeText);
    EXPECT_EQ(user.get(base, "four"), QByteArray("abc\0", 4));
    user.set(base, "empty", {}, typeText);
    EXPECT_EQ(user.get(base, "empty"), "");
    user.set(base, "emptied", "abc", typeText);
    user.set(base, "emptied", QByteArrayView(""), typeText);
    EXPECT_EQ(user.get(base, "emptied"), "");
    const QByteArray beyond = registry.toCodePage(QStringLiteral(u"M\u00FCller"));
    user.set(base, "beyond", beyond, typeText);
    EXPECT_EQ(user.get(base, "beyond"), beyond);
}

TEST_F(RegistryConformance, DefaultValueHasTheEmptyName)
{
    EXPECT_EQ(user.get(base, ""), "<none> 2");
    user.set(base, QByteArray(), "1");
    EXPECT_EQ(user.get(base, ""), "1");
    user.set(base, "", "2");
    EXPECT_EQ(user.get(base, QByteArray()), "2");
    EXPECT_EQ(user.valueNames(base), QByteArrayList{""});
    EXPECT_EQ(registry.RegDeleteValueA(base, ""), Result::Success);
    EXPECT_EQ(user.get(base, ""), "<none> 2");
}

TEST_F(RegistryConformance, BufferThatIsTooSmallTellsTheSize)
{
    user.set(base, "v", "12345", typeNumber);
    std::array<uchar, 8> data{'#', '#', '#', '#', '#', '#', '#', '#'};
    quint32 type = 0;
    quint32 size = 4;
    EXPECT_EQ(registry.RegQueryValueExA(base, "v", &type, data.data(), &size), Result::MoreData);
    EXPECT_EQ(size, 5U);
    EXPECT_EQ(type, typeNumber);
    EXPECT_EQ(data[4], '#') << "nothing is written behind the buffer";
    EXPECT_EQ(registry.RegQueryValueExA(base, "v", nullptr, data.data(), &size), Result::Success);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(data.data()), 6), "12345#");
    size = 8;
    EXPECT_EQ(registry.RegQueryValueExA(base, "v", nullptr, data.data(), &size), Result::Success);
    EXPECT_EQ(size, 5U);
    EXPECT_EQ(registry.RegQueryValueExA(base, "v", nullptr, data.data(), nullptr), Result::InvalidParameter);
}

TEST_F(RegistryConformance, ValuesAreEnumeratedByPosition)
{
    user.set(base, "abc", "12345", typeNumber);
    std::array<char, 8> name{};
    std::array<uchar, 8> data{};
    quint32 length = name.size();
    quint32 size = data.size();
    quint32 type = 0;
    EXPECT_EQ(registry.RegEnumValueA(base, 0, name.data(), &length, &type, data.data(), &size), Result::Success);
    EXPECT_STREQ(name.data(), "abc");
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(size, 5U);
    EXPECT_EQ(type, typeNumber);

    length = 3;
    EXPECT_EQ(registry.RegEnumValueA(base, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::MoreData);
    length = 4;
    EXPECT_EQ(registry.RegEnumValueA(base, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::Success);
    length = name.size();
    size = 2;
    EXPECT_EQ(registry.RegEnumValueA(base, 0, name.data(), &length, nullptr, data.data(), &size), Result::MoreData);
    EXPECT_EQ(size, 5U);
    length = name.size();
    size = 0;
    EXPECT_EQ(registry.RegEnumValueA(base, 0, name.data(), &length, nullptr, nullptr, &size), Result::Success);
    EXPECT_EQ(size, 5U);
    EXPECT_EQ(registry.RegEnumValueA(base, 1, name.data(), &length, nullptr, nullptr, nullptr), Result::NoMoreItems);

    user.set(base, "b", "1");
    user.set(base, "", "2");
    EXPECT_EQ(user.valueNames(base), (QByteArrayList{"", "abc", "b"}));
}

TEST_F(RegistryConformance, ValueIsDeletedOnce)
{
    user.set(base, "a", "1");
    user.set(base, "b", "2");
    EXPECT_EQ(registry.RegDeleteValueA(base, "A"), Result::Success);
    EXPECT_EQ(registry.RegDeleteValueA(base, "a"), Result::FileNotFound);
    EXPECT_EQ(user.valueNames(base), QByteArrayList{"b"});
}

// Rights

TEST_F(RegistryConformance, HandleForReadingDoesNotWrite)
{
    user.set(base, "v", "1");
    const Handle reader = user.opened(base, "", Registry::ReadAccess);
    EXPECT_EQ(user.get(reader, "v"), "1");
    EXPECT_EQ(user.subKeys(reader), QByteArrayList());
    EXPECT_EQ(registry.RegSetValueExA(reader, "v", typeBytes, "2"), Result::AccessDenied);
    EXPECT_EQ(registry.RegDeleteValueA(reader, "v"), Result::AccessDenied);
    EXPECT_EQ(user.get(base, "v"), "1");
    // Making and deleting keys is a matter of the key's own rights and not of the handle's.
    user.make(reader, "a");
    EXPECT_EQ(user.openResult(reader, "a"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(reader, "a"), Result::Success);
    user.close(reader);
}

TEST_F(RegistryConformance, HandleForWritingDoesNotRead)
{
    const Handle writer = user.opened(base, "", Registry::WriteAccess);
    user.set(writer, "v", "1");
    EXPECT_EQ(user.get(writer, "v"), "<none> 5");
    EXPECT_EQ(user.enumerateKeyResult(writer), Result::AccessDenied);
    EXPECT_EQ(user.enumerateValueResult(writer), Result::AccessDenied);
    user.close(writer);

    const Handle lister = user.opened(base, "", Registry::EnumerateSubKeys);
    EXPECT_EQ(user.subKeys(lister), QByteArrayList());
    EXPECT_EQ(user.get(lister, "v"), "<none> 5");
    user.close(lister);
    const Handle reader = user.opened(base, "", Registry::QueryValue);
    EXPECT_EQ(user.get(reader, "v"), "1");
    EXPECT_EQ(user.enumerateKeyResult(reader), Result::AccessDenied);
    user.close(reader);
}

TEST_F(RegistryConformance, GenericRightsStandForTheKeysOwn)
{
    struct Case
    {
        quint32 access;
        bool reads;
        bool writes;
    };
    // clang-format off
    constexpr std::array<Case, 4> cases {{
        {Registry::GenericRead,    true,  false},
        {Registry::GenericWrite,   false, true},
        {Registry::GenericAll,     true,  true},
        {Registry::MaximumAllowed, true,  true},
    }};
    // clang-format on
    user.set(base, "v", "1");
    for (const Case &row : cases) {
        const Handle key = user.opened(base, "", row.access);
        EXPECT_EQ(user.get(key, "v"), row.reads ? "1" : "<none> 5") << row.access;
        EXPECT_EQ(registry.RegSetValueExA(key, "w", typeBytes, "1"),
                  row.writes ? Result::Success : Result::AccessDenied)
            << row.access;
        user.close(key);
    }
}

} // namespace

// What every registry does, whatever is behind it. The cases run against the program's own store on Linux and against
// the system's registry on Windows, so that the one is held to the other.
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "tests/support/Printers.h"

#include <QByteArrayList>
#include <QCoreApplication>

#include <gtest/gtest.h>

#include <algorithm>
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
    void SetUp() override
    {
        m_name = "Software\\ZentilConf conformance " + QByteArray::number(QCoreApplication::applicationPid());
        base = made(Registry::CurrentUser, m_name);
        ASSERT_NE(base, 0U);
    }

    void TearDown() override
    {
        EXPECT_EQ(registry.RegCloseKey(base), Result::Success);
        removeTree(Registry::CurrentUser, m_name);
    }

    [[nodiscard]] Handle made(Handle parent, const QByteArray &subKey, quint32 access = Registry::AllAccess)
    {
        Handle key = 1;
        quint32 disposition = 0;
        EXPECT_EQ(registry.RegCreateKeyExA(parent, subKey, {}, 0, access, &key, &disposition), Result::Success)
            << subKey.constData();
        return key;
    }

    [[nodiscard]] Handle opened(Handle parent, const QByteArray &subKey, quint32 access = Registry::AllAccess)
    {
        Handle key = 1;
        EXPECT_EQ(registry.RegOpenKeyExA(parent, subKey, 0, access, &key), Result::Success) << subKey.constData();
        return key;
    }

    [[nodiscard]] Result openResult(Handle parent, const QByteArray &subKey, quint32 access = Registry::AllAccess)
    {
        Handle key = 1;
        const Result result = registry.RegOpenKeyExA(parent, subKey, 0, access, &key);
        if (result == Result::Success)
            EXPECT_EQ(registry.RegCloseKey(key), Result::Success);
        else
            EXPECT_EQ(key, 0U) << "what could not be opened has no handle";
        return result;
    }

    void make(Handle parent, const QByteArray &subKey) { close(made(parent, subKey)); }
    void close(Handle key) { EXPECT_EQ(registry.RegCloseKey(key), Result::Success); }

    void set(Handle key, const QByteArray &name, QByteArrayView data, quint32 type = typeBytes)
    {
        EXPECT_EQ(registry.RegSetValueExA(key, name, type, data), Result::Success) << name.constData();
    }

    /// The data of a value; "<none>" and the result's number when there is none.
    [[nodiscard]] QByteArray get(Handle key, const QByteArray &name)
    {
        quint32 size = 0;
        Result result = registry.RegQueryValueExA(key, name, nullptr, nullptr, &size);
        QByteArray data(size, '#');
        if (result == Result::Success)
            result = registry.RegQueryValueExA(key, name, nullptr, reinterpret_cast<uchar *>(data.data()), &size);
        return result == Result::Success ? data.first(size) : "<none> " + QByteArray::number(int(result));
    }

    [[nodiscard]] QByteArrayList subKeys(Handle key)
    {
        QByteArrayList names;
        std::array<char, 256> name{};
        for (quint32 index = 0;; ++index) {
            quint32 length = name.size();
            const Result result = registry.RegEnumKeyExA(key, index, name.data(), &length, nullptr, nullptr, nullptr);
            if (result != Result::Success) {
                EXPECT_EQ(result, Result::NoMoreItems);
                return names;
            }
            EXPECT_EQ(name[length], '\0');
            names << QByteArray(name.data(), length);
        }
    }

    [[nodiscard]] QByteArrayList valueNames(Handle key)
    {
        QByteArrayList names;
        std::array<char, 256> name{};
        for (quint32 index = 0;; ++index) {
            quint32 length = name.size();
            const Result result = registry.RegEnumValueA(key, index, name.data(), &length, nullptr, nullptr, nullptr);
            if (result != Result::Success) {
                EXPECT_EQ(result, Result::NoMoreItems);
                std::sort(names.begin(), names.end());
                return names;
            }
            names << QByteArray(name.data(), length);
        }
    }

    [[nodiscard]] RegistryKeyInfo info(Handle key)
    {
        RegistryKeyInfo info;
        EXPECT_EQ(registry.RegQueryInfoKeyA(key, nullptr, nullptr, &info), Result::Success);
        return info;
    }

    void removeTree(Handle parent, const QByteArray &subKey)
    {
        const Handle key = opened(parent, subKey);
        for (const QByteArray &name : subKeys(key))
            removeTree(key, name);
        close(key);
        EXPECT_EQ(registry.RegDeleteKeyA(parent, subKey), Result::Success) << subKey.constData();
    }

    Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    Registry &registry = *platform.registry;
    Handle base = 0;

private:
    QByteArray m_name;
};

// Handles

TEST_F(RegistryConformance, UnknownHandleIsRefusedEverywhere)
{
    for (const Handle key : {Handle(0), Handle(0x1234560)}) {
        std::array<char, 16> name{};
        quint32 length = name.size();
        Handle result = 1;
        RegistryKeyInfo keyInfo;
        EXPECT_EQ(openResult(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(openResult(key, ""), Result::InvalidHandle);
        EXPECT_EQ(registry.RegCreateKeyExA(key, "a", {}, 0, Registry::AllAccess, &result, nullptr),
                  Result::InvalidHandle);
        EXPECT_EQ(result, 0U);
        EXPECT_EQ(registry.RegCloseKey(key), Result::InvalidHandle);
        EXPECT_EQ(registry.RegDeleteKeyA(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(registry.RegDeleteValueA(key, "a"), Result::InvalidHandle);
        EXPECT_EQ(registry.RegEnumKeyExA(key, 0, name.data(), &length, nullptr, nullptr, nullptr),
                  Result::InvalidHandle);
        EXPECT_EQ(registry.RegEnumValueA(key, 0, name.data(), &length, nullptr, nullptr, nullptr),
                  Result::InvalidHandle);
        EXPECT_EQ(registry.RegQueryInfoKeyA(key, nullptr, nullptr, &keyInfo), Result::InvalidHandle);
        EXPECT_EQ(registry.RegQueryValueExA(key, "a", nullptr, nullptr, &length), Result::InvalidHandle);
        EXPECT_EQ(registry.RegSetValueExA(key, "a", typeBytes, "1"), Result::InvalidHandle);
    }
}

TEST_F(RegistryConformance, ClosedHandleIsRefused)
{
    const Handle key = opened(base, "");
    close(key);
    EXPECT_EQ(registry.RegCloseKey(key), Result::InvalidHandle);
    EXPECT_EQ(openResult(key, ""), Result::InvalidHandle);
}

TEST_F(RegistryConformance, HandlesLiveOnTheirOwn)
{
    make(base, "a");
    const Handle one = opened(base, "a");
    const Handle two = opened(base, "a");
    EXPECT_NE(one, two);
    set(one, "v", "1");
    close(one);
    EXPECT_EQ(get(two, "v"), "1");
    close(two);
}

TEST_F(RegistryConformance, EmptyNameGivesOneMoreHandleToTheKey)
{
    const Handle again = opened(base, "");
    EXPECT_NE(again, base);
    set(again, "v", "1");
    close(again);
    EXPECT_EQ(get(base, "v"), "1");
}

// Hives

constexpr std::array ordinaryHives{Registry::ClassesRoot, Registry::CurrentUser, Registry::LocalMachine,
                                   Registry::Users, Registry::CurrentConfig};

TEST_F(RegistryConformance, HiveIsAlwaysOpen)
{
    for (const Handle hive : ordinaryHives) {
        EXPECT_EQ(opened(hive, ""), hive);
        // Closing it changes nothing.
        close(hive);
        close(hive);
        EXPECT_EQ(openResult(hive, "No such key of ZentilConf"), Result::FileNotFound);
        EXPECT_EQ(registry.RegDeleteKeyA(hive, "No such key of ZentilConf"), Result::FileNotFound);
        EXPECT_EQ(registry.RegDeleteKeyA(hive, ""), Result::AccessDenied);
        EXPECT_EQ(get(hive, "No such value of ZentilConf"), "<none> 2");
        EXPECT_EQ(info(hive).subKeys, quint32(subKeys(hive).size()));
    }
}

TEST_F(RegistryConformance, PerformanceDataHasNoKeys)
{
    EXPECT_EQ(opened(Registry::PerformanceData, ""), Registry::PerformanceData);
    EXPECT_EQ(openResult(Registry::PerformanceData, "a"), Result::InvalidHandle);
    EXPECT_EQ(registry.RegDeleteKeyA(Registry::PerformanceData, "a"), Result::InvalidHandle);
    EXPECT_EQ(registry.RegSetValueExA(Registry::PerformanceData, "a", typeBytes, "1"), Result::InvalidHandle);
    close(Registry::PerformanceData);
}

TEST_F(RegistryConformance, DynamicDataCanBeOpened)
{
    EXPECT_EQ(opened(Registry::DynData, ""), Registry::DynData);
    EXPECT_EQ(openResult(Registry::DynData, "No such key of ZentilConf"), Result::FileNotFound);
    close(Registry::DynData);
}

TEST_F(RegistryConformance, MachineHasSoftware)
{
    const Handle software = opened(Registry::LocalMachine, "SOFTWARE");
    close(software);
    close(opened(Registry::LocalMachine, "Software"));
    EXPECT_TRUE(subKeys(Registry::LocalMachine).join('\n').toUpper().contains("SOFTWARE"));
    EXPECT_EQ(registry.RegDeleteKeyA(Registry::LocalMachine, "SOFTWARE"), Result::AccessDenied);
}

TEST_F(RegistryConformance, CurrentUserIsAKeyOfUsers)
{
    set(base, "mark", "mine");
    const QByteArray path =
        "\\Software\\ZentilConf conformance " + QByteArray::number(QCoreApplication::applicationPid());
    int found = 0;
    for (const QByteArray &user : subKeys(Registry::Users)) {
        Handle key = 0;
        if (registry.RegOpenKeyExA(Registry::Users, user + path, 0, Registry::ReadAccess, &key) != Result::Success)
            continue;
        ++found;
        EXPECT_EQ(get(key, "mark"), "mine");
        close(key);
    }
    EXPECT_EQ(found, 1);
}

TEST_F(RegistryConformance, NewClassIsTheMachines)
{
    const QByteArray name = "ZentilConf.conformance." + QByteArray::number(QCoreApplication::applicationPid());
    const Handle key = made(Registry::ClassesRoot, name);
    set(key, "", "class", typeText);
    const Handle machine = opened(Registry::LocalMachine, "SOFTWARE\\Classes\\" + name);
    EXPECT_EQ(get(machine, ""), "class");
    close(machine);
    EXPECT_EQ(openResult(Registry::CurrentUser, "Software\\Classes\\" + name), Result::FileNotFound);
    EXPECT_TRUE(subKeys(Registry::ClassesRoot).contains(name));
    close(key);
    EXPECT_EQ(registry.RegDeleteKeyA(Registry::ClassesRoot, name), Result::Success);
    EXPECT_EQ(openResult(Registry::LocalMachine, "SOFTWARE\\Classes\\" + name), Result::FileNotFound);
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
        EXPECT_EQ(openResult(result, "SOFTWARE", Registry::ReadAccess), Result::Success);
        close(result);
    }
}

// Keys

TEST_F(RegistryConformance, CreatingTellsWhatWasThere)
{
    Handle key = 0;
    quint32 disposition = 0;
    EXPECT_EQ(registry.RegCreateKeyExA(base, "new", {}, 0, Registry::AllAccess, &key, &disposition), Result::Success);
    EXPECT_EQ(disposition, Registry::CreatedNewKey);
    close(key);
    EXPECT_EQ(registry.RegCreateKeyExA(base, "NEW", {}, 0, Registry::AllAccess, &key, &disposition), Result::Success);
    EXPECT_EQ(disposition, Registry::OpenedExistingKey);
    close(key);
    EXPECT_EQ(registry.RegCreateKeyExA(base, "new\\below", {}, 0, Registry::AllAccess, &key, nullptr), Result::Success);
    close(key);
    EXPECT_EQ(subKeys(base), QByteArrayList{"new"});
}

TEST_F(RegistryConformance, KeysOnTheWayAreMade)
{
    make(base, "a\\b\\c");
    EXPECT_EQ(subKeys(base), QByteArrayList{"a"});
    const Handle a = opened(base, "a");
    EXPECT_EQ(subKeys(a), QByteArrayList{"b"});
    EXPECT_EQ(openResult(a, "b\\c"), Result::Success);
    EXPECT_EQ(openResult(a, "c"), Result::FileNotFound);
    close(a);
}

TEST_F(RegistryConformance, NamesAreComparedWithoutCaseAndKept)
{
    make(base, "Mixed Case");
    EXPECT_EQ(openResult(base, "mIXED cASE"), Result::Success);
    make(base, "MIXED CASE");
    EXPECT_EQ(subKeys(base), QByteArrayList{"Mixed Case"});
    set(base, "Name", "1");
    set(base, "NAME", "2");
    EXPECT_EQ(get(base, "name"), "2");
    EXPECT_EQ(valueNames(base), QByteArrayList{"Name"});
}

TEST_F(RegistryConformance, NamesBeyondAsciiComeBack)
{
    const QByteArray name = registry.toCodePage(QStringLiteral(u"\u00C9t\u00E9 \u00DF\u00F7\u00FF"));
    const QByteArray otherCase = registry.toCodePage(QStringLiteral(u"\u00E9T\u00C9 \u00DF\u00F7\u00FF"));
    make(base, name);
    EXPECT_EQ(subKeys(base), QByteArrayList{name});
    EXPECT_EQ(openResult(base, otherCase), Result::Success);
    set(base, name, "1");
    EXPECT_EQ(get(base, otherCase), "1");
    EXPECT_EQ(registry.fromCodePage(valueNames(base).value(0)), QStringLiteral(u"\u00C9t\u00E9 \u00DF\u00F7\u00FF"));
    // The multiplication and the division sign are no letters.
    make(base, registry.toCodePage(QStringLiteral(u"\u00F7")));
    EXPECT_EQ(openResult(base, registry.toCodePage(QStringLiteral(u"\u00D7"))), Result::FileNotFound);
}

TEST_F(RegistryConformance, NameEndsAtAZero)
{
    make(base, QByteArray("a\0b", 3));
    EXPECT_EQ(subKeys(base), QByteArrayList{"a"});
    set(base, QByteArray("v\0w", 3), "1");
    EXPECT_EQ(valueNames(base), QByteArrayList{"v"});
}

TEST_F(RegistryConformance, BackslashesSeparate)
{
    make(base, "a\\b");
    EXPECT_EQ(openResult(base, "\\a"), Result::BadPathName);
    EXPECT_EQ(openResult(base, "\\"), Result::BadPathName);
    Handle key = 1;
    EXPECT_EQ(registry.RegCreateKeyExA(base, "\\x", {}, 0, Registry::AllAccess, &key, nullptr), Result::BadPathName);
    EXPECT_EQ(key, 0U);
    EXPECT_EQ(openResult(base, "a\\"), Result::Success);
    EXPECT_EQ(openResult(base, "a\\\\b"), Result::Success);
    EXPECT_EQ(openResult(base, "a\\b\\c"), Result::FileNotFound);
    make(base, "y\\\\z\\");
    EXPECT_EQ(openResult(base, "y\\z"), Result::Success);
}

TEST_F(RegistryConformance, LongestName)
{
    const QByteArray longest(255, 'k');
    make(base, longest);
    std::array<char, 256> name{};
    quint32 length = name.size();
    EXPECT_EQ(registry.RegEnumKeyExA(base, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::Success);
    EXPECT_EQ(QByteArray(name.data(), length), longest);
    EXPECT_EQ(info(base).longestSubKeyName, 255U);

    const QByteArray longestValue(16'383, 'v');
    set(base, longestValue, "1");
    EXPECT_EQ(get(base, longestValue), "1");
    EXPECT_EQ(registry.RegSetValueExA(base, longestValue + 'v', typeBytes, "1"), Result::InvalidParameter);
    EXPECT_EQ(get(base, longestValue + 'v'), "<none> 2");
}

TEST_F(RegistryConformance, KeyWithSubKeysIsNotDeleted)
{
    make(base, "a\\b");
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::AccessDenied);
    EXPECT_EQ(openResult(base, "a\\b"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a\\b"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::FileNotFound);
    EXPECT_EQ(registry.RegDeleteKeyA(base, QByteArray()), Result::InvalidParameter);
    EXPECT_EQ(subKeys(base), QByteArrayList());
}

TEST_F(RegistryConformance, ValuesGoWithTheirKey)
{
    make(base, "a");
    const Handle key = opened(base, "a");
    set(key, "v", "1");
    close(key);
    EXPECT_EQ(registry.RegDeleteKeyA(base, "a"), Result::Success);
    const Handle again = made(base, "a");
    EXPECT_EQ(get(again, "v"), "<none> 2");
    close(again);
}

TEST_F(RegistryConformance, HandleOfADeletedKeyStaysWithoutOne)
{
    const Handle key = made(base, "a");
    set(key, "v", "1");
    EXPECT_EQ(registry.RegDeleteKeyA(key, ""), Result::Success);
    make(base, "a");

    std::array<char, 16> name{};
    quint32 length = name.size();
    RegistryKeyInfo keyInfo;
    Handle result = 1;
    EXPECT_EQ(registry.RegQueryValueExA(key, "v", nullptr, nullptr, &length), Result::KeyDeleted);
    EXPECT_EQ(registry.RegSetValueExA(key, "v", typeBytes, "1"), Result::KeyDeleted);
    EXPECT_EQ(registry.RegDeleteValueA(key, "v"), Result::KeyDeleted);
    EXPECT_EQ(registry.RegEnumKeyExA(key, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::KeyDeleted);
    EXPECT_EQ(registry.RegEnumValueA(key, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::KeyDeleted);
    EXPECT_EQ(registry.RegQueryInfoKeyA(key, nullptr, nullptr, &keyInfo), Result::KeyDeleted);
    EXPECT_EQ(openResult(key, ""), Result::KeyDeleted);
    EXPECT_EQ(registry.RegCreateKeyExA(key, "b", {}, 0, Registry::AllAccess, &result, nullptr), Result::KeyDeleted);
    EXPECT_EQ(registry.RegDeleteKeyA(key, ""), Result::KeyDeleted);
    close(key);
    EXPECT_EQ(openResult(base, "a"), Result::Success);
}

TEST_F(RegistryConformance, SubKeysAreEnumeratedByPosition)
{
    make(base, "b");
    make(base, "a");
    make(base, "C");
    EXPECT_EQ(subKeys(base), (QByteArrayList{"a", "b", "C"}));
    EXPECT_EQ(registry.RegDeleteKeyA(base, "b"), Result::Success);
    EXPECT_EQ(subKeys(base), (QByteArrayList{"a", "C"}));
}

TEST_F(RegistryConformance, SubKeyNameNeedsRoomForItsEnd)
{
    make(base, "abc");
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
    EXPECT_EQ(info(base).subKeys, 0U);
    EXPECT_EQ(info(base).values, 0U);
    EXPECT_EQ(info(base).longestSubKeyName, 0U);
    EXPECT_EQ(info(base).longestData, 0U);
    make(base, "a");
    make(base, "four\\and much below");
    set(base, "", "1");
    set(base, "fives", "12345678");
    const RegistryKeyInfo found = info(base);
    EXPECT_EQ(found.subKeys, 2U);
    EXPECT_EQ(found.longestSubKeyName, 4U);
    EXPECT_EQ(found.values, 2U);
    EXPECT_EQ(found.longestValueName, 5U);
    EXPECT_EQ(found.longestData, 8U);
}

TEST_F(RegistryConformance, LastWriteOfAKeyIsThatOfItsContent)
{
    const quint64 start = info(base).lastWrite;
    make(base, "a");
    const Handle a = opened(base, "a");
    const quint64 before = info(a).lastWrite;
    EXPECT_GE(before, start);
    do {
        set(a, "v", "1");
    } while (info(a).lastWrite == before);
    EXPECT_GT(info(a).lastWrite, before);
    close(a);
}

// Values

TEST_F(RegistryConformance, DataAndTypeComeBack)
{
    QByteArray allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes += static_cast<char>(byte);
    set(base, "all", allBytes);
    EXPECT_EQ(get(base, "all"), allBytes);
    set(base, "long", QByteArray(100'000, 'x'));
    EXPECT_EQ(get(base, "long"), QByteArray(100'000, 'x'));
    for (const quint32 type : {0U, 3U, 4U, 8U, 11U, 0x12345678U}) {
        set(base, "v", "abc", type);
        quint32 given = 99;
        quint32 size = 0;
        EXPECT_EQ(registry.RegQueryValueExA(base, "V", &given, nullptr, &size), Result::Success);
        EXPECT_EQ(given, type);
        EXPECT_EQ(size, 3U);
    }
}

TEST_F(RegistryConformance, TextIsStoredWithoutAnEndOfItsOwn)
{
    set(base, "three", "abc", typeText);
    EXPECT_EQ(get(base, "three"), "abc");
    set(base, "four", QByteArrayView("abc\0", 4), typeText);
    EXPECT_EQ(get(base, "four"), QByteArray("abc\0", 4));
    set(base, "empty", {}, typeText);
    EXPECT_EQ(get(base, "empty"), "");
    set(base, "emptied", "abc", typeText);
    set(base, "emptied", QByteArrayView(""), typeText);
    EXPECT_EQ(get(base, "emptied"), "");
    const QByteArray beyond = registry.toCodePage(QStringLiteral(u"M\u00FCller"));
    set(base, "beyond", beyond, typeText);
    EXPECT_EQ(get(base, "beyond"), beyond);
}

TEST_F(RegistryConformance, DefaultValueHasTheEmptyName)
{
    EXPECT_EQ(get(base, ""), "<none> 2");
    set(base, QByteArray(), "1");
    EXPECT_EQ(get(base, ""), "1");
    set(base, "", "2");
    EXPECT_EQ(get(base, QByteArray()), "2");
    EXPECT_EQ(valueNames(base), QByteArrayList{""});
    EXPECT_EQ(registry.RegDeleteValueA(base, ""), Result::Success);
    EXPECT_EQ(get(base, ""), "<none> 2");
}

TEST_F(RegistryConformance, BufferThatIsTooSmallTellsTheSize)
{
    set(base, "v", "12345", typeNumber);
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
    set(base, "abc", "12345", typeNumber);
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

    set(base, "b", "1");
    set(base, "", "2");
    EXPECT_EQ(valueNames(base), (QByteArrayList{"", "abc", "b"}));
}

TEST_F(RegistryConformance, ValueIsDeletedOnce)
{
    set(base, "a", "1");
    set(base, "b", "2");
    EXPECT_EQ(registry.RegDeleteValueA(base, "A"), Result::Success);
    EXPECT_EQ(registry.RegDeleteValueA(base, "a"), Result::FileNotFound);
    EXPECT_EQ(valueNames(base), QByteArrayList{"b"});
}

// Rights

TEST_F(RegistryConformance, HandleForReadingDoesNotWrite)
{
    set(base, "v", "1");
    const Handle reader = opened(base, "", Registry::ReadAccess);
    EXPECT_EQ(get(reader, "v"), "1");
    EXPECT_EQ(subKeys(reader), QByteArrayList());
    EXPECT_EQ(registry.RegSetValueExA(reader, "v", typeBytes, "2"), Result::AccessDenied);
    EXPECT_EQ(registry.RegDeleteValueA(reader, "v"), Result::AccessDenied);
    EXPECT_EQ(get(base, "v"), "1");
    // Making and deleting keys is a matter of the key's own rights and not of the handle's.
    make(reader, "a");
    EXPECT_EQ(openResult(reader, "a"), Result::Success);
    EXPECT_EQ(registry.RegDeleteKeyA(reader, "a"), Result::Success);
    close(reader);
}

TEST_F(RegistryConformance, HandleForWritingDoesNotRead)
{
    const Handle writer = opened(base, "", Registry::WriteAccess);
    set(writer, "v", "1");
    EXPECT_EQ(get(writer, "v"), "<none> 5");
    std::array<char, 16> name{};
    quint32 length = name.size();
    EXPECT_EQ(registry.RegEnumKeyExA(writer, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::AccessDenied);
    EXPECT_EQ(registry.RegEnumValueA(writer, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::AccessDenied);
    close(writer);

    const Handle lister = opened(base, "", Registry::EnumerateSubKeys);
    EXPECT_EQ(subKeys(lister), QByteArrayList());
    EXPECT_EQ(get(lister, "v"), "<none> 5");
    close(lister);
    const Handle reader = opened(base, "", Registry::QueryValue);
    EXPECT_EQ(get(reader, "v"), "1");
    EXPECT_EQ(registry.RegEnumKeyExA(reader, 0, name.data(), &length, nullptr, nullptr, nullptr), Result::AccessDenied);
    close(reader);
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
    set(base, "v", "1");
    for (const Case &row : cases) {
        const Handle key = opened(base, "", row.access);
        EXPECT_EQ(get(key, "v"), row.reads ? "1" : "<none> 5") << row.access;
        EXPECT_EQ(registry.RegSetValueExA(key, "w", typeBytes, "1"),
                  row.writes ? Result::Success : Result::AccessDenied)
            << row.access;
        close(key);
    }
}

} // namespace

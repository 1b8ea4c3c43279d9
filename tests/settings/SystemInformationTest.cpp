#include "settings/SystemInformation.h"

#include "tests/support/FakeFileAccess.h"
#include "tests/support/FakePrograms.h"
#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace {

const QByteArray toolPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const QByteArray locationPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location";

constexpr quint32 expandableText = 2;
constexpr quint32 binary = 3;
constexpr quint32 number = 4;

/// The reader on a value "v" of a key.
class RegistryValueReader : public testing::Test
{
protected:
    void store(quint32 type, const QByteArray &data) { registry.set("HKEY_LOCAL_MACHINE\\key", "v", data, type); }

    [[nodiscard]] bool read(const QString &path = "key", const QString &name = "v")
    {
        return ReadRegistryValue(registry, Registry::LocalMachine, path, name, text);
    }

    FakeRegistry registry;
    QString text = "before";
};

TEST_F(RegistryValueReader, GivesATextUpToItsFirstCharacterOfCode0)
{
    store(1, QByteArray("C:\\info.exe\0rest", 16));
    EXPECT_TRUE(read());
    EXPECT_EQ(text, "C:\\info.exe");
    store(1, "M\xFCller");
    EXPECT_TRUE(read());
    EXPECT_EQ(text, QStringLiteral(u"M\u00FCller"));
}

TEST_F(RegistryValueReader, GivesANumberInHexadecimalFromItsBytes)
{
    const QList<QPair<QByteArray, QString>> cases{
        {QByteArray("\x01\x00\x00\x00", 4), "&h1"},        {QByteArray("\x00\x00\x00\x00", 4), "&h0"},
        {QByteArray("\x78\x56\x34\x12", 4), "&h12345678"}, {QByteArray("\xFF\xFF\xFF\xFF", 4), "&hFFFFFFFF"},
        {QByteArray("\x00\x0A\x00\x00", 4), "&hA00"},      {QByteArray("\x05", 1), "&h5"},
    };
    for (const auto &[bytes, expected] : cases) {
        store(number, bytes);
        EXPECT_TRUE(read());
        EXPECT_EQ(text, expected);
    }
}

TEST_F(RegistryValueReader, GivesATextWithVariablesAsItIs)
{
    store(expandableText, "%ProgramFiles%\\info.exe");
    EXPECT_TRUE(read());
    EXPECT_EQ(text, "%ProgramFiles%\\info.exe");
}

TEST_F(RegistryValueReader, GivesAnEmptyTextForOtherTypes)
{
    store(binary, "abc");
    EXPECT_TRUE(read());
    EXPECT_EQ(text, "");
}

TEST_F(RegistryValueReader, ReadsUpTo1024Bytes)
{
    store(1, QByteArray(1024, 'x'));
    EXPECT_TRUE(read());
    EXPECT_EQ(text, QString(1024, 'x'));
    store(1, QByteArray(1025, 'x'));
    EXPECT_FALSE(read());
    EXPECT_EQ(text, "");
}

TEST_F(RegistryValueReader, FailsWithAnEmptyText)
{
    store(1, "there");
    EXPECT_FALSE(read("other key"));
    EXPECT_EQ(text, "");
    text = "before";
    EXPECT_FALSE(read("key", "other value"));
    EXPECT_EQ(text, "");
}

TEST_F(RegistryValueReader, AsksForTheRightToWriteToo)
{
    // Who may only read gets nothing; a reader with fewer rights would succeed here.
    store(1, "there");
    registry.isReadOnly = true;
    EXPECT_FALSE(read());
}

TEST_F(RegistryValueReader, ClosesTheKeyWhetherOrNotThereIsAValue)
{
    store(1, "there");
    EXPECT_TRUE(read());
    EXPECT_FALSE(read("key", "other value"));
    EXPECT_EQ(registry.openHandles(), 0);
}

class SystemInformationTool : public testing::Test
{
protected:
    [[nodiscard]] QString tool() { return systemInformationTool(registry, files, programs); }

    FakeRegistry registry;
    FakeFileAccess files;
    FakePrograms programs;
};

TEST_F(SystemInformationTool, IsWhatTheRegistryNames)
{
    registry.set(toolPath, "PATH", "C:\\Tools\\info.exe");
    registry.set(locationPath, "MSINFO", "C:\\Common");
    files.content["C:\\Common\\MSINFO32.EXE"] = "";
    programs.tools = QStringList{"/usr/bin/hardinfo2"};
    // It counts as found without a look whether it is there.
    EXPECT_EQ(tool(), "C:\\Tools\\info.exe");
}

TEST_F(SystemInformationTool, IsElseLookedForInTheFolderOfSharedTools)
{
    registry.set(locationPath, "MSINFO", "C:\\Common");
    files.content["C:\\Common\\MSINFO32.EXE"] = "";
    EXPECT_EQ(tool(), "C:\\Common\\MSINFO32.EXE");
}

TEST_F(SystemInformationTool, InTheFolderOfSharedToolsHasToBeThere)
{
    registry.set(locationPath, "MSINFO", "C:\\Common");
    EXPECT_EQ(tool(), "");
    programs.tools = QStringList{"/usr/bin/hardinfo2", "/usr/bin/lshw-gtk"};
    EXPECT_EQ(tool(), "/usr/bin/hardinfo2");
}

TEST_F(SystemInformationTool, IsElseTheBestInstalledOne)
{
    EXPECT_EQ(tool(), "");
    programs.tools = QStringList{"/usr/bin/hardinfo2", "/usr/bin/lshw-gtk"};
    EXPECT_EQ(tool(), "/usr/bin/hardinfo2");
}

} // namespace

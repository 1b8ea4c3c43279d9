#include "tests/platform/WindowsFileFixture.h"

#include "platform/windows/WindowsPath.h"

#include <aclapi.h>
#include <sddl.h>

namespace {

constexpr SECURITY_INFORMATION securityParts =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

QString textOf(PSECURITY_DESCRIPTOR descriptor)
{
    LPWSTR text = nullptr;
    if (!ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, securityParts, &text,
                                                              nullptr))
        return QStringLiteral("<none>");
    const QString result = QString::fromWCharArray(text);
    LocalFree(text);
    return result;
}

/// Owner, group and access list of a file, in the text form that Windows has for them.
QString securityOf(const QString &path)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    QString name = path;
    if (GetNamedSecurityInfoW(reinterpret_cast<wchar_t *>(name.data()), SE_FILE_OBJECT, securityParts, nullptr, nullptr,
                              nullptr, nullptr, &descriptor) != ERROR_SUCCESS)
        return QStringLiteral("<none>");
    const QString result = textOf(descriptor);
    LocalFree(descriptor);
    return result;
}

quint64 numberOf(const QString &path)
{
    BY_HANDLE_FILE_INFORMATION information = {};
    const HANDLE file = CreateFileW(wide(path), 0, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(GetFileInformationByHandle(file, &information));
    EXPECT_TRUE(CloseHandle(file));
    return quint64(information.nFileIndexHigh) << 32 | information.nFileIndexLow;
}

/// A link from one path to another, for systems that make none: everything goes to where it leads.
class LinkCalls final : public WindowsCalls
{
public:
    /// @param isTold whether the system tells where the link leads
    LinkCalls(const QString &link, const QString &end, bool isTold)
        : m_link(WindowsPath(link).native())
        , m_end(WindowsPath(end).native())
        , m_isTold(isTold)
    {
    }

    HANDLE createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security, DWORD disposition,
                      DWORD flags) override
    {
        return WindowsCalls::createFile(path == m_link ? m_end : path, access, share, security, disposition, flags);
    }
    DWORD getFileAttributes(const QString &path) override
    {
        return path == m_link ? FILE_ATTRIBUTE_REPARSE_POINT : WindowsCalls::getFileAttributes(path);
    }
    DWORD getFinalPathName(HANDLE file, wchar_t *buffer, DWORD size) override
    {
        return m_isTold ? WindowsCalls::getFinalPathName(file, buffer, size) : 0;
    }
    bool replaceFile(const QString &replaced, const QString &replacement, const QString &backup) override
    {
        EXPECT_NE(replaced, m_link);
        return WindowsCalls::replaceFile(replaced, replacement, backup);
    }

private:
    QString m_link;
    QString m_end;
    bool m_isTold;
};

/// Notes whose a new file is to be, and refuses it where the test wants that.
class NewFileCalls final : public WindowsCalls
{
public:
    explicit NewFileCalls(DWORD error = 0, QString *security = nullptr)
        : m_error(error)
        , m_security(security)
    {
    }

    HANDLE createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security, DWORD disposition,
                      DWORD flags) override
    {
        if (disposition == CREATE_NEW && m_security && security)
            *m_security = textOf(security->lpSecurityDescriptor);
        if (disposition != CREATE_NEW || m_error == 0)
            return WindowsCalls::createFile(path, access, share, security, disposition, flags);
        SetLastError(m_error);
        return INVALID_HANDLE_VALUE;
    }

private:
    DWORD m_error;
    QString *m_security;
};

/// What belongs to a file beside its bytes, whether the file is replaced or written in place.
class WindowsFileAttributesTest : public WindowsFileFixture, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override { store(path(), "old"); }

    void save() const
    {
        const quint64 before = numberOf(path());
        access(std::make_unique<NewFileCalls>(isInPlace() ? ERROR_ACCESS_DENIED : 0)).writeFile(path(), "new");
        EXPECT_EQ(bytesOf(path()), "new");
        EXPECT_EQ(numberOf(path()) == before, isInPlace());
        EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
    }

private:
    [[nodiscard]] static bool isInPlace() { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(, WindowsFileAttributesTest, testing::Bool(),
                         [](const auto &tag) { return tag.param ? "InPlace" : "Replaced"; });

TEST_P(WindowsFileAttributesTest, KeepsAttributes)
{
    constexpr DWORD attributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    ASSERT_TRUE(SetFileAttributesW(wide(path()), attributes));
    ASSERT_EQ(GetFileAttributesW(wide(path())) & attributes, attributes);
    save();
    EXPECT_EQ(GetFileAttributesW(wide(path())) & attributes, attributes);
}

TEST_P(WindowsFileAttributesTest, KeepsTheAccessList)
{
    // All for the owner, nothing for others and nothing from the folder. A new file gets what the folder says.
    const QString usual = securityOf(path());
    ASSERT_TRUE(usual.startsWith(QStringLiteral("O:")));
    const QString owner = usual.sliced(2, usual.indexOf(QStringLiteral("G:")) - 2);
    const QString text = QStringLiteral("D:P(A;;FA;;;%1)").arg(owner);
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(wide(text), SDDL_REVISION_1, &descriptor, nullptr))
        << text.toStdString();
    EXPECT_TRUE(
        SetFileSecurityW(wide(path()), DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
    const QString before = securityOf(path());
    ASSERT_NE(before, usual);
    save();
    EXPECT_EQ(securityOf(path()), before);
}

TEST_P(WindowsFileAttributesTest, KeepsTheTimeOfCreation)
{
    FILETIME created = {0x10000000, 0x01C00000};
    HANDLE file = CreateFileW(wide(path()), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(file, &created, nullptr, nullptr));
    ASSERT_TRUE(CloseHandle(file));
    save();
    FILETIME found = {};
    file = CreateFileW(wide(path()), FILE_READ_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(GetFileTime(file, &found, nullptr, nullptr));
    ASSERT_TRUE(CloseHandle(file));
    EXPECT_EQ(CompareFileTime(&found, &created), 0);
}

TEST_P(WindowsFileAttributesTest, KeepsFurtherStreams)
{
    const QString stream = path() + QStringLiteral(":note");
    store(stream, "further");
    ASSERT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
    save();
    EXPECT_EQ(bytesOf(stream), "further");
}

class WindowsOwnerTest : public WindowsFileFixture
{
protected:
    void SetUp() override { store(path(), "old"); }
};

TEST_F(WindowsOwnerTest, IsGivenToTheNewFile)
{
    QString given;
    const QString before = securityOf(path());
    access(std::make_unique<NewFileCalls>(0, &given)).writeFile(path(), "new");
    EXPECT_EQ(given, before);
    EXPECT_TRUE(given.startsWith(QStringLiteral("O:"))) << given.toStdString();
    EXPECT_EQ(securityOf(path()), before);
}

TEST_F(WindowsOwnerTest, StaysWhereANewFileCannotBeTheirs)
{
    for (const DWORD error : {DWORD(ERROR_INVALID_OWNER), DWORD(ERROR_INVALID_PRIMARY_GROUP)}) {
        SCOPED_TRACE(error);
        store(path(), "old");
        const quint64 before = numberOf(path());
        access(std::make_unique<NewFileCalls>(error)).writeFile(path(), "new");
        EXPECT_EQ(bytesOf(path()), "new");
        EXPECT_EQ(numberOf(path()), before);
        EXPECT_EQ(copies(), 0);
    }
}

class WindowsLinkTest : public WindowsFileFixture, public testing::WithParamInterface<bool>
{
protected:
    [[nodiscard]] WindowsFileAccess linked() const
    {
        return access(std::make_unique<LinkCalls>(path(QStringLiteral("link.zcf")), path(), GetParam()));
    }
};

INSTANTIATE_TEST_SUITE_P(, WindowsLinkTest, testing::Bool(),
                         [](const auto &tag) { return tag.param ? "EndIsTold" : "EndIsNotTold"; });

TEST_P(WindowsLinkTest, IsFollowed)
{
    store(path(), "old");
    linked().writeFile(path(QStringLiteral("link.zcf")), "new");
    EXPECT_EQ(bytesOf(path()), "new");
    // Nothing has taken the place of the link.
    EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
    EXPECT_EQ(copies(), 0);
}

TEST_P(WindowsLinkTest, ThatLeadsToNoFileYetGetsOne)
{
    linked().writeFile(path(QStringLiteral("link.zcf")), "new");
    EXPECT_EQ(bytesOf(path()), "new");
    EXPECT_EQ(names(), QStringList{QStringLiteral("server.zcf")});
}

} // namespace

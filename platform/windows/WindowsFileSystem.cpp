#include "platform/windows/WindowsFileSystem.h"

#include "platform/windows/NoMediumQuestions.h"
#include "platform/windows/WindowsCalls.h"
#include "platform/windows/WindowsPath.h"

#include <algorithm>
#include <array>
#include <cwchar>

namespace {

struct SystemDriveType
{
    UINT type;
    DriveKind kind;
};

// clang-format off
constexpr std::array<SystemDriveType, 5> systemDriveTypes {{
    {DRIVE_REMOVABLE, DriveKind::Removable},
    {DRIVE_FIXED,     DriveKind::FixedDisk},
    {DRIVE_REMOTE,    DriveKind::Network},
    {DRIVE_CDROM,     DriveKind::Optical},
    {DRIVE_RAMDISK,   DriveKind::RamDisk},
}};
// clang-format on

UINT driveTypeOf(const QString &path)
{
    const NoMediumQuestions quiet;
    const QString root = driveRootOf(path);
    // Without a path the system would tell of the current folder's drive.
    return root.isEmpty() ? DRIVE_NO_ROOT_DIR : ::GetDriveTypeW(wide(root));
}

bool isDriveLetter(QChar c)
{
    return c.isLetter() && c < QChar(u'\x80');
}

bool isSeparator(QChar c)
{
    return c == QLatin1Char('\\') || c == QLatin1Char('/');
}

/// Empty for a path that begins with neither a drive nor a share.
QString nativePath(const QString &path)
{
    if (driveRootOf(path).isEmpty())
        return {};
    // The system would take it from the current folder of the drive.
    const bool isWithoutRoot = path[1] == QLatin1Char(':') && (path.size() == 2 || !isSeparator(path[2]));
    return WindowsPath(isWithoutRoot ? path.first(2) + QLatin1Char('\\') + path.sliced(2) : path).native();
}

DWORD attributesOf(const QString &path)
{
    const NoMediumQuestions quiet;
    const QString native = nativePath(path);
    return native.isEmpty() ? INVALID_FILE_ATTRIBUTES : ::GetFileAttributesW(wide(native));
}

/// What a search finds, one after the other.
class FoundFiles final
{
public:
    explicit FoundFiles(const QString &pattern)
        : m_search(::FindFirstFileExW(wide(pattern), FindExInfoBasic, &m_data, FindExSearchNameMatch, nullptr,
                                      FIND_FIRST_EX_LARGE_FETCH))
    {
    }
    FoundFiles(const FoundFiles &) = delete;
    FoundFiles &operator=(const FoundFiles &) = delete;
    ~FoundFiles()
    {
        if (m_search != INVALID_HANDLE_VALUE)
            ::FindClose(m_search);
    }

    [[nodiscard]] bool next()
    {
        if (m_isFirst) {
            m_isFirst = false;
            return m_search != INVALID_HANDLE_VALUE;
        }
        return ::FindNextFileW(m_search, &m_data);
    }

    [[nodiscard]] const WIN32_FIND_DATAW &data() const { return m_data; }

private:
    WIN32_FIND_DATAW m_data = {};
    HANDLE m_search;
    bool m_isFirst = true;
};

} // namespace

bool WindowsFileSystem::DriveExists(const QString &path) const
{
    const UINT type = driveTypeOf(path);
    return type != DRIVE_NO_ROOT_DIR && type != DRIVE_UNKNOWN;
}

Drive WindowsFileSystem::GetDrive(const QString &path) const
{
    const auto row =
        std::find_if(systemDriveTypes.begin(), systemDriveTypes.end(),
                     [type = driveTypeOf(path)](const SystemDriveType &each) { return each.type == type; });
    return {row == systemDriveTypes.end() ? DriveKind::Unknown : row->kind};
}

bool WindowsFileSystem::FolderExists(const QString &path) const
{
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool WindowsFileSystem::FileExists(const QString &path) const
{
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

FolderContent WindowsFileSystem::ListFolder(const QString &path) const
{
    FolderContent content;
    QString pattern = nativePath(path);
    if (pattern.isEmpty())
        return content;
    if (!pattern.endsWith(QLatin1Char('\\')))
        pattern += QLatin1Char('\\');
    const NoMediumQuestions quiet;
    FoundFiles found(pattern + QLatin1Char('*'));
    while (found.next()) {
        const wchar_t *name = found.data().cFileName;
        if (std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0)
            continue;
        const bool isFolder = (found.data().dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        (isFolder ? content.folders : content.files) << QString::fromWCharArray(name);
    }
    return content;
}

QString WindowsFileSystem::systemPath(const QString &path) const
{
    return attributesOf(path) == INVALID_FILE_ATTRIBUTES ? QString() : path;
}

QString WindowsFileSystem::pathOf(const QString &systemsPath, const QString &host) const
{
    QString path = systemsPath;
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const QString root = driveRootOf(path);
    const bool isOfHost = root.startsWith(QStringLiteral("\\\\%1\\").arg(host), Qt::CaseInsensitive);
    return root.isEmpty() || (!host.isEmpty() && !isOfHost) ? QString() : path;
}

QString driveRootOf(const QString &path)
{
    if (path.size() >= 2 && isDriveLetter(path[0]) && path[1] == QLatin1Char(':'))
        return path.first(2) + QLatin1Char('\\');
    if (path.size() < 2 || !isSeparator(path[0]) || !isSeparator(path[1]))
        return {};
    QString text = path;
    text.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const QString host = text.section(QLatin1Char('\\'), 2, 2);
    const QString share = text.section(QLatin1Char('\\'), 3, 3);
    if (host.isEmpty() || share.isEmpty())
        return {};
    return QStringLiteral("\\\\%1\\%2\\").arg(host, share);
}

#include "platform/windows/WindowsDraft.h"

#include <QRandomGenerator>

#include <utility>

namespace {

bool isForbidden(DWORD error)
{
    switch (error) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_INVALID_OWNER:
    case ERROR_INVALID_PRIMARY_GROUP:
        return true;
    default:
        return false;
    }
}

} // namespace

WindowsDraft::WindowsDraft(WindowsCalls &calls, WindowsFile &&file, const QString &name)
    : m_calls(calls)
    , m_file(std::move(file))
    , m_name(name)
    , m_goesWithHandle(calls.setDeleteOnClose(m_file.handle(), true))
{
}

WindowsDraft::WindowsDraft(WindowsDraft &&other) noexcept
    : m_calls(other.m_calls)
    , m_file(std::move(other.m_file))
    , m_name(std::exchange(other.m_name, QString()))
    , m_goesWithHandle(other.m_goesWithHandle)
{
}

WindowsDraft::~WindowsDraft()
{
    const bool goesByItself = m_file.isOpen() && m_goesWithHandle;
    m_file.abandon();
    if (!m_name.isEmpty() && !goesByItself)
        (void)m_calls.deleteFile(m_name);
}

std::optional<WindowsDraft> WindowsDraft::make(WindowsCalls &calls, const WindowsPath &target,
                                               SECURITY_DESCRIPTOR *security, DWORD attributes)
{
    const QString number = QString::number(QRandomGenerator::system()->generate64(), 16);
    const QString name = target.sibling(QStringLiteral(".zentilconf-%1.tmp").arg(number));
    SECURITY_ATTRIBUTES given = {sizeof given, security, FALSE};
    WindowsFile file = WindowsFile::tryOpen(calls, WindowsPath(target.shown(), name),
                                            {.access = GENERIC_WRITE | DELETE,
                                             .share = FILE_SHARE_DELETE,
                                             .disposition = CREATE_NEW,
                                             .security = security ? &given : nullptr,
                                             .attributes = attributes});
    if (file.isOpen())
        return WindowsDraft(calls, std::move(file), name);
    if (isForbidden(file.error()))
        return std::nullopt;
    WindowsFile::raise(file.error(), target.shown());
}

void WindowsDraft::complete()
{
    m_file.sync();
    if (m_goesWithHandle && !m_calls.setDeleteOnClose(m_file.handle(), false))
        WindowsFile::raise(GetLastError(), readablePath(m_name));
    m_goesWithHandle = false;
    m_file.close();
}

bool WindowsDraft::moveTo(const WindowsPath &target)
{
    complete();
    if (m_calls.moveFile(m_name, target.native(), MOVEFILE_WRITE_THROUGH)) {
        m_name.clear();
        return true;
    }
    const DWORD error = GetLastError();
    if (isForbidden(error))
        return false;
    WindowsFile::raise(error, target.shown());
}

bool WindowsDraft::replace(const WindowsPath &target)
{
    complete();
    // With a name for the old file every failure leaves a known state; without one the old file may be gone.
    const QString backup = target.backup();
    if (m_calls.replaceFile(target.native(), m_name, backup)) {
        m_name.clear();
        // Where it stays, the next save removes it.
        (void)m_calls.deleteFile(backup);
        return true;
    }
    // The error tells between which steps the call stopped, but file servers do not all keep to that: what is there
    // tells it too.
    const bool hasLostItsName =
        m_calls.getFileAttributes(target.native()) == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_FILE_NOT_FOUND;
    if (hasLostItsName && !m_calls.moveFile(backup, target.native(), MOVEFILE_WRITE_THROUGH)) {
        WindowsFile::raise(GetLastError(), target.shown(),
                           QStringLiteral("The file is now called \"%1\".").arg(readablePath(backup)));
    }
    return false;
}

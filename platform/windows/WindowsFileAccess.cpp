#include "platform/windows/WindowsFileAccess.h"

#include "platform/RuntimeError.h"
#include "platform/UnfinishedContent.h"
#include "platform/windows/NoMediumQuestions.h"
#include "platform/windows/UnfinishedWrite.h"
#include "platform/windows/WindowsDraft.h"
#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsPath.h"

#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr WindowsFile::Opening forReading{
    .access = GENERIC_READ,
    .share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
    .disposition = OPEN_EXISTING,
};

// Others may go on reading; two that write are not possible.
constexpr WindowsFile::Opening forWriting{
    .access = GENERIC_READ | GENERIC_WRITE,
    .share = FILE_SHARE_READ,
    .disposition = OPEN_EXISTING,
};

} // namespace

WindowsFileAccess::WindowsFileAccess(std::unique_ptr<WindowsCalls> calls, const QString &recoveryFolder)
    : m_calls(std::move(calls))
    , m_recoveryFolder(recoveryFolder)
{
}

bool WindowsFileAccess::fileExists(const QString &path) const
{
    const NoMediumQuestions quiet;
    const WindowsPath target(path);
    const auto isFile = [this](const QString &native) {
        const DWORD attributes = m_calls->getFileAttributes(native);
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    };
    if (target.native().isEmpty() || isFolder(target))
        return false;
    return isFile(target.native()) || isFile(target.backup());
}

void WindowsFileAccess::readFile(const QString &path, const TakeBytes &take)
{
    const NoMediumQuestions quiet;
    const WindowsPath target(path);
    if (isFolder(target))
        WindowsFile::raise(ERROR_DIRECTORY, path);
    finishReplacement(target);
    BY_HANDLE_FILE_INFORMATION information = {};
    {
        const WindowsFile file = WindowsFile::open(*m_calls, target, forReading);
        file.requireOrdinary();
        information = file.information();
    }
    UnfinishedWrite(*m_calls, m_recoveryFolder, information).finish(target);
    WindowsFile::open(*m_calls, target, forReading).read(take);
}

void WindowsFileAccess::writeFile(const QString &path, QByteArrayView bytes)
{
    const NoMediumQuestions quiet;
    const std::optional<WindowsPath> end = followLink(WindowsPath(path));
    const WindowsPath target = end.value_or(WindowsPath(path));
    if (isFolder(target))
        WindowsFile::raise(ERROR_DIRECTORY, path);
    finishReplacement(target);
    BY_HANDLE_FILE_INFORMATION information = {};
    {
        // Opened for writing first of all: a file that may not be written is not replaced either.
        const WindowsFile old = WindowsFile::tryOpen(*m_calls, target, forWriting);
        if (!old.isOpen()) {
            if (old.error() != ERROR_FILE_NOT_FOUND)
                WindowsFile::raise(old.error(), path);
            createFile(target, bytes);
            return;
        }
        old.requireOrdinary();
        information = old.information();
        // Some file systems let an administrator write to it all the same.
        if ((information.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0)
            WindowsFile::raise(ERROR_ACCESS_DENIED, path);
    }
    if (!end || information.nNumberOfLinks > 1 || !replaceFile(target, bytes, information))
        writeInPlace(target, bytes);
}

bool WindowsFileAccess::isFolder(const WindowsPath &path) const
{
    const DWORD attributes = m_calls->getFileAttributes(path.native());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<WindowsPath> WindowsFileAccess::followLink(const WindowsPath &path) const
{
    const DWORD attributes = m_calls->getFileAttributes(path.native());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const WindowsFile file = WindowsFile::tryOpen(*m_calls, path, forReading);
    if (!file.isOpen())
        return std::nullopt;
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = m_calls->getFinalPathName(file.handle(), buffer.data(), size);
        if (length == 0)
            return std::nullopt;
        if (length < size)
            return WindowsPath(path.shown(), QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(length)));
        buffer.resize(length);
    }
}

/// A process that is killed while its draft takes the old file's place can leave the old file under its other name
/// only. It gets its name back.
void WindowsFileAccess::finishReplacement(const WindowsPath &target)
{
    if (m_calls->getFileAttributes(target.native()) == INVALID_FILE_ATTRIBUTES &&
        GetLastError() == ERROR_FILE_NOT_FOUND)
        (void)m_calls->moveFile(target.backup(), target.native(), MOVEFILE_WRITE_THROUGH);
}

void WindowsFileAccess::createFile(const WindowsPath &target, QByteArrayView bytes)
{
    // A link to a file that is not there yet: the system makes the file where the link points to.
    if (m_calls->getFileAttributes(target.native()) != INVALID_FILE_ATTRIBUTES) {
        createDirectly(target, bytes);
        return;
    }
    std::optional<WindowsDraft> draft = WindowsDraft::make(*m_calls, target, nullptr);
    if (draft)
        draft->file().write(bytes);
    // Without a draft the system tells why the file itself cannot be made. And in some folders files may be made, but
    // not renamed.
    if (!draft || !draft->moveTo(target))
        createDirectly(target, bytes);
}

void WindowsFileAccess::createDirectly(const WindowsPath &target, QByteArrayView bytes)
{
    WindowsFile file =
        WindowsFile::open(*m_calls, target, {.access = GENERIC_WRITE | DELETE, .share = 0, .disposition = CREATE_NEW});
    try {
        file.write(bytes);
        file.sync();
    } catch (const RuntimeError &) {
        (void)m_calls->setDeleteOnClose(file.handle(), true);
        throw;
    }
    file.close();
}

bool WindowsFileAccess::replaceFile(const WindowsPath &target, QByteArrayView bytes,
                                    const BY_HANDLE_FILE_INFORMATION &old)
{
    // Not every file server gives a replacement these of the old file.
    constexpr DWORD kept =
        FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD attributes = old.dwFileAttributes & kept;
    // The draft may never be read by more people than the file. The replacement takes over the old file's access list,
    // but not its owner; where a draft of that owner cannot be made, the file is written in place and stays whose it
    // is.
    QByteArray security = securityOf(target);
    if (security.isEmpty())
        return false;
    std::optional<WindowsDraft> draft =
        WindowsDraft::make(*m_calls, target, reinterpret_cast<SECURITY_DESCRIPTOR *>(security.data()),
                           attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL);
    if (!draft)
        return false;
    draft->file().write(bytes);
    return draft->replace(target);
}

void WindowsFileAccess::writeInPlace(const WindowsPath &target, QByteArrayView bytes)
{
    const WindowsFile file = WindowsFile::open(*m_calls, target, forWriting);
    UnfinishedWrite copy(*m_calls, m_recoveryFolder, file.information());

    const QByteArray before = file.readAll();
    copy.keep(target, before, bytes);
    try {
        if (bytes.size() > before.size())
            file.reserve(bytes.size());
        file.replaceContent(bytes);
    } catch (const RuntimeError &error) {
        try {
            file.replaceContent(before);
        } catch (const RuntimeError &) {
            throw RuntimeError(static_cast<RuntimeError::Number>(error.number()), error.path(),
                               keptCopyText(copy.path()));
        }
        copy.drop();
        throw;
    }
    copy.drop();
}

QByteArray WindowsFileAccess::securityOf(const WindowsPath &path) const
{
    constexpr SECURITY_INFORMATION parts =
        OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    DWORD needed = 0;
    (void)m_calls->getFileSecurity(path.native(), parts, nullptr, 0, &needed);
    QByteArray descriptor(static_cast<qsizetype>(needed), Qt::Uninitialized);
    if (needed == 0 || !m_calls->getFileSecurity(path.native(), parts, descriptor.data(), needed, &needed))
        return {};
    return descriptor;
}

#include "platform/windows/WindowsFileAccess.h"

#include "platform/RuntimeError.h"
#include "platform/windows/UnfinishedWrite.h"
#include "platform/windows/WindowsDraft.h"
#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsPath.h"

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
    const WindowsPath target = followLink(WindowsPath(path));
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
    if (information.nNumberOfLinks > 1 || !replaceFile(target, bytes))
        writeInPlace(target, bytes);
}

bool WindowsFileAccess::isFolder(const WindowsPath &path) const
{
    const DWORD attributes = m_calls->getFileAttributes(path.native());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

WindowsPath WindowsFileAccess::followLink(const WindowsPath &path) const
{
    const DWORD attributes = m_calls->getFileAttributes(path.native());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const WindowsFile file = WindowsFile::tryOpen(*m_calls, path, forReading);
    if (!file.isOpen())
        return path;
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = m_calls->getFinalPathName(file.handle(), buffer.data(), size);
        if (length == 0)
            return path;
        if (length < size)
            return {path.shown(), QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(length))};
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
    if (!draft)
        WindowsFile::raise(ERROR_ACCESS_DENIED, target.shown());
    draft->file().write(bytes);
    if (!draft->moveTo(target))
        createDirectly(target, bytes); // a folder where files may be made, but not renamed
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

bool WindowsFileAccess::replaceFile(const WindowsPath &target, QByteArrayView bytes)
{
    // The draft may never be read by more people than the file. The rest of the old file's security comes with the
    // replacement itself.
    QByteArray access = accessList(target);
    if (access.isEmpty())
        return false;
    std::optional<WindowsDraft> draft =
        WindowsDraft::make(*m_calls, target, reinterpret_cast<SECURITY_DESCRIPTOR *>(access.data()));
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
                               QStringLiteral("A copy is kept in \"%1\". The write is brought to its end when the "
                                              "file is opened here again.")
                                   .arg(copy.path()));
        }
        copy.drop();
        throw;
    }
    copy.drop();
}

QByteArray WindowsFileAccess::accessList(const WindowsPath &path) const
{
    DWORD needed = 0;
    (void)m_calls->getFileSecurity(path.native(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    QByteArray descriptor(static_cast<qsizetype>(needed), Qt::Uninitialized);
    if (needed == 0 ||
        !m_calls->getFileSecurity(path.native(), DACL_SECURITY_INFORMATION, descriptor.data(), needed, &needed))
        return {};
    return descriptor;
}

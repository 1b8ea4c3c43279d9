#include "platform/windows/UnfinishedWrite.h"

#include "platform/ByteText.h"
#include "platform/UnfinishedContent.h"

#include <optional>

namespace {

QString copyPath(const QString &folder, const BY_HANDLE_FILE_INFORMATION &file)
{
    const quint64 number = quint64(file.nFileIndexHigh) << 32 | file.nFileIndexLow;
    return QStringLiteral("%1\\%2-%3").arg(folder).arg(file.dwVolumeSerialNumber).arg(number);
}

} // namespace

UnfinishedWrite::UnfinishedWrite(WindowsCalls &calls, const QString &folder, const BY_HANDLE_FILE_INFORMATION &file)
    : m_calls(calls)
    , m_folder(folder)
    , m_path(copyPath(folder, file))
{
}

void UnfinishedWrite::keep(const WindowsPath &target, const QByteArray &before, QByteArrayView after)
{
    makeFolder(m_folder);
    // The move is what makes the copy count: one that was itself cut off is never taken for whole.
    const WindowsPath draft(m_path.shown() + QStringLiteral(".new"));
    try {
        WindowsFile copy =
            WindowsFile::open(m_calls, draft, {.access = GENERIC_WRITE, .share = 0, .disposition = CREATE_ALWAYS});
        copy.write(UnfinishedContent::heading(encodeText(target.shown()), before.size(), after.size()));
        copy.write(before);
        copy.write(after);
        copy.sync();
        copy.close();
        if (!m_calls.moveFile(draft.native(), m_path.native(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            WindowsFile::raise(GetLastError(), m_path.shown());
    } catch (...) {
        (void)m_calls.deleteFile(draft.native());
        throw;
    }
}

void UnfinishedWrite::drop()
{
    (void)m_calls.deleteFile(m_path.native());
}

void UnfinishedWrite::finish(const WindowsPath &target)
{
    std::optional<UnfinishedContent> content;
    {
        const WindowsFile copy = WindowsFile::tryOpen(
            m_calls, m_path, {.access = GENERIC_READ, .share = FILE_SHARE_READ, .disposition = OPEN_EXISTING});
        if (!copy.isOpen())
            return;
        content = UnfinishedContent::fromCopy(copy.readAll());
    }
    // Where the file may not be written, it was not this user's write that was cut off. Where another program has it
    // open for writing, it is being written right now.
    const WindowsFile file = WindowsFile::tryOpen(
        m_calls, target,
        {.access = GENERIC_READ | GENERIC_WRITE, .share = FILE_SHARE_READ, .disposition = OPEN_EXISTING});
    if (!file.isOpen())
        return;
    if (content && content->isCutOff(file.readAll()))
        file.replaceContent(content->after);
    drop();
}

void UnfinishedWrite::makeFolder(const QString &folder)
{
    const WindowsPath path(folder);
    if (m_calls.createDirectory(path.native()) || GetLastError() == ERROR_ALREADY_EXISTS)
        return;
    const DWORD error = GetLastError();
    const qsizetype slash = folder.lastIndexOf(QLatin1Char('\\'));
    if (error != ERROR_PATH_NOT_FOUND || slash <= 0)
        WindowsFile::raise(error, folder);
    makeFolder(folder.first(slash));
    if (!m_calls.createDirectory(path.native()) && GetLastError() != ERROR_ALREADY_EXISTS)
        WindowsFile::raise(GetLastError(), folder);
}

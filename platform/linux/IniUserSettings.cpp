#include "platform/linux/IniUserSettings.h"

#include "platform/ByteText.h"
#include "platform/FileAccess.h"
#include "platform/linux/IniLines.h"
#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace {

constexpr int lockPatienceMs = 2000;
constexpr int lockPollMs = 1;

/// Keeps other programs of this kind from storing, for as long as it lives.
class FolderLock final
{
public:
    explicit FolderLock(const std::filesystem::path &folder)
        : m_folder(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        const QDeadlineTimer deadline(lockPatienceMs);
        // Some file systems have no locks; that is no reason to store nothing.
        while (m_folder >= 0 && flock(m_folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK && !m_isTooLate) {
            QThread::msleep(lockPollMs);
            m_isTooLate = deadline.hasExpired();
        }
    }
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    ~FolderLock()
    {
        if (m_folder >= 0)
            close(m_folder);
    }

    [[nodiscard]] bool isTooLate() const { return m_isTooLate; }

private:
    int m_folder;
    bool m_isTooLate = false;
};

} // namespace

IniUserSettings::IniUserSettings(FileAccess &files, const QString &file)
    : m_files(files)
    , m_file(file)
{
}

QString IniUserSettings::GetSetting(const QString &section, const QString &key, const QString &absent) const
{
    try {
        return IniLines(content()).text(section, key).value_or(absent);
    } catch (const RuntimeError &) {
        return absent;
    }
}

bool IniUserSettings::SaveSetting(const QString &section, const QString &key, const QString &text)
{
    const std::filesystem::path folder = std::filesystem::path(encodeText(m_file).toStdString()).parent_path();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        return false;
    const FolderLock lock(folder);
    if (lock.isTooLate())
        return false;
    try {
        IniLines lines(content());
        if (lines.text(section, key) != text) {
            lines.setText(section, key, text);
            m_files.writeFile(m_file, lines.content());
        }
        return true;
    } catch (const RuntimeError &) {
        return false;
    }
}

/// Nothing for a file that is not there. @throws RuntimeError for one that cannot be read
QByteArray IniUserSettings::content() const
{
    QByteArray bytes;
    try {
        m_files.readFile(m_file, [&bytes](QByteArrayView piece) { bytes += piece; });
    } catch (const RuntimeError &error) {
        if (error.number() != RuntimeError::FileNotFound && error.number() != RuntimeError::PathNotFound)
            throw;
    }
    return bytes;
}

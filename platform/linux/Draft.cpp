#include "platform/linux/Draft.h"

#include <QRandomGenerator>

#include <fcntl.h>

#include <cerrno>
#include <utility>

namespace {

bool isForbidden(int error)
{
    return error == EACCES || error == EPERM || error == EROFS;
}

QByteArray draftName(const QByteArray &folder)
{
    return folder + "/.zentilconf-" + QByteArray::number(QRandomGenerator::system()->generate64(), 16) + ".tmp";
}

} // namespace

Draft::Draft(SystemCalls &calls, FileHandle &&file, const QByteArray &name, bool isNamed)
    : m_calls(calls)
    , m_file(std::move(file))
    , m_name(name)
    , m_isNamed(isNamed)
{
}

Draft::Draft(Draft &&other) noexcept
    : m_calls(other.m_calls)
    , m_file(std::move(other.m_file))
    , m_name(other.m_name)
    , m_isNamed(std::exchange(other.m_isNamed, false))
{
}

Draft::~Draft()
{
    if (m_isNamed)
        (void)m_calls.unlink(m_name);
}

std::optional<Draft> Draft::make(SystemCalls &calls, const QByteArray &folder, mode_t mode)
{
    const QByteArray name = draftName(folder);
    FileHandle nameless = FileHandle::tryOpen(calls, folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    if (nameless.isOpen())
        return Draft(calls, std::move(nameless), name, false);
    if (isForbidden(nameless.error()))
        return std::nullopt;

    // Not every file system has files without a name; which error says so differs between them.
    FileHandle named = FileHandle::tryOpen(calls, name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, mode);
    if (named.isOpen())
        return Draft(calls, std::move(named), name, true);
    if (isForbidden(named.error()))
        return std::nullopt;
    FileHandle::raise(named.error() == ENOENT ? ENOTDIR : named.error(), folder);
}

bool Draft::moveTo(const QByteArray &target)
{
    if (!m_isNamed) {
        // The way to name a nameless file without special rights: open(2), O_TMPFILE.
        if (m_calls.link("/proc/self/fd/" + QByteArray::number(m_file.file()), m_name) != 0)
            return false;
        m_isNamed = true;
    }
    m_file.close();
    if (m_calls.rename(m_name, target) == 0) {
        m_isNamed = false;
        return true;
    }
    const int error = errno;
    if (isForbidden(error) || error == EBUSY || error == EXDEV)
        return false;
    FileHandle::raise(error, target);
}

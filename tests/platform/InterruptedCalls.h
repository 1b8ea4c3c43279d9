#pragma once

#include "platform/linux/SystemCalls.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// What a test does to the system calls, and what it sees of them. It outlives the calls, so that it can be looked at
/// when the file access that owns them is gone.
struct Interruption
{
    struct Call
    {
        /// The call's place in the order, from 1.
        int number;
        const char *name;
        /// Where the call has one.
        QByteArray path;
        int flags;
    };

    /// The errno with which a call fails; 0 lets it through. It may as well end the process.
    std::function<int(const Call &)> errorOf;
    /// How many bytes of so many a read or a write takes.
    std::function<size_t(size_t)> pieceOf;
    /// Every call that was made, in order.
    std::vector<Call> calls;

    [[nodiscard]] int count() const { return int(calls.size()); }
};

/// The real calls, of which some go wrong. A close that fails has closed the file, as it is in Linux. What is written
/// is not forced to the disk: these tests end processes, not the machine, and they are many.
class InterruptedCalls final : public SystemCalls
{
public:
    explicit InterruptedCalls(std::shared_ptr<Interruption> interruption)
        : m_interruption(std::move(interruption))
    {
    }

    int open(const QByteArray &path, int flags, mode_t mode) override
    {
        return goesWrong("open", path, flags) ? -1 : SystemCalls::open(path, flags, mode);
    }
    int close(int file) override
    {
        const bool isWrong = goesWrong("close");
        const int error = errno;
        const int result = SystemCalls::close(file);
        if (isWrong)
            errno = error;
        return isWrong ? -1 : result;
    }
    ssize_t read(int file, void *buffer, size_t size) override
    {
        return goesWrong("read") ? -1 : SystemCalls::read(file, buffer, piece(size));
    }
    ssize_t write(int file, const void *bytes, size_t size) override
    {
        return goesWrong("write") ? -1 : SystemCalls::write(file, bytes, piece(size));
    }
    off_t lseek(int file, off_t offset, int whence) override
    {
        return goesWrong("lseek") ? -1 : SystemCalls::lseek(file, offset, whence);
    }
    int ftruncate(int file, off_t size) override
    {
        return goesWrong("ftruncate") ? -1 : SystemCalls::ftruncate(file, size);
    }
    int fallocate(int file, off_t offset, off_t size) override
    {
        return goesWrong("fallocate") ? -1 : SystemCalls::fallocate(file, offset, size);
    }
    int fsync(int) override { return goesWrong("fsync") ? -1 : 0; }
    int flock(int file, int operation) override
    {
        return goesWrong("flock") ? -1 : SystemCalls::flock(file, operation);
    }
    int stat(const QByteArray &path, struct stat *result) override
    {
        return goesWrong("stat", path) ? -1 : SystemCalls::stat(path, result);
    }
    int fstat(int file, struct stat *result) override
    {
        return goesWrong("fstat") ? -1 : SystemCalls::fstat(file, result);
    }
    ssize_t readlink(const QByteArray &path, char *buffer, size_t size) override
    {
        return goesWrong("readlink", path) ? -1 : SystemCalls::readlink(path, buffer, size);
    }
    int mkdir(const QByteArray &path, mode_t mode) override
    {
        return goesWrong("mkdir", path) ? -1 : SystemCalls::mkdir(path, mode);
    }
    int link(const QByteArray &from, const QByteArray &to) override
    {
        return goesWrong("link", to) ? -1 : SystemCalls::link(from, to);
    }
    int rename(const QByteArray &from, const QByteArray &to) override
    {
        return goesWrong("rename", to) ? -1 : SystemCalls::rename(from, to);
    }
    int unlink(const QByteArray &path) override { return goesWrong("unlink", path) ? -1 : SystemCalls::unlink(path); }
    int fchown(int file, uid_t owner, gid_t group) override
    {
        return goesWrong("fchown") ? -1 : SystemCalls::fchown(file, owner, group);
    }
    int fchmod(int file, mode_t mode) override { return goesWrong("fchmod") ? -1 : SystemCalls::fchmod(file, mode); }
    ssize_t flistxattr(int file, char *names, size_t size) override
    {
        return goesWrong("flistxattr") ? -1 : SystemCalls::flistxattr(file, names, size);
    }
    ssize_t fgetxattr(int file, const char *name, void *value, size_t size) override
    {
        return goesWrong("fgetxattr") ? -1 : SystemCalls::fgetxattr(file, name, value, size);
    }
    int fsetxattr(int file, const char *name, const void *value, size_t size) override
    {
        return goesWrong("fsetxattr") ? -1 : SystemCalls::fsetxattr(file, name, value, size);
    }
    int fremovexattr(int file, const char *name) override
    {
        return goesWrong("fremovexattr") ? -1 : SystemCalls::fremovexattr(file, name);
    }

private:
    /// Sets errno when it does.
    bool goesWrong(const char *name, const QByteArray &path = {}, int flags = 0)
    {
        m_interruption->calls.push_back({m_interruption->count() + 1, name, path, flags});
        const int error = m_interruption->errorOf ? m_interruption->errorOf(m_interruption->calls.back()) : 0;
        if (error != 0)
            errno = error;
        return error != 0;
    }

    size_t piece(size_t size) const
    {
        return m_interruption->pieceOf ? std::min(size, std::max<size_t>(1, m_interruption->pieceOf(size))) : size;
    }

    std::shared_ptr<Interruption> m_interruption;
};

/// The n-th call fails.
[[nodiscard]] inline auto failAt(int n, int error)
{
    return [=](const Interruption::Call &call) { return call.number == n ? error : 0; };
}

/// The n-th call and all after it fail, as with a disk that is gone.
[[nodiscard]] inline auto failFrom(int n, int error)
{
    return [=](const Interruption::Call &call) { return call.number >= n ? error : 0; };
}

/// The exit code of a process that has come to the call at which it was to end.
constexpr int endedCode = 77;

/// The process ends in place of its n-th call.
[[nodiscard]] inline auto endAt(int n, int exitCode)
{
    return [=](const Interruption::Call &call) {
        if (call.number == n)
            _exit(exitCode);
        return 0;
    };
}

/// The file system has no files without a name.
[[nodiscard]] inline bool asksForNamelessFile(const Interruption::Call &call)
{
    return (call.flags & O_TMPFILE) == O_TMPFILE;
}

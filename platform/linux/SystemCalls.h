#pragma once

#include <QByteArray>

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>

/// The system calls that file access is made of, each as its manual page (section 2) has it: the result, or -1 with
/// errno set. A test puts itself in between and lets the n-th call fail, or ends the process there.
class SystemCalls
{
public:
    SystemCalls() = default;
    SystemCalls(const SystemCalls &) = delete;
    SystemCalls &operator=(const SystemCalls &) = delete;
    virtual ~SystemCalls() = default;

    virtual int open(const QByteArray &path, int flags, mode_t mode);
    virtual int close(int file);
    virtual ssize_t read(int file, void *buffer, size_t size);
    virtual ssize_t write(int file, const void *bytes, size_t size);
    virtual off_t lseek(int file, off_t offset, int whence);
    virtual int ftruncate(int file, off_t size);
    virtual int fallocate(int file, off_t offset, off_t size);
    virtual int fsync(int file);
    virtual int flock(int file, int operation);

    virtual int stat(const QByteArray &path, struct stat *result);
    virtual int fstat(int file, struct stat *result);
    virtual ssize_t readlink(const QByteArray &path, char *buffer, size_t size);
    virtual int mkdir(const QByteArray &path, mode_t mode);
    virtual int link(const QByteArray &from, const QByteArray &to);
    virtual int rename(const QByteArray &from, const QByteArray &to);
    virtual int unlink(const QByteArray &path);

    virtual int fchown(int file, uid_t owner, gid_t group);
    virtual int fchmod(int file, mode_t mode);
    virtual ssize_t flistxattr(int file, char *names, size_t size);
    virtual ssize_t fgetxattr(int file, const char *name, void *value, size_t size);
    virtual int fsetxattr(int file, const char *name, const void *value, size_t size);
    virtual int fremovexattr(int file, const char *name);
};

/// Makes a system call again for as long as a signal interrupts it.
template<class Call>
auto uninterrupted(const Call &call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

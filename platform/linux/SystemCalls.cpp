#include "platform/linux/SystemCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>

int SystemCalls::open(const QByteArray &path, int flags, mode_t mode)
{
    return ::open(path.constData(), flags, mode);
}

int SystemCalls::close(int file)
{
    return ::close(file);
}

ssize_t SystemCalls::read(int file, void *buffer, size_t size)
{
    return ::read(file, buffer, size);
}

ssize_t SystemCalls::write(int file, const void *bytes, size_t size)
{
    return ::write(file, bytes, size);
}

off_t SystemCalls::lseek(int file, off_t offset, int whence)
{
    return ::lseek(file, offset, whence);
}

int SystemCalls::ftruncate(int file, off_t size)
{
    return ::ftruncate(file, size);
}

int SystemCalls::fallocate(int file, off_t offset, off_t size)
{
    return ::fallocate(file, 0, offset, size);
}

int SystemCalls::fsync(int file)
{
    return ::fsync(file);
}

int SystemCalls::flock(int file, int operation)
{
    return ::flock(file, operation);
}

int SystemCalls::stat(const QByteArray &path, struct stat *result)
{
    return ::stat(path.constData(), result);
}

int SystemCalls::fstat(int file, struct stat *result)
{
    return ::fstat(file, result);
}

ssize_t SystemCalls::readlink(const QByteArray &path, char *buffer, size_t size)
{
    return ::readlink(path.constData(), buffer, size);
}

int SystemCalls::mkdir(const QByteArray &path, mode_t mode)
{
    return ::mkdir(path.constData(), mode);
}

int SystemCalls::link(const QByteArray &from, const QByteArray &to)
{
    return ::linkat(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), AT_SYMLINK_FOLLOW);
}

int SystemCalls::rename(const QByteArray &from, const QByteArray &to)
{
    return ::rename(from.constData(), to.constData());
}

int SystemCalls::unlink(const QByteArray &path)
{
    return ::unlink(path.constData());
}

int SystemCalls::fchown(int file, uid_t owner, gid_t group)
{
    return ::fchown(file, owner, group);
}

int SystemCalls::fchmod(int file, mode_t mode)
{
    return ::fchmod(file, mode);
}

ssize_t SystemCalls::flistxattr(int file, char *names, size_t size)
{
    return ::flistxattr(file, names, size);
}

ssize_t SystemCalls::fgetxattr(int file, const char *name, void *value, size_t size)
{
    return ::fgetxattr(file, name, value, size);
}

int SystemCalls::fsetxattr(int file, const char *name, const void *value, size_t size)
{
    return ::fsetxattr(file, name, value, size, 0);
}

int SystemCalls::fremovexattr(int file, const char *name)
{
    return ::fremovexattr(file, name);
}

#include "platform/linux/DirectoryReader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstring>

DirectoryReader::DirectoryReader(const QByteArray &path)
    : m_directory(::opendir(path.constData()))
{
}

DirectoryReader::~DirectoryReader()
{
    if (m_directory)
        ::closedir(m_directory);
}

bool DirectoryReader::next()
{
    if (!m_directory)
        return false;
    do {
        m_entry = ::readdir(m_directory);
    } while (m_entry && (std::strcmp(m_entry->d_name, ".") == 0 || std::strcmp(m_entry->d_name, "..") == 0));
    return m_entry;
}

bool DirectoryReader::isDirectory() const
{
    // The system tells the type with the name, except for links and on some file systems.
    if (m_entry->d_type != DT_LNK && m_entry->d_type != DT_UNKNOWN)
        return m_entry->d_type == DT_DIR;
    struct stat status = {};
    return ::fstatat(::dirfd(m_directory), m_entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

#pragma once

#include <QByteArray>

#include <dirent.h>

/// Goes through the entries of a directory, without "." and "..", in the system's order. One that cannot be read has
/// none.
class DirectoryReader final
{
public:
    explicit DirectoryReader(const QByteArray &path);
    DirectoryReader(const DirectoryReader &) = delete;
    DirectoryReader &operator=(const DirectoryReader &) = delete;
    ~DirectoryReader();

    /// Goes to the next entry. @return false when there is none
    [[nodiscard]] bool next();

    /// The name of the entry; valid until next() is called.
    [[nodiscard]] const char *name() const { return m_entry->d_name; }

    /// Whether the entry is a directory, or a link that leads to one.
    [[nodiscard]] bool isDirectory() const;

private:
    DIR *m_directory;
    const dirent *m_entry = nullptr;
};

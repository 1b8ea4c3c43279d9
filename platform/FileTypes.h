#pragma once

#include <QString>

/// What the desktop has to know, beside the registry, about files that open with a program.
class FileTypes
{
public:
    FileTypes() = default;
    FileTypes(const FileTypes &) = delete;
    FileTypes &operator=(const FileTypes &) = delete;
    virtual ~FileTypes() = default;

    /// Makes the desktop open files of the extension with the program from now on. The registry has the association
    /// already.
    /// @param extension with its leading dot
    /// @throws RuntimeError when that cannot be stored; then the desktop opens them as before
    virtual void associate(const QString &extension, const QString &programPath) = 0;
};

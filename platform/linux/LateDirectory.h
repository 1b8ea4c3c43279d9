#pragma once

#include "platform/Directory.h"

#include <functional>

/// The directory service over LDAP, from the library of services, which is loaded when the first entry is opened.
class LateDirectory final : public Directory
{
public:
    /// What the library has under the name "makeDirectory".
    using Make = Directory *();

    /// @param folders where the library may be, asked for when it is loaded
    explicit LateDirectory(std::function<QStringList()> folders);

    /// When the library cannot be loaded, the status is Failed and says why.
    DirectoryStatus OpenDSObject(const QString &path, const QString &userName, const QString &password, Flags flags,
                                 const GoOn &goOn, std::unique_ptr<DirectoryObject> &object) override;

private:
    std::function<QStringList()> m_folders;
    std::unique_ptr<Directory> m_directory;
};

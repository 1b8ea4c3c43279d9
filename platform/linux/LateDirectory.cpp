#include "platform/linux/LateDirectory.h"

#include "platform/linux/ServiceLibrary.h"

#include <QCoreApplication>

#include <utility>

LateDirectory::LateDirectory(std::function<QStringList()> folders)
    : m_folders(std::move(folders))
{
}

DirectoryStatus LateDirectory::OpenDSObject(const QString &path, const QString &userName, const QString &password,
                                            Flags flags, const GoOn &goOn, std::unique_ptr<DirectoryObject> &object)
{
    if (!m_directory) {
        QString problem;
        const auto make = reinterpret_cast<Make *>(ServiceLibrary::function("makeDirectory", m_folders(), problem));
        if (!make)
            return {DirectoryStatus::Code::Failed,
                    QCoreApplication::translate("LateDirectory", "A part of the program is missing. %1").arg(problem)};
        m_directory.reset(make());
    }
    return m_directory->OpenDSObject(path, userName, password, flags, goOn, object);
}

#include "platform/linux/ServiceLibrary.h"

#include <QCoreApplication>
#include <QFile>

QStringList ServiceLibrary::folders()
{
    const QString program = QCoreApplication::applicationDirPath();
    return {program, program + QStringLiteral("/" ZENTILCONF_SERVICE_FOLDER)};
}

QFunctionPointer ServiceLibrary::function(const char *name, const QStringList &folders, QString &problem)
{
    QString path;
    for (const QString &folder : folders) {
        path = folder + QStringLiteral("/zentilconf-services.so");
        if (QFile::exists(path))
            break;
    }
    QLibrary library(path);
    const QFunctionPointer found = library.resolve(name);
    if (!found)
        problem = library.isLoaded()
                      ? QCoreApplication::translate("ServiceLibrary", "\"%1\" is of another version.").arg(path)
                      : library.errorString();
    return found;
}

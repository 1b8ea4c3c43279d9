#include "platform/linux/Paths.h"

#include <cstdlib>
#include <memory>

QByteArray realPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : QByteArray();
}

QByteArray withRealFolder(const QByteArray &path)
{
    const qsizetype nameAt = path.lastIndexOf('/') + 1;
    const QByteArray folder = realPath(path.first(nameAt));
    if (folder.isEmpty() || nameAt == path.size())
        return folder;
    return (folder.endsWith('/') ? folder : folder + '/') + path.sliced(nameAt);
}

bool isWithin(QByteArrayView path, QByteArrayView folder)
{
    if (folder == "/")
        return path.startsWith('/');
    return path.startsWith(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

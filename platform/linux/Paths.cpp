#include "platform/linux/Paths.h"

#include <cstdlib>
#include <memory>

QByteArray realPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : QByteArray();
}

bool isWithin(QByteArrayView path, QByteArrayView folder)
{
    if (folder == "/")
        return path.startsWith('/');
    return path.startsWith(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

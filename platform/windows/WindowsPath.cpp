#include "platform/windows/WindowsPath.h"

#include "platform/windows/WindowsCalls.h"

#include <vector>

namespace {

QString fullPath(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        return {};
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = ::GetFullPathNameW(wide(path), size, buffer.data(), nullptr);
        if (length < size)
            return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(length));
        buffer.resize(length);
    }
}

bool isDrivePath(const QString &path)
{
    return path.size() >= 3 && path[0].isLetter() && path[0] < QChar(u'\x80') && path[1] == QLatin1Char(':') &&
           path[2] == QLatin1Char('\\');
}

} // namespace

WindowsPath::WindowsPath(const QString &path)
    : WindowsPath(path, extendedPath(fullPath(path)))
{
}

WindowsPath::WindowsPath(const QString &shown, const QString &native)
    : m_shown(shown)
    , m_native(native)
{
}

QString WindowsPath::sibling(const QString &name) const
{
    return m_native.first(m_native.lastIndexOf(QLatin1Char('\\')) + 1) + name;
}

QString WindowsPath::backup() const
{
    return m_native + QStringLiteral(".zentilconf-old");
}

QString extendedPath(const QString &fullPath)
{
    if (isDrivePath(fullPath))
        return QStringLiteral("\\\\?\\") + fullPath;
    const bool isShare = fullPath.startsWith(QStringLiteral("\\\\")) &&
                         !fullPath.startsWith(QStringLiteral("\\\\?\\")) &&
                         !fullPath.startsWith(QStringLiteral("\\\\.\\"));
    return isShare ? QStringLiteral("\\\\?\\UNC\\") + fullPath.sliced(2) : fullPath;
}

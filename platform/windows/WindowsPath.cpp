#include "platform/windows/WindowsPath.h"

#include "platform/windows/WindowsCalls.h"

#include <vector>

namespace {

constexpr QLatin1String share("\\\\");
constexpr QLatin1String device("\\\\.\\");
constexpr QLatin1String extended("\\\\?\\");
constexpr QLatin1String extendedShare("\\\\?\\UNC\\");

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
        return extended + fullPath;
    const bool isShare = fullPath.startsWith(share) && !fullPath.startsWith(extended) && !fullPath.startsWith(device);
    return isShare ? extendedShare + fullPath.sliced(share.size()) : fullPath;
}

QString readablePath(const QString &extendedPath)
{
    if (extendedPath.startsWith(extendedShare))
        return share + extendedPath.sliced(extendedShare.size());
    const QString rest = extendedPath.startsWith(extended) ? extendedPath.sliced(extended.size()) : QString();
    return isDrivePath(rest) ? rest : extendedPath;
}

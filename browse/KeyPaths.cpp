#include "browse/KeyPaths.h"

#include "registry/HiveNames.h"

namespace {

constexpr QLatin1Char separator('\\');

QString trimmedPath(const QString &path)
{
    // Blanks only: other white space may be a part of a key's name.
    qsizetype begin = 0;
    qsizetype end = path.size();
    while (begin < end && path[begin] == QLatin1Char(' '))
        ++begin;
    while (end > begin && path[end - 1] == QLatin1Char(' '))
        --end;
    if (end > begin && path[end - 1] == separator)
        --end;
    return path.sliced(begin, end - begin);
}

template<class Change>
QString withHive(const QString &path, const Change &change)
{
    const qsizetype end = path.indexOf(separator);
    return end < 0 ? change(path) : change(path.first(end)) + path.sliced(end);
}

} // namespace

QString shownKeyPath(const QString &path)
{
    return withHive(path, shortHiveName);
}

QString meantKeyPath(const QString &text)
{
    return withHive(trimmedPath(text), fullHiveName);
}

QString KeyPaths::enter(const QString &path)
{
    const QString key = nodeKey(path);
    if (!m_paths.contains(key))
        m_paths.insert(key, trimmedPath(path));
    return key;
}

QString KeyPaths::nodeKey(const QString &path)
{
    // Character by character: QString::toUpper() would make "SS" of a sharp s, and one key of two.
    QString key = trimmedPath(path);
    for (QChar &c : key)
        c = c.toUpper();
    return key;
}

#include "browse/DrivePaths.h"

namespace {

constexpr QLatin1Char separator('\\');

QString hostPart(const QString &host)
{
    return QStringLiteral("\\\\") + host + separator;
}

/// Whether a letter and that character stand at a place of a path, and no more of a name.
bool isDriveAt(const QString &path, qsizetype at, QLatin1Char mark)
{
    return path.size() >= at + 2 && path[at].isLetter() && path[at + 1] == mark;
}

} // namespace

QString browsePath(const QString &path, const QString &host)
{
    if (host.isEmpty() || !isDriveAt(path, 0, QLatin1Char(':')))
        return path;
    return hostPart(host) + path[0] + QLatin1Char('$') + path.sliced(2);
}

QString linePath(const QString &path, const QString &host)
{
    const QString hostText = hostPart(host);
    if (host.isEmpty() || !path.startsWith(hostText, Qt::CaseInsensitive))
        return path;
    const qsizetype at = hostText.size();
    const bool isDrive = isDriveAt(path, at, QLatin1Char('$')) && (path.size() == at + 2 || path[at + 2] == separator);
    return isDrive ? path[at] + QStringLiteral(":") + path.sliced(at + 2) : path;
}

QString pathIn(const QString &folder, const QString &name)
{
    return folder.endsWith(separator) ? folder + name : folder + separator + name;
}

QStringList foldersOnTheWay(const QString &path)
{
    QString text = path;
    text.replace(QLatin1Char('/'), separator);
    const bool isShare = text.startsWith(QStringLiteral("\\\\"));
    QStringList names = text.split(separator, Qt::SkipEmptyParts);
    QString start = names.isEmpty() ? QString() : names.takeFirst();
    if (isShare && !names.isEmpty())
        start = hostPart(start) + names.takeFirst();
    QStringList folders{start + separator};
    for (const QString &name : names)
        folders << pathIn(folders.last(), name);
    return folders;
}

QString driveText(int index)
{
    return QChar(u'A' + index) + QStringLiteral(":\\");
}

QString drivePath(int index, const QString &host)
{
    return host.isEmpty() ? driveText(index) : hostPart(host) + driveText(index);
}

#include "platform/linux/DriveMap.h"

#include "platform/ByteText.h"
#include "platform/linux/DirectoryReader.h"
#include "platform/linux/Paths.h"

#include <sys/stat.h>

namespace {

constexpr QChar separator(u'\\');

bool isDriveLetter(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
}

bool isThere(const QByteArray &path)
{
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0;
}

bool isFolder(const QByteArray &path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The path of the name in a folder.
std::optional<QByteArray> findName(const QByteArray &folder, const QString &name)
{
    const QByteArray start = folder.endsWith('/') ? folder : folder + '/';
    const QByteArray exact = start + encodeText(name);
    if (isThere(exact))
        return exact;

    std::optional<QByteArray> found;
    DirectoryReader entries(folder);
    while (entries.next()) {
        const QByteArray entry(entries.name());
        if (decodeBytes(entry).compare(name, Qt::CaseInsensitive) == 0 && (!found || entry < *found))
            found = entry;
    }
    return found ? std::optional(start + *found) : std::nullopt;
}

std::optional<QByteArray> findNames(QByteArray path, const QStringList &names)
{
    for (const QString &name : names) {
        const std::optional<QByteArray> next = findName(path, name);
        if (!next)
            return {};
        path = *next;
    }
    return path;
}

/// The names between separators, as they lead from the drive's first folder.
QStringList namesIn(const QString &text)
{
    QStringList names;
    for (const QString &name : text.split(separator, Qt::SkipEmptyParts)) {
        if (name == QLatin1String("..")) {
            if (!names.isEmpty())
                names.removeLast();
        } else if (name != QLatin1String(".")) {
            names << name;
        }
    }
    return names;
}

} // namespace

std::optional<DrivePath> parseDrivePath(const QString &path)
{
    // The system's names end at such a character.
    if (path.contains(QChar(u'\0')))
        return {};
    const QString text = QString(path).replace(QLatin1Char('/'), separator);
    if (text.size() >= 2 && isDriveLetter(text[0]) && text[1] == QLatin1Char(':'))
        return DrivePath{{text.first(2).toLower()}, namesIn(text.sliced(2))};

    if (!text.startsWith(QStringLiteral("\\\\")))
        return {};
    const QString host = text.section(separator, 2, 2);
    const QString share = text.section(separator, 3, 3);
    const auto isName = [](const QString &name) {
        return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..");
    };
    if (!isName(host) || !isName(share))
        return {};
    return DrivePath{{QStringLiteral("unc"), host, share}, namesIn(text.section(separator, 4))};
}

DriveMap::DriveMap(const QByteArray &drivesFolder)
    : m_drivesFolder(drivesFolder)
{
}

std::optional<QByteArray> DriveMap::driveOf(const QString &path) const
{
    const std::optional<DrivePath> parts = parseDrivePath(path);
    return parts ? findDrive(*parts) : std::nullopt;
}

std::optional<QByteArray> DriveMap::find(const QString &path) const
{
    const std::optional<DrivePath> parts = parseDrivePath(path);
    const std::optional<QByteArray> drive = parts ? findDrive(*parts) : std::nullopt;
    return drive ? findNames(*drive, parts->names) : std::nullopt;
}

QString DriveMap::pathOf(const QByteArray &systemsPath, const QString &host) const
{
    if (!systemsPath.startsWith('/') || systemsPath.contains('\\'))
        return {};
    const QByteArray path = withRealFolder(systemsPath);
    std::optional<Root> nearest;
    for (const Root &root : roots(host)) {
        if (isWithin(path, root.folder) && (!nearest || root.folder.size() > nearest->folder.size()))
            nearest = root;
    }
    if (!nearest)
        return {};
    const QString below = decodeBytes(path.sliced(nearest->folder == "/" ? 0 : nearest->folder.size()));
    return nearest->text + (below.isEmpty() ? QString(separator) : QString(below).replace(u'/', separator));
}

std::vector<DriveMap::Root> DriveMap::roots(const QString &host) const
{
    std::vector<Root> found;
    for (char letter = 'A'; host.isEmpty() && letter <= 'Z'; ++letter) {
        const QString drive = QLatin1Char(letter) + QStringLiteral(":");
        if (const std::optional<QByteArray> folder = driveOf(drive))
            found.push_back({drive, realPath(*folder)});
    }
    const QString everyHost = QStringLiteral("unc");
    const std::optional<QByteArray> hosts = findNames(m_drivesFolder, {everyHost});
    DirectoryReader hostEntries(hosts.value_or(QByteArray()));
    while (hostEntries.next()) {
        const QString name = decodeBytes(hostEntries.name());
        if (!host.isEmpty() && host.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        const QByteArray hostFolder = *hosts + '/' + hostEntries.name();
        DirectoryReader shares(hostFolder);
        while (shares.next()) {
            const QString start = QStringLiteral("\\\\") + (host.isEmpty() ? name : host) + separator;
            if (shares.isDirectory())
                found.push_back({start + decodeBytes(shares.name()), realPath(hostFolder + '/' + shares.name())});
        }
    }
    return found;
}

std::optional<QByteArray> DriveMap::findDrive(const DrivePath &path) const
{
    if (!isFolder(m_drivesFolder)) {
        const bool isRoot = path.drive.size() == 1 && path.drive.first() == QLatin1String("c:");
        return isRoot ? std::optional(QByteArray("/")) : std::nullopt;
    }
    const std::optional<QByteArray> drive = findNames(m_drivesFolder, path.drive);
    return drive && isFolder(*drive) ? drive : std::nullopt;
}

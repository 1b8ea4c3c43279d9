#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

void FakeFileSystem::addDrive(const QString &root, DriveKind kind)
{
    ASSERT_TRUE(root.endsWith('\\')) << root.toStdString();
    m_drives[keyOf(root)] = kind;
    m_entries[keyOf(root)] = {root, true};
}

void FakeFileSystem::addFolder(const QString &path)
{
    add(path, true);
}

void FakeFileSystem::addFile(const QString &path)
{
    add(path, false);
}

void FakeFileSystem::remove(const QString &path)
{
    const QString key = keyOf(path);
    m_entries.removeIf([&key](const auto &entry) { return entry.key() == key || entry.key().startsWith(key + '\\'); });
}

bool FakeFileSystem::DriveExists(const QString &path) const
{
    asked << path;
    return m_drives.contains(keyOf(path));
}

Drive FakeFileSystem::GetDrive(const QString &path) const
{
    return {m_drives.value(keyOf(path), DriveKind::Unknown)};
}

bool FakeFileSystem::FolderExists(const QString &path) const
{
    asked << path;
    const auto found = m_entries.find(keyOf(path));
    return found != m_entries.end() && found->isFolder;
}

bool FakeFileSystem::FileExists(const QString &path) const
{
    asked << path;
    const auto found = m_entries.find(keyOf(path));
    return found != m_entries.end() && !found->isFolder;
}

FolderContent FakeFileSystem::ListFolder(const QString &path) const
{
    asked << path;
    FolderContent content;
    const QString folder = keyOf(path) + '\\';
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
        if (!entry.key().startsWith(folder) || entry.key().indexOf('\\', folder.size()) >= 0)
            continue;
        const QString name = entry->path.mid(entry->path.lastIndexOf('\\') + 1);
        (entry->isFolder ? content.folders : content.files) << name;
    }
    return content;
}

QString FakeFileSystem::systemPath(const QString &path) const
{
    for (auto at = systemFolders.begin(); m_entries.contains(keyOf(path)) && at != systemFolders.end(); ++at) {
        if (path.startsWith(at.value(), Qt::CaseInsensitive))
            return at.key() + path.mid(at.value().size()).replace('\\', '/');
    }
    return {};
}

QString FakeFileSystem::pathOf(const QString &systemsPath, const QString &host) const
{
    for (auto at = systemFolders.begin(); at != systemFolders.end(); ++at) {
        if (systemsPath.startsWith(at.key() + '/') && (host.isEmpty() || at.value().startsWith("\\\\" + host + '\\')))
            return at.value() + systemsPath.mid(at.key().size()).replace('/', '\\');
    }
    return {};
}

QString FakeFileSystem::keyOf(const QString &path)
{
    const QString key = path.toUpper();
    return key.endsWith('\\') ? key.chopped(1) : key;
}

void FakeFileSystem::add(const QString &path, bool isFolder)
{
    const QString above = path.left(path.lastIndexOf('\\'));
    const bool isDrive = path.indexOf('\\') == path.size() - 1;
    if (!isDrive && !m_entries.contains(keyOf(above))) {
        ASSERT_TRUE(above.contains('\\')) << "no drive for " << path.toStdString();
        add(above, true);
    }
    m_entries[keyOf(path)] = {path, isFolder};
}

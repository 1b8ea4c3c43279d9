#include "platform/linux/DesktopFileTypes.h"

#include "platform/ByteText.h"
#include "platform/FileAccess.h"
#include "platform/linux/DesktopFiles.h"
#include "platform/linux/PackagedFiles.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr int patienceMs = 30'000;

constexpr const char *entryName = "zentilconf.desktop";

/// Below a data folder.
QString entryPath()
{
    return QStringLiteral("/applications/zentilconf.desktop");
}

QString packagePath()
{
    return QStringLiteral("/mime/packages/zentilconf.xml");
}

QByteArray packagedEntry()
{
    return {PackagedFiles::desktopEntry.data(), PackagedFiles::desktopEntry.size()};
}

QByteArray mimePackage(const QString &extension)
{
    QString package(PackagedFiles::mimePackage);
    return package.replace(QStringLiteral("*.zcf"), QLatin1Char('*') + extension.toHtmlEscaped()).toUtf8();
}

QByteArray mimeType()
{
    return entryText(packagedEntry(), "MimeType").split(';').first();
}

std::optional<QByteArray> contentOf(FileAccess &files, const QString &path)
{
    if (!files.fileExists(path))
        return std::nullopt;
    QByteArray content;
    files.readFile(path, [&content](QByteArrayView piece) { content += piece; });
    return content;
}

/// Files that are written together: unless keep() is called, they become what they were.
class FileChanges final
{
public:
    explicit FileChanges(FileAccess &files)
        : m_files(files)
    {
    }
    FileChanges(const FileChanges &) = delete;
    FileChanges &operator=(const FileChanges &) = delete;
    ~FileChanges()
    {
        for (auto change = m_before.rbegin(); change != m_before.rend(); ++change)
            undo(change->first, change->second);
    }

    void write(const QString &path, const QByteArray &content)
    {
        const auto before = contentOf(m_files, path);
        if (before == content)
            return;
        if (!QDir().mkpath(QFileInfo(path).path()))
            throw RuntimeError(RuntimeError::PathAccess, QFileInfo(path).path());
        m_files.writeFile(path, content);
        m_before.emplace_back(path, before);
    }

    void keep() { m_before.clear(); }

private:
    void undo(const QString &path, const std::optional<QByteArray> &content) noexcept
    {
        try {
            if (content)
                m_files.writeFile(path, *content);
            else
                QFile::remove(path);
        } catch (const RuntimeError &) {
            // The error that led here is the one that the user is told.
        }
    }

    FileAccess &m_files;
    std::vector<std::pair<QString, std::optional<QByteArray>>> m_before;
};

/// Lets a desktop's own program read a folder's files anew.
void runUpdate(const QString &program, const QString &folder)
{
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty())
        throw RuntimeError(RuntimeError::FileNotFound, program);
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(path, {folder});
    if (!process.waitForFinished(patienceMs) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw RuntimeError(RuntimeError::PathAccess, folder);
}

} // namespace

DesktopFileTypes::DesktopFileTypes(FileAccess &files, const QString &dataFolder, const QString &configurationFolder)
    : m_files(files)
    , m_dataFolder(dataFolder)
    , m_configurationFolder(configurationFolder)
{
}

void DesktopFileTypes::associate(const QString &extension, const QString &programPath)
{
    FileChanges changes(m_files);
    const bool isInstalled = isInstalledFor(extension, programPath);
    if (!isInstalled) {
        changes.write(m_dataFolder + packagePath(), mimePackage(extension));
        changes.write(m_dataFolder + entryPath(), entryForProgram(packagedEntry(), encodeText(programPath)));
    }
    const QString list = m_configurationFolder + QStringLiteral("/mimeapps.list");
    changes.write(list, withDefaultEntry(contentOf(m_files, list).value_or(QByteArray()), mimeType(), entryName));
    if (!isInstalled)
        runUpdate(QStringLiteral("update-mime-database"), m_dataFolder + QStringLiteral("/mime"));
    changes.keep();
}

/// True when a package has brought the type and an entry that starts this program, and the user has no other entry in
/// its place.
bool DesktopFileTypes::isInstalledFor(const QString &extension, const QString &programPath) const
{
    if (m_files.fileExists(m_dataFolder + entryPath()))
        return false;
    const QString program = QFileInfo(programPath).canonicalFilePath();
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        const auto entry = contentOf(m_files, folder + entryPath());
        if (!entry || contentOf(m_files, folder + packagePath()) != mimePackage(extension))
            continue;
        const QString command = decodeBytes(entryText(*entry, "TryExec"));
        const QString started = QStandardPaths::findExecutable(command);
        return !started.isEmpty() && QFileInfo(started).canonicalFilePath() == program;
    }
    return false;
}

#include "editors/ConfigDialogNew.h"

#include "browse/BrowseDrives.h"
#include "browse/DrivePaths.h"
#include "config/ItemDocument.h"
#include "editors/EditorServices.h"
#include "editors/FileLists.h"
#include "editors/FlagAlphabets.h"
#include "editors/FlagPanel.h"
#include "editors/LineEdit.h"
#include "editors/RunDialog.h"
#include "platform/ByteText.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "settings/FileFilters.h"
#include "settings/RunReported.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QPushButton>

namespace {

constexpr QLatin1Char separator('\\');

/// The drive of AllDriveList that a path begins with; empty when there is none.
QString driveOf(const QString &path)
{
    if (path.size() < 2 || path[1] != QLatin1Char(':'))
        return {};
    const int index = path[0].toUpper().unicode() - u'A';
    return index >= 0 && index < driveCount ? driveText(index).first(2) : QString();
}

} // namespace

ConfigDialogNew::ConfigDialogNew(const EditorServices &services, QWidget *parent)
    : FlagEditorForm(QLatin1String("ConfigDialogNew"), QStringLiteral("File"), services.messages, parent)
    , m_fileSystem(services.fileSystem)
    , m_objectName(addObjectField(QStringLiteral("Object to monitor"), QStringLiteral("Full path of object to check")))
{
    connect(addButtonBehind(QLatin1String("ObjBrowse"), tr("&Browse...")), &QPushButton::clicked, this,
            &ConfigDialogNew::chooseFile);
    addPrefix();
    addLists();
    QCheckBox &lastAccess = addFlags(fileFlags)->box('a');
    connect(&lastAccess, &QCheckBox::clicked, this, [this, &lastAccess] { confirmLastAccess(lastAccess); });
    addButtons(QStringLiteral("&Apply"), QStringLiteral("&Close"));
}

void ConfigDialogNew::SetDefaultItem()
{
    SetItem(QStringLiteral("C:\\"));
}

void ConfigDialogNew::showObject(const QString &object)
{
    m_objectName->setLine(object);
    moveListsTo(object);
    // Whatever the lists made of it on the way.
    m_objectName->setLine(object);
}

QString ConfigDialogNew::object() const
{
    const QString path = FlagEditorForm::object();
    const bool isRoot = path.endsWith(QLatin1String(":\\"));
    return path.endsWith(separator) && !isRoot ? path.chopped(1) : path;
}

void ConfigDialogNew::addLists()
{
    m_lists = new FileLists(this);
    addPart(*m_lists, Grows::Yes);
    connect(m_lists, &FileLists::driveChosen, this, &ConfigDialogNew::goToDrive);
    connect(m_lists, &FileLists::drivesWanted, this, &ConfigDialogNew::chooseDrives);
    connect(m_lists, &FileLists::folderChosen, this, [this](const QString &path) {
        if (!openFolder(path))
            reportMissing(path);
    });
    connect(m_lists, &FileLists::fileChosen, this,
            [this](const QString &name) { m_objectName->setLine(pathForLine(pathIn(m_lists->folder(), name))); });
}

void ConfigDialogNew::confirmLastAccess(QCheckBox &box)
{
    if (!box.isChecked())
        return;
    const Messages::Answer answer =
        messages().ask(QStringLiteral("The last access flag will always return true because Zentil will access the "
                                      "file in every run. Are you sure you want to set this flag?"),
                       Messages::Buttons::YesNo);
    box.setChecked(answer == Messages::Answer::Yes);
}

void ConfigDialogNew::moveListsTo(const QString &path)
{
    const QString drive = driveOf(path);
    if (!drive.isEmpty() && !goToDrive(drive))
        return;
    const QString browsed = spellingOf(pathToBrowse(path));
    if (openFolder(browsed))
        return;
    const qsizetype nameAt = browsed.lastIndexOf(separator) + 1;
    if (nameAt < 2) {
        reportMissing(browsed);
        return;
    }
    // A name in a drive's first folder: the lists are there already, and nobody minds when it is missing.
    if (browsed[nameAt - 2] == QLatin1Char(':'))
        return;
    if (!openFolder(browsed.first(nameAt - 1)))
        reportMissing(browsed);
    else if (m_fileSystem.FileExists(browsed))
        m_lists->selectFile(browsed.sliced(nameAt));
}

bool ConfigDialogNew::goToDrive(const QString &drive)
{
    QString connection = browsedHost().isEmpty() ? QString() : document().TryRemoteConnect(drive);
    const QString path = connection.isEmpty() ? browsePath(drive + separator, browsedHost()) : connection;
    if (!m_fileSystem.FolderExists(path) && !m_fileSystem.FileExists(path)) {
        messages().show(QStringLiteral("Cannot access file system ") + path);
        m_lists->showDrive(m_drive);
        return false;
    }
    m_drive = drive;
    m_connection = connection.endsWith(separator) ? connection.chopped(1) : connection;
    setWindowTitle(QStringLiteral("File System (%1)").arg(path));
    m_lists->showDrive(drive);
    // What is there may be a file, with nothing in it.
    (void)openFolder(path);
    m_objectName->setLine(drive + separator);
    return true;
}

bool ConfigDialogNew::openFolder(const QString &path)
{
    if (!m_fileSystem.FolderExists(path))
        return false;
    m_lists->showFolder(path, m_fileSystem.ListFolder(path));
    m_objectName->setLine(pathForLine(m_lists->folder()));
    return true;
}

void ConfigDialogNew::reportMissing(const QString &path)
{
    messages().show(QStringLiteral("Cannot find file ") + path);
}

void ConfigDialogNew::chooseFile()
{
    auto *dialog = new QFileDialog(this, QStringLiteral("Open"));
    dialog->setObjectName(QStringLiteral("CommonDialog"));
    // An item may be monitored before it is there.
    dialog->setFileMode(QFileDialog::AnyFile);
    setFileFilters(*dialog, QStringLiteral("All Files (*.*)|*.*"));
    startAtObject(*dialog);
    runDialog(dialog, [&](int result) {
        if (result == QDialog::Accepted && !dialog->selectedFiles().isEmpty())
            takeFile(dialog->selectedFiles().constFirst());
    });
}

void ConfigDialogNew::takeFile(const QString &chosen)
{
    const QString path = m_fileSystem.pathOf(chosen, browsedHost());
    if (path.isEmpty())
        messages().show(tr("No drive leads to \"%1\".").arg(chosen), Messages::Icon::Exclamation);
    else
        m_objectName->setLine(pathForLine(path));
}

void ConfigDialogNew::startAtObject(QFileDialog &dialog) const
{
    const QString path = spellingOf(pathToBrowse(m_objectName->line()));
    const QString folder = m_fileSystem.FolderExists(path) ? path : path.left(path.lastIndexOf(separator) + 1);
    if (m_fileSystem.FolderExists(folder))
        dialog.setDirectory(m_fileSystem.systemPath(folder));
    if (m_fileSystem.FileExists(path))
        dialog.selectFile(m_fileSystem.systemPath(path));
}

void ConfigDialogNew::chooseDrives()
{
    auto *picker = new BrowseDrives(m_fileSystem, browsedHost(), this);
    runDialog(picker, [&](int result) {
        if (result == QDialog::Accepted)
            takeDrives(picker->GetDrives().split(QLatin1Char(' '), Qt::SkipEmptyParts));
    });
}

void ConfigDialogNew::takeDrives(const QStringList &drives)
{
    if (drives.isEmpty())
        return;
    if (isNew() && drives.size() > 1) {
        runReported(messages(), [&] { addDrives(drives); });
        return;
    }
    // A drive that cannot be reached now may be monitored all the same.
    (void)goToDrive(driveOf(drives.first()));
    m_objectName->setLine(drives.first());
}

void ConfigDialogNew::addDrives(const QStringList &drives)
{
    std::optional<Item> item = collectItem();
    if (!item)
        return;
    for (const QString &drive : drives) {
        item->object = drive;
        handOver(*item);
    }
}

QString ConfigDialogNew::pathToBrowse(const QString &path) const
{
    const bool isConnected = !m_connection.isEmpty() && driveOf(path) == m_drive;
    return isConnected ? m_connection + path.sliced(2) : browsePath(path, browsedHost());
}

QString ConfigDialogNew::spellingOf(const QString &path) const
{
    const QString meant = shownText(path);
    if (meant == path)
        return path;
    const auto isThere = [this](const QString &each) {
        return m_fileSystem.FolderExists(each) || m_fileSystem.FileExists(each);
    };
    // The file itself, or else the folder that it might be in.
    for (const qsizetype end : {path.size(), qMax(path.lastIndexOf(separator), qsizetype(0))}) {
        if (isThere(path.first(end)))
            return path;
        if (isThere(meant.first(end)))
            return meant;
    }
    return meant;
}

QString ConfigDialogNew::pathForLine(const QString &path) const
{
    const bool isConnected = !m_connection.isEmpty() && path.startsWith(m_connection + separator);
    return isConnected ? m_drive + path.sliced(m_connection.size()) : linePath(path, browsedHost());
}

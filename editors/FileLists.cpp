#include "editors/FileLists.h"

#include "browse/DrivePaths.h"
#include "editors/NameList.h"
#include "platform/FileSystem.h"
#include "settings/DropDownList.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

namespace {

QStringList sorted(QStringList names)
{
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

QLabel *newLabel(const QString &name, const QString &text, QWidget *buddy, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setBuddy(buddy);
    // A list does not take its name from its label as other controls do.
    buddy->setAccessibleName(QString(text).remove(u'&'));
    return label;
}

} // namespace

FileLists::FileLists(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("FileLists"));
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins({});
    addDrives(*layout);
    addNames(*layout);
}

void FileLists::showDrive(const QString &drive)
{
    m_drives->setCurrentText(drive);
}

void FileLists::showFolder(const QString &path, const FolderContent &content)
{
    m_folders = foldersOnTheWay(path);
    m_folder = m_folders.last();
    const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon closed = style()->standardIcon(QStyle::SP_DirIcon);
    std::vector<NameList::Row> rows;
    for (const QString &folder : m_folders) {
        const QString name = rows.empty() ? folder : folder.mid(folder.lastIndexOf(QLatin1Char('\\')) + 1);
        rows.push_back({name, open, int(rows.size())});
    }
    const int current = int(rows.size()) - 1;
    for (const QString &name : sorted(content.folders)) {
        rows.push_back({name, closed, current + 1});
        m_folders << pathIn(m_folder, name);
    }
    m_folderList->setRows(std::move(rows));
    m_folderList->selectRow(current);

    m_files = sorted(content.files);
    const QIcon file = style()->standardIcon(QStyle::SP_FileIcon);
    rows.clear();
    rows.reserve(size_t(m_files.size()));
    for (const QString &name : std::as_const(m_files))
        rows.push_back({name, file});
    m_fileList->setRows(std::move(rows));
}

void FileLists::selectFile(const QString &name)
{
    qsizetype row = m_files.indexOf(name);
    if (row < 0) {
        const auto found = std::find_if(m_files.cbegin(), m_files.cend(), [&name](const QString &each) {
            return each.compare(name, Qt::CaseInsensitive) == 0;
        });
        row = found == m_files.cend() ? -1 : found - m_files.cbegin();
    }
    if (row >= 0)
        m_fileList->selectRow(int(row));
}

void FileLists::addDrives(QGridLayout &layout)
{
    // Going to a drive may take long or be refused: nobody would come past one that is not there.
    m_drives = new DropDownList(this);
    m_drives->setObjectName(QStringLiteral("AllDriveList"));
    // All of them: which drives another host has is not known in advance.
    for (int i = 0; i < driveCount; ++i)
        m_drives->addItem(driveText(i).first(2));
    m_drives->setCurrentIndex(-1);
    // Also when it is the drive that is shown already.
    connect(m_drives, &QComboBox::textActivated, this, &FileLists::driveChosen);

    auto *choose = new QPushButton(tr("&Drives..."), this);
    choose->setObjectName(QStringLiteral("DriveBrowse"));
    choose->setToolTip(tr("Choose several drives at once"));
    connect(choose, &QPushButton::clicked, this, &FileLists::drivesWanted);

    auto *row = new QHBoxLayout;
    row->addWidget(newLabel(QStringLiteral("Label4"), tr("Dri&ve"), m_drives, this));
    row->addWidget(m_drives);
    row->addWidget(choose);
    row->addStretch();
    layout.addLayout(row, 0, 0, 1, 2);
}

void FileLists::addNames(QGridLayout &layout)
{
    m_folderList = new NameList(QLatin1String("DirList"), NameList::Choice::ByOpening, this);
    connect(m_folderList, &NameList::chosen, this, [this](int row) { emit folderChosen(m_folders[row]); });
    m_fileList = new NameList(QLatin1String("FileList"), NameList::Choice::BySelecting, this);
    connect(m_fileList, &NameList::chosen, this, [this](int row) { emit fileChosen(m_files[row]); });

    layout.addWidget(newLabel(QStringLiteral("Label5"), tr("&Folders"), m_folderList, this), 1, 0);
    layout.addWidget(newLabel(QStringLiteral("Label6"), tr("F&iles"), m_fileList, this), 1, 1);
    layout.addWidget(m_folderList, 2, 0);
    layout.addWidget(m_fileList, 2, 1);
    layout.setRowStretch(2, 1);
    layout.setColumnStretch(0, 1);
    layout.setColumnStretch(1, 1);
}

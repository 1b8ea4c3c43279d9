#include "browse/BrowseDrives.h"

#include "browse/DialogButtons.h"
#include "browse/DrivePaths.h"
#include "platform/FileSystem.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

/// How many drives are seen at first.
constexpr int shownRows = 12;

} // namespace

BrowseDrives::BrowseDrives(const FileSystem &fileSystem, const QString &host, QWidget *parent)
    : QDialog(parent)
    , m_driveList(new QListWidget(this))
{
    setObjectName(QStringLiteral("BrowseDrives"));
    setWindowTitle(host.isEmpty() ? tr("Drives") : tr("Drives (\\\\%1)").arg(host));

    auto *label = new QLabel(tr("&Drives"), this);
    label->setObjectName(QStringLiteral("Label1"));
    label->setBuddy(m_driveList);
    m_driveList->setObjectName(QStringLiteral("DriveList"));
    m_driveList->setAccessibleName(tr("Drives"));
    m_driveList->setSelectionMode(QAbstractItemView::MultiSelection);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    // The room that a bigger window gives goes to the list.
    layout->addWidget(m_driveList, 1);
    QPushButton *okButton = addDialogButtons(*this, *layout, tr("OK"), tr("&Cancel"));
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);

    fill(fileSystem, host);
    m_driveList->setMinimumHeight(shownRows * m_driveList->sizeHintForRow(0));
    m_driveList->setFocus();
}

QString BrowseDrives::GetDrives() const
{
    QString drives;
    for (int i = 0; i < driveCount; ++i) {
        if (m_driveList->item(i)->isSelected())
            drives += driveText(i) + QLatin1Char(' ');
    }
    return drives;
}

void BrowseDrives::fill(const FileSystem &fileSystem, const QString &host)
{
    for (int i = 0; i < driveCount; ++i) {
        m_driveList->addItem(driveText(i));
        const QString path = drivePath(i, host);
        if (fileSystem.DriveExists(path) && fileSystem.GetDrive(path).DriveType == DriveKind::FixedDisk)
            m_driveList->item(i)->setSelected(true);
    }
    m_driveList->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

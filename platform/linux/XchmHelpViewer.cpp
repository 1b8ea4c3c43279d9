#include "platform/linux/XchmHelpViewer.h"

#include "platform/ByteText.h"
#include "platform/Programs.h"
#include "platform/RuntimeError.h"

#include <QFile>
#include <QFileInfo>

XchmHelpViewer::XchmHelpViewer(Programs &programs, const QByteArray &drivesFolder)
    : m_programs(programs)
    , m_drives(drivesFolder)
    , m_root(QByteArray())
{
}

bool XchmHelpViewer::hasFile(const QString &file) const
{
    return !find(file).isEmpty();
}

void XchmHelpViewer::HtmlHelpA(const QString &file, Command command, quint32 topic)
{
    const QString path = find(file);
    if (path.isEmpty())
        throw RuntimeError::described(RuntimeError::FileNotFound, missingHelpFileText(file));
    QStringList arguments{path};
    if (command == Command::HelpContext)
        arguments.prepend(QStringLiteral("--contextid=%1").arg(topic));
    if (!m_programs.start(QStringLiteral("xchm"), arguments))
        throw RuntimeError::described(
            RuntimeError::FileNotFound,
            QStringLiteral("Cannot start \"xchm\", which shows the help. It is in the package of that name."));
}

QString XchmHelpViewer::find(const QString &file) const
{
    // A product of this system is registered with the system's own path. Without a folder of drives "C:" is the root.
    const bool isSystemPath = file.startsWith(QLatin1Char('/'));
    const std::optional<QByteArray> found =
        isSystemPath ? m_root.find(QStringLiteral("C:") + file) : m_drives.find(file);
    if (!found)
        return {};
    const QString path = QFile::decodeName(*found);
    return QFileInfo(path).isFile() ? path : QString();
}

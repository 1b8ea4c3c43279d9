#include "platform/linux/LinuxPrograms.h"

#include <QLatin1String>
#include <QProcess>
#include <QStandardPaths>

#include <array>

namespace {

// Those that the distributions have, the one that tells most first.
constexpr std::array<QLatin1String, 4> informationTools{
    QLatin1String("hardinfo2"),
    QLatin1String("hardinfo"),
    QLatin1String("kinfocenter"),
    QLatin1String("lshw-gtk"),
};

} // namespace

bool LinuxPrograms::start(const QString &program, const QStringList &arguments)
{
    return QProcess::startDetached(program, arguments);
}

QStringList LinuxPrograms::systemInformationTools() const
{
    QStringList tools;
    for (const QLatin1String name : informationTools) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            tools << path;
    }
    return tools;
}

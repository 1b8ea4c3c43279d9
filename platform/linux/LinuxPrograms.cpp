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
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    // What it prints would stand in this program's terminal, as if this program had said it.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
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

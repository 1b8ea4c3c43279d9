#include "tests/integration/linux/LocalPrograms.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

QString findProgram(const QString &name)
{
    QString found = QStandardPaths::findExecutable(name);
    if (found.isEmpty())
        found = QStandardPaths::findExecutable(name, {"/usr/sbin", "/usr/local/sbin", "/usr/local/libexec"});
    EXPECT_FALSE(found.isEmpty()) << "the program " << name.toStdString() << " is missing";
    return found;
}

void runProgram(const QString &name, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(findProgram(name), arguments);
    EXPECT_TRUE(process.waitForFinished(patienceMs));
    EXPECT_EQ(process.exitCode(), 0) << name.toStdString() << ": " << process.readAll().toStdString();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

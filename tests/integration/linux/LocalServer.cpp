#include "tests/integration/LocalServer.h"

#include "tests/integration/linux/LocalPrograms.h"
#include "tests/integration/linux/Ports.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include <gtest/gtest.h>

struct LocalServer::Private
{
    QTemporaryDir folder;
    QProcess process;
};

LocalServer::LocalServer()
    : m_private(std::make_unique<Private>())
{
    EXPECT_TRUE(m_private->folder.isValid());
}

LocalServer::~LocalServer()
{
    kill();
}

QString LocalServer::folder() const
{
    return m_private->folder.path();
}

int LocalServer::freePort()
{
    int port = 0;
    close(listenOnFreePort(port));
    return port;
}

void LocalServer::write(const QString &name, const QByteArray &content)
{
    writeFile(m_private->folder.filePath(name), content);
}

QByteArray LocalServer::read(const QString &name) const
{
    QFile file(m_private->folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void LocalServer::makeFolder(const QString &name)
{
    ASSERT_TRUE(QDir().mkpath(m_private->folder.filePath(name)));
}

void LocalServer::load(const QStringList &arguments)
{
    runProgram("slapadd", arguments);
}

void LocalServer::start(const QStringList &arguments, const QList<int> &ports)
{
    QProcess &process = m_private->process;
    process.setStandardErrorFile(m_private->folder.filePath("log"));
    process.start(findProgram("slapd"), arguments);
    ASSERT_TRUE(process.waitForStarted());
    QElapsedTimer since;
    since.start();
    while (!std::all_of(ports.begin(), ports.end(), isListening)) {
        ASSERT_FALSE(process.waitForFinished(10)) << "the server has ended: " << read("log").toStdString();
        ASSERT_LT(since.elapsed(), patienceMs) << "the server does not answer: " << read("log").toStdString();
    }
}

void LocalServer::kill()
{
    if (m_private->process.state() == QProcess::NotRunning)
        return;
    m_private->process.kill();
    EXPECT_TRUE(m_private->process.waitForFinished(patienceMs));
}

void LocalServer::halt()
{
    const pid_t process = pid_t(m_private->process.processId());
    ASSERT_EQ(::kill(process, SIGSTOP), 0);
    // Its threads go on until each of them has seen the signal.
    siginfo_t state{};
    ASSERT_EQ(::waitid(P_PID, id_t(process), &state, WSTOPPED | WNOWAIT), 0);
}

void LocalServer::resume()
{
    ASSERT_EQ(::kill(pid_t(m_private->process.processId()), SIGCONT), 0);
}

#include "tests/integration/LocalServer.h"

#include "tests/integration/windows/Helper.h"

#include <QJsonArray>

struct LocalServer::Private
{
    Helper helper;
    QString folder = helper.ask("make folder")["path"].toString();
};

LocalServer::LocalServer()
    : m_private(std::make_unique<Private>())
{
}

LocalServer::~LocalServer() = default;

QString LocalServer::folder() const
{
    return m_private->folder;
}

int LocalServer::freePort()
{
    return m_private->helper.ask("find port")["port"].toInt();
}

void LocalServer::write(const QString &name, const QByteArray &content)
{
    m_private->helper.ask("write", {{"name", name}, {"content", QString::fromLatin1(content.toBase64())}});
}

QByteArray LocalServer::read(const QString &name) const
{
    return QByteArray::fromBase64(m_private->helper.ask("read", {{"name", name}})["content"].toString().toLatin1());
}

void LocalServer::makeFolder(const QString &name)
{
    m_private->helper.ask("make folder", {{"name", name}});
}

void LocalServer::load(const QStringList &arguments)
{
    m_private->helper.ask("load", {{"arguments", QJsonArray::fromStringList(arguments)}});
}

void LocalServer::start(const QStringList &arguments, const QList<int> &ports)
{
    QJsonArray numbers;
    for (const int port : ports)
        numbers << port;
    m_private->helper.ask("start", {{"arguments", QJsonArray::fromStringList(arguments)}, {"ports", numbers}});
}

void LocalServer::kill()
{
    m_private->helper.ask("kill");
}

void LocalServer::halt()
{
    m_private->helper.ask("halt");
}

void LocalServer::resume()
{
    m_private->helper.ask("resume");
}

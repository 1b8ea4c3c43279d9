#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// A connection to the program local-servers, which runs outside of Wine and does there what programs of Windows
/// cannot. It undoes everything when the connection ends. Whatever fails fails the test.
class Helper final
{
public:
    Helper();
    Helper(const Helper &) = delete;
    Helper &operator=(const Helper &) = delete;
    ~Helper();

    /// Has something done and waits for the answer. @param what see local-servers @return empty after a failure
    QJsonObject ask(const QString &what, QJsonObject with = {});

private:
    void send(const QByteArray &line);
    [[nodiscard]] QByteArray receiveLine();

    /// A SOCKET.
    quintptr m_socket = 0;
};

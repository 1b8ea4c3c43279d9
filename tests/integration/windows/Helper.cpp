#include "tests/integration/windows/Helper.h"

#include <QJsonDocument>
#include <QList>

// Before the header that it would replace.
#include <winsock2.h>

#include <qt_windows.h>

#include <algorithm>
#include <limits>

#include <gtest/gtest.h>

namespace {

/// Set by ./windows --test: the helper's port, a colon, and the word without which it does nothing.
constexpr const char *variable = "ZENTILCONF_LOCAL_SERVERS";

} // namespace

Helper::Helper()
{
    WSADATA data{};
    EXPECT_EQ(WSAStartup(MAKEWORD(2, 2), &data), 0);
    m_socket = socket(AF_INET, SOCK_STREAM, 0);
    const QList<QByteArray> place = qgetenv(variable).split(':');
    if (place.size() != 2) {
        ADD_FAILURE() << variable << " does not say where the program local-servers is";
        return;
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(place[0].toUShort());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0)
        << "the program local-servers does not answer";
    send(place[1] + '\n');
}

Helper::~Helper()
{
    closesocket(m_socket);
    WSACleanup();
}

QJsonObject Helper::ask(const QString &what, QJsonObject with)
{
    with["do"] = what;
    send(QJsonDocument(with).toJson(QJsonDocument::Compact) + '\n');
    QJsonObject answer = QJsonDocument::fromJson(receiveLine()).object();
    const QString error = answer.isEmpty() ? "there is no answer" : answer["error"].toString();
    EXPECT_EQ(error, QString()) << what.toStdString() << ": " << error.toStdString();
    return answer;
}

void Helper::send(const QByteArray &line)
{
    for (qsizetype sent = 0; sent < line.size();) {
        const qsizetype rest = std::min<qsizetype>(line.size() - sent, std::numeric_limits<int>::max());
        const int some = ::send(m_socket, line.constData() + sent, int(rest), 0);
        if (some <= 0) {
            ADD_FAILURE() << "the program local-servers takes nothing";
            return;
        }
        sent += some;
    }
}

QByteArray Helper::receiveLine()
{
    QByteArray line;
    char some[65'536];
    while (!line.endsWith('\n')) {
        const int count = recv(m_socket, some, sizeof some, 0);
        if (count <= 0)
            return {};
        line.append(some, count);
    }
    return line;
}

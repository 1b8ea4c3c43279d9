#include "tests/integration/SilentServer.h"

#include "tests/integration/windows/Helper.h"

namespace {

QString nameOf(SilentServer::Manner manner)
{
    switch (manner) {
    case SilentServer::Manner::Waits:
        return "waits";
    case SilentServer::Manner::Drops:
        return "drops";
    case SilentServer::Manner::Begins:
        return "begins";
    }
    return {};
}

} // namespace

struct SilentServer::Private
{
    Helper helper;
    int port = 0;
};

SilentServer::SilentServer(Manner manner)
    : m_private(std::make_unique<Private>())
{
    m_private->port = m_private->helper.ask("listen", {{"manner", nameOf(manner)}})["port"].toInt();
}

SilentServer::~SilentServer() = default;

int SilentServer::port() const
{
    return m_private->port;
}

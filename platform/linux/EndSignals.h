#pragma once

#include "platform/EndRequests.h"

#include <memory>

class QSocketNotifier;

/// The signals by which a session, a terminal or an administrator asks a program to end: SIGTERM, SIGINT and SIGHUP.
/// One that the program was started to ignore, as nohup does, stays ignored. There is one such object at a time.
class EndSignals final : public EndRequests
{
public:
    EndSignals();
    ~EndSignals() override;

    void listen(const std::function<void()> &asked) override;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

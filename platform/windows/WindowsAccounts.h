#pragma once

#include "platform/Accounts.h"

/// The accounts as the system's own network management functions give them.
class WindowsAccounts final : public Accounts
{
public:
    [[nodiscard]] quint32 NetUserEnum(const QString &server, quint32 level, quint32 filter, Batch &batch,
                                      quint32 preferredLength, quintptr &resumeHandle) override;
    [[nodiscard]] quint32 NetLocalGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                            quintptr &resumeHandle) override;
    [[nodiscard]] quint32 NetGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                       quintptr &resumeHandle) override;
    quint32 NetApiBufferFree(Record *buffer) override;
};

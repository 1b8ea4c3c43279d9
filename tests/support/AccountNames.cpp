#include "tests/support/AccountNames.h"

#include <gtest/gtest.h>

#include <algorithm>

AccountNames readAccountNames(Accounts &accounts,
                              const std::function<quint32(Accounts::Batch &, quintptr &)> &enumerate)
{
    AccountNames read;
    quintptr resumeHandle = 0;
    do {
        Accounts::Batch batch;
        read.result = enumerate(batch, resumeHandle);
        ++read.calls;
        size_t length = 0;
        for (quint32 i = 0; i < batch.entriesRead; ++i) {
            read.names << QString::fromUtf16(batch.buffer[i].name);
            length += sizeof(Accounts::Record) + size_t(read.names.last().size() + 1) * sizeof(char16_t);
        }
        if (batch.entriesRead > 1)
            read.largestBuffer = std::max(read.largestBuffer, length);
        EXPECT_EQ(accounts.NetApiBufferFree(batch.buffer), Accounts::Success);
    } while (read.result == Accounts::MoreData && read.calls < 100'000);
    return read;
}

AccountNames readUserNames(Accounts &accounts, const QString &server, quint32 preferredLength)
{
    return readAccountNames(accounts, [&](Accounts::Batch &batch, quintptr &resumeHandle) {
        return accounts.NetUserEnum(server, 0, 0, batch, preferredLength, resumeHandle);
    });
}

AccountNames readLocalGroupNames(Accounts &accounts, const QString &server, quint32 preferredLength)
{
    return readAccountNames(accounts, [&](Accounts::Batch &batch, quintptr &resumeHandle) {
        return accounts.NetLocalGroupEnum(server, 0, batch, preferredLength, resumeHandle);
    });
}

AccountNames readGroupNames(Accounts &accounts, const QString &server, quint32 preferredLength)
{
    return readAccountNames(accounts, [&](Accounts::Batch &batch, quintptr &resumeHandle) {
        return accounts.NetGroupEnum(server, 0, batch, preferredLength, resumeHandle);
    });
}

#pragma once

#include "platform/Accounts.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The accounts of a server in memory, handed out in small batches. It keeps account of every call, and fails the test
/// when a buffer is not released, or twice.
class FakeAccounts final : public Accounts
{
public:
    struct Call
    {
        QString function;
        QString server;
        quint32 level;
        quint32 filter;
        quint32 preferredLength;
        quintptr resumeHandle;
    };

    /// What a call is about to answer; a test may change any of it.
    struct Answer
    {
        quint32 result;
        quint32 totalEntries;
        quintptr resumeHandle;
        /// The first entry and the one behind the last.
        size_t first;
        size_t last;
    };

    FakeAccounts() = default;
    ~FakeAccounts() override;

    [[nodiscard]] quint32 NetUserEnum(const QString &server, quint32 level, quint32 filter, Batch &batch,
                                      quint32 preferredLength, quintptr &resumeHandle) override;
    [[nodiscard]] quint32 NetLocalGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                            quintptr &resumeHandle) override;
    [[nodiscard]] quint32 NetGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                       quintptr &resumeHandle) override;
    quint32 NetApiBufferFree(Record *buffer) override;

    QStringList users;
    QStringList localGroups;
    QStringList globalGroups;
    /// The one server that answers; another cannot be reached.
    QString server;

    /// Run before every answer, with the number of the call, counted from 0.
    std::function<void(qsizetype call, Answer &answer)> onAnswer;

    QList<Call> calls;
    int buffersGiven = 0;
    int mostBuffersOpen = 0;

private:
    struct Buffer
    {
        std::vector<std::u16string> names;
        std::vector<Record> records;
    };

    quint32 answer(const QStringList &names, const Call &call, Batch &batch, quintptr &resumeHandle);

    std::map<Record *, Buffer> m_open;
};

#include "tests/support/FakeAccounts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

FakeAccounts::~FakeAccounts()
{
    EXPECT_EQ(m_open.size(), 0U) << "buffers that were not released";
}

quint32 FakeAccounts::NetUserEnum(const QString &host, quint32 level, quint32 filter, Batch &batch,
                                  quint32 preferredLength, quintptr &resumeHandle)
{
    return answer(users, {QStringLiteral("NetUserEnum"), host, level, filter, preferredLength, resumeHandle}, batch,
                  resumeHandle);
}

quint32 FakeAccounts::NetLocalGroupEnum(const QString &host, quint32 level, Batch &batch, quint32 preferredLength,
                                        quintptr &resumeHandle)
{
    return answer(localGroups, {QStringLiteral("NetLocalGroupEnum"), host, level, 0, preferredLength, resumeHandle},
                  batch, resumeHandle);
}

quint32 FakeAccounts::NetGroupEnum(const QString &host, quint32 level, Batch &batch, quint32 preferredLength,
                                   quintptr &resumeHandle)
{
    return answer(globalGroups, {QStringLiteral("NetGroupEnum"), host, level, 0, preferredLength, resumeHandle}, batch,
                  resumeHandle);
}

quint32 FakeAccounts::NetApiBufferFree(Record *buffer)
{
    if (!buffer)
        return Success;
    const auto open = m_open.find(buffer);
    if (open == m_open.end()) {
        ADD_FAILURE() << "a buffer that is not open was released";
        return InvalidParameter;
    }
    // Whoever keeps a pointer into the buffer does not find the name there any more.
    for (std::u16string &name : open->second.names)
        std::fill(name.begin(), name.end(), u'?');
    m_open.erase(open);
    return Success;
}

quint32 FakeAccounts::answer(const QStringList &names, const Call &call, Batch &batch, quintptr &resumeHandle)
{
    calls << call;
    batch = {};
    if (call.server != server)
        return BadNetworkPath;

    const auto size = size_t(names.size());
    Answer answer{Success, 0, 0, std::min(size_t(resumeHandle), size), 0};
    answer.last = answer.first;
    for (size_t length = 0; answer.last < size; ++answer.last) {
        length += sizeof(Record) + size_t(names[qsizetype(answer.last)].size() + 1) * sizeof(char16_t);
        if (length > call.preferredLength && answer.last > answer.first)
            break;
    }
    answer.totalEntries = quint32(size - answer.first);
    if (answer.last < size) {
        answer.result = MoreData;
        answer.resumeHandle = answer.last;
    }
    if (onAnswer)
        onAnswer(calls.size() - 1, answer);

    resumeHandle = answer.resumeHandle;
    Buffer buffer;
    for (size_t i = answer.first; i < answer.last; ++i)
        buffer.names.push_back(names[qsizetype(i)].toStdU16String());
    for (const std::u16string &name : buffer.names)
        buffer.records.push_back({name.c_str()});
    if (!buffer.records.empty()) {
        batch.buffer = buffer.records.data();
        m_open.emplace(batch.buffer, std::move(buffer));
        ++buffersGiven;
        mostBuffersOpen = std::max(mostBuffersOpen, int(m_open.size()));
    }
    batch.entriesRead = quint32(answer.last - answer.first);
    batch.totalEntries = answer.totalEntries;
    return answer.result;
}

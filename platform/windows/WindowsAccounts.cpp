#include "platform/windows/WindowsAccounts.h"

#include "platform/windows/WindowsCalls.h"

#include <lm.h>

namespace {

static_assert(sizeof(Accounts::Record) == sizeof(USER_INFO_0));
static_assert(sizeof(Accounts::Record) == sizeof(LOCALGROUP_INFO_0));
static_assert(sizeof(Accounts::Record) == sizeof(GROUP_INFO_0));

/// No name stands for this machine.
const wchar_t *serverName(const QString &server)
{
    return server.isEmpty() ? nullptr : wide(server);
}

/// Runs call(buffer, entriesRead, totalEntries), which fills a batch.
template<class Call>
quint32 fill(Accounts::Batch &batch, const Call &call)
{
    LPBYTE buffer = nullptr;
    DWORD entriesRead = 0;
    DWORD totalEntries = 0;
    const NET_API_STATUS result = call(&buffer, &entriesRead, &totalEntries);
    batch = {reinterpret_cast<Accounts::Record *>(buffer), entriesRead, totalEntries};
    return result;
}

} // namespace

quint32 WindowsAccounts::NetUserEnum(const QString &server, quint32 level, quint32 filter, Batch &batch,
                                     quint32 preferredLength, quintptr &resumeHandle)
{
    // The handle of this one function is narrower than those of the others.
    auto handle = static_cast<DWORD>(resumeHandle);
    const quint32 result = fill(batch, [&](LPBYTE *buffer, DWORD *entriesRead, DWORD *totalEntries) {
        return ::NetUserEnum(serverName(server), level, filter, buffer, preferredLength, entriesRead, totalEntries,
                             &handle);
    });
    resumeHandle = handle;
    return result;
}

quint32 WindowsAccounts::NetLocalGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                           quintptr &resumeHandle)
{
    DWORD_PTR handle = resumeHandle;
    const quint32 result = fill(batch, [&](LPBYTE *buffer, DWORD *entriesRead, DWORD *totalEntries) {
        return ::NetLocalGroupEnum(serverName(server), level, buffer, preferredLength, entriesRead, totalEntries,
                                   &handle);
    });
    resumeHandle = handle;
    return result;
}

quint32 WindowsAccounts::NetGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                      quintptr &resumeHandle)
{
    DWORD_PTR handle = resumeHandle;
    const quint32 result = fill(batch, [&](LPBYTE *buffer, DWORD *entriesRead, DWORD *totalEntries) {
        return ::NetGroupEnum(serverName(server), level, buffer, preferredLength, entriesRead, totalEntries, &handle);
    });
    resumeHandle = handle;
    return result;
}

quint32 WindowsAccounts::NetApiBufferFree(Record *buffer)
{
    return ::NetApiBufferFree(buffer);
}

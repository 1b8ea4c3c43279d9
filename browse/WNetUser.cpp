#include "browse/WNetUser.h"

#include <QScopeGuard>

QStringList enumerateNames(Accounts &accounts, const EnumerateBatch &enumerate)
{
    QStringList names;
    quintptr resumeHandle = 0;
    for (;;) {
        const quintptr begin = resumeHandle;
        Accounts::Batch batch;
        const quint32 result = enumerate(batch, resumeHandle);
        const auto release = qScopeGuard([&] { accounts.NetApiBufferFree(batch.buffer); });
        if (result != Accounts::Success && result != Accounts::MoreData)
            return names;
        for (quint32 i = 0; i < batch.entriesRead; ++i)
            names << QString::fromUtf16(batch.buffer[i].name);
        if (batch.entriesRead == batch.totalEntries)
            return names;
        // A server's total may be an estimate. Without a handle to go on with the next call would begin anew, and one
        // that leads nowhere would be used for ever.
        if (resumeHandle == 0 || (batch.entriesRead == 0 && resumeHandle == begin))
            return names;
    }
}

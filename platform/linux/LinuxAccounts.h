#pragma once

#include "platform/Accounts.h"
#include "platform/linux/NameService.h"

#include <QStringList>

#include <map>
#include <memory>
#include <string>
#include <vector>

/// The users and groups that the name service switch knows, wherever it takes them from. The groups are local ones;
/// there are no global groups. Only this machine can be asked.
class LinuxAccounts final : public Accounts
{
public:
    explicit LinuxAccounts(std::unique_ptr<NameService> nameService);

    [[nodiscard]] quint32 NetUserEnum(const QString &server, quint32 level, quint32 filter, Batch &batch,
                                      quint32 preferredLength, quintptr &resumeHandle) override;
    [[nodiscard]] quint32 NetLocalGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                            quintptr &resumeHandle) override;
    [[nodiscard]] quint32 NetGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                       quintptr &resumeHandle) override;
    quint32 NetApiBufferFree(Record *buffer) override;

private:
    /// All names of a kind, read when an enumeration begins and kept until it has come to the end.
    struct Listing
    {
        QStringList names;
        /// Why reading ended before the last name.
        quint32 result = Success;
    };

    struct Buffer
    {
        std::vector<std::u16string> names;
        std::vector<Record> records;
    };

    [[nodiscard]] Listing readUsers() const;
    [[nodiscard]] Listing readGroups() const;
    [[nodiscard]] quint32 giveBatch(Listing &listing, Batch &batch, quint32 preferredLength, quintptr &resumeHandle);

    std::unique_ptr<NameService> m_nameService;
    Listing m_users;
    Listing m_groups;
    std::map<Record *, Buffer> m_buffers;
};

#include "platform/linux/LinuxAccounts.h"

#include "platform/ByteText.h"

#include <QSysInfo>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

/// Room for the texts of one entry, in bytes: most fit into the first, and none that is not broken needs more than the
/// last. A group's texts are the names of all its members.
constexpr qsizetype firstEntrySize = 4096;
constexpr qsizetype largestEntrySize = qsizetype(1) << 28;

quint32 resultOf(int error)
{
    switch (error) {
    case 0:
    case ENOENT:
        return Accounts::Success;
    case EACCES:
    case EPERM:
        return Accounts::AccessDenied;
    case ENOMEM:
    case ERANGE:
        return Accounts::NotEnoughMemory;
    default:
        return Accounts::GeneralFailure;
    }
}

/// Calls next(entry, buffer, size, result) until there is nothing more, and hands every entry to take.
template<class Entry, class Next, class Take>
quint32 readEntries(const Next &next, const Take &take)
{
    QByteArray buffer(firstEntrySize, Qt::Uninitialized);
    for (;;) {
        Entry entry;
        Entry *found = nullptr;
        const int error = next(&entry, buffer.data(), size_t(buffer.size()), &found);
        if (error == EINTR)
            continue;
        if (error == ERANGE && buffer.size() < largestEntrySize) {
            // The same entry comes again.
            buffer.resize(2 * buffer.size());
            continue;
        }
        if (error != 0 || !found)
            return resultOf(error);
        take(*found);
    }
}

bool isThisMachine(const QString &server)
{
    if (server.isEmpty())
        return true;
    const QString host = server.startsWith(QLatin1String("\\\\")) ? server.sliced(2) : server;
    const QString name = QSysInfo::machineHostName();
    const auto isCalled = [&host](const QString &each) {
        return !each.isEmpty() && host.compare(each, Qt::CaseInsensitive) == 0;
    };
    return isCalled(name) || isCalled(name.section(u'.', 0, 0)) || isCalled(QStringLiteral("localhost"));
}

} // namespace

LinuxAccounts::LinuxAccounts(std::unique_ptr<NameService> nameService)
    : m_nameService(std::move(nameService))
{
}

quint32 LinuxAccounts::NetUserEnum(const QString &server, quint32 level, quint32 filter, Batch &batch,
                                   quint32 preferredLength, quintptr &resumeHandle)
{
    batch = {};
    if (!isThisMachine(server))
        return BadNetworkPath;
    if (level != 0)
        return InvalidLevel;
    if (filter != 0)
        return InvalidParameter;
    if (resumeHandle == 0)
        m_users = readUsers();
    return giveBatch(m_users, batch, preferredLength, resumeHandle);
}

quint32 LinuxAccounts::NetLocalGroupEnum(const QString &server, quint32 level, Batch &batch, quint32 preferredLength,
                                         quintptr &resumeHandle)
{
    batch = {};
    if (!isThisMachine(server))
        return BadNetworkPath;
    if (level != 0)
        return InvalidLevel;
    if (resumeHandle == 0)
        m_groups = readGroups();
    return giveBatch(m_groups, batch, preferredLength, resumeHandle);
}

quint32 LinuxAccounts::NetGroupEnum(const QString &server, quint32 level, Batch &batch, quint32, quintptr &resumeHandle)
{
    batch = {};
    if (!isThisMachine(server))
        return BadNetworkPath;
    if (level != 0)
        return InvalidLevel;
    resumeHandle = 0;
    return Success;
}

quint32 LinuxAccounts::NetApiBufferFree(Record *buffer)
{
    return !buffer || m_buffers.erase(buffer) == 1 ? Success : InvalidParameter;
}

LinuxAccounts::Listing LinuxAccounts::readUsers() const
{
    Listing listing;
    m_nameService->setpwent();
    listing.result =
        readEntries<passwd>([this](auto... arguments) { return m_nameService->getpwent_r(arguments...); },
                            [&listing](const passwd &user) { listing.names << decodeBytes(user.pw_name); });
    m_nameService->endpwent();
    return listing;
}

LinuxAccounts::Listing LinuxAccounts::readGroups() const
{
    Listing listing;
    m_nameService->setgrent();
    listing.result = readEntries<group>([this](auto... arguments) { return m_nameService->getgrent_r(arguments...); },
                                        [&listing](const group &each) { listing.names << decodeBytes(each.gr_name); });
    m_nameService->endgrent();
    return listing;
}

/// @param resumeHandle how many names of the listing have been given
quint32 LinuxAccounts::giveBatch(Listing &listing, Batch &batch, quint32 preferredLength, quintptr &resumeHandle)
{
    const auto given = std::min(qsizetype(resumeHandle), listing.names.size());
    if (given == listing.names.size()) {
        resumeHandle = 0;
        return std::exchange(listing, {}).result;
    }

    Buffer buffer;
    size_t length = 0;
    for (qsizetype i = given; i < listing.names.size(); ++i) {
        const std::u16string name = listing.names[i].toStdU16String();
        length += sizeof(Record) + (name.size() + 1) * sizeof(char16_t);
        // A name that is longer than all that was asked for comes alone: otherwise nothing behind it ever would.
        if (length > preferredLength && !buffer.names.empty())
            break;
        buffer.names.push_back(name);
    }
    for (const std::u16string &name : buffer.names)
        buffer.records.push_back({name.c_str()});

    // What could not be read counts as one more entry, so that whoever takes the names comes to its result.
    const bool isWhole = listing.result == Success;
    batch.entriesRead = quint32(buffer.records.size());
    batch.totalEntries = quint32(listing.names.size() - given) + (isWhole ? 0 : 1);
    batch.buffer = buffer.records.data();
    m_buffers.emplace(batch.buffer, std::move(buffer));

    const bool isLast = batch.entriesRead == batch.totalEntries;
    resumeHandle = isLast ? 0 : quintptr(given) + batch.entriesRead;
    if (isLast)
        listing = {};
    return isLast ? Success : MoreData;
}

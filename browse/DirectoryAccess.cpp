#include "browse/DirectoryAccess.h"

#include "browse/LdapUrl.h"
#include "platform/ByteText.h"
#include "platform/DirectoryPath.h"
#include "platform/DistinguishedName.h"
#include "platform/Messages.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(DirectoryAccess)
};

} // namespace

DirectoryAccess::DirectoryAccess(Directory &directory, Messages &messages, Directory::GoOn goOn)
    : m_directory(directory)
    , m_messages(messages)
    , m_goOn(std::move(goOn))
{
}

void DirectoryAccess::setServer(const QString &host, const QString &userName, const QString &password)
{
    // What has been allowed was for that server and that password.
    if (host != m_host || userName != m_userName || password != m_password)
        m_allowedAddress.reset();
    m_host = host;
    m_userName = userName;
    m_password = password;
}

QString DirectoryAccess::pathOf(const QString &distinguishedName) const
{
    return ldapUrlBegin + m_host + u'/' + nameForUrl(distinguishedName);
}

DirectoryStatus DirectoryAccess::open(const QString &path, std::unique_ptr<DirectoryObject> &object)
{
    // An entry may be of another server than the one that is named now.
    const std::optional<DirectoryPath> parsed = DirectoryPath::parse(path);
    const bool isAllowed = parsed && parsed->address == m_allowedAddress;
    const Directory::Flags flags = isAllowed ? Directory::MaySendUnencrypted : Directory::None;
    DirectoryStatus status = m_directory.OpenDSObject(path, m_userName, m_password, flags, m_goOn, object);
    if (status.code != DirectoryStatus::Code::NotEncrypted || !maySendUnencrypted(status))
        return status;
    if (parsed)
        m_allowedAddress = parsed->address;
    return m_directory.OpenDSObject(path, m_userName, m_password, Directory::MaySendUnencrypted, m_goOn, object);
}

DirectoryStatus DirectoryAccess::readNamingContexts(QStringList &contexts)
{
    std::unique_ptr<DirectoryObject> root;
    DirectoryStatus status = open(ldapUrlBegin + m_host + QStringLiteral("/RootDSE"), root);
    if (!status.isSuccess())
        return status;
    QList<QByteArray> values;
    status = root->property(QStringLiteral("namingContexts"), values);
    for (const QByteArray &value : values)
        contexts << decodeBytes(value);
    return status;
}

bool DirectoryAccess::maySendUnencrypted(const DirectoryStatus &status) const
{
    return m_messages.ask(Texts::tr("%1 Do you want to send the password unencrypted?").arg(status.text),
                          Messages::Buttons::YesOrElseNo, Messages::Icon::Exclamation) == Messages::Answer::Yes;
}

#include "tests/support/FakeDirectory.h"

#include "platform/DirectoryPath.h"
#include "platform/DistinguishedName.h"

#include <gtest/gtest.h>

const QString FakeDirectory::failure = QStringLiteral("It does not work.");

namespace {

using Code = DirectoryStatus::Code;

class FakeObject final : public DirectoryObject
{
public:
    FakeObject(const FakeDirectory &directory, DirectoryPath path)
        : m_directory(directory)
        , m_path(std::move(path))
    {
    }

    [[nodiscard]] QStringList propertyNames() const override
    {
        return m_directory.entries.value(m_path.name).properties;
    }

    DirectoryStatus property(const QString &name, QList<QByteArray> &values) override
    {
        EXPECT_TRUE(m_path.isRootDse);
        EXPECT_EQ(name.toStdString(), "namingContexts");
        for (const QString &context : m_directory.contexts)
            values << context.toUtf8();
        return {};
    }

    DirectoryStatus children(const TakeChildren &take) override
    {
        const FakeDirectory::Entry entry = m_directory.entries.value(m_path.name);
        for (const QString &child : entry.children)
            take({{child, m_path.pathOf(child + u',' + m_path.name), false}});
        for (auto each = entry.elsewhere.begin(); each != entry.elsewhere.end(); ++each)
            take({{each.key(), each.value(), true}});
        return entry.childrenStatus;
    }

private:
    const FakeDirectory &m_directory;
    DirectoryPath m_path;
};

} // namespace

FakeDirectory::FakeDirectory() = default;

FakeDirectory::Entry &FakeDirectory::add(const QString &distinguishedName, const QStringList &properties)
{
    const QStringList names = relativeNames(distinguishedName);
    const QString parent = names.mid(1).join(u',');
    if (entries.contains(parent))
        entries[parent].children << names.first();
    else
        contexts << distinguishedName;
    entries[distinguishedName].properties = properties;
    return entries[distinguishedName];
}

DirectoryStatus FakeDirectory::OpenDSObject(const QString &path, const QString &userName, const QString &givenPassword,
                                            Flags flags, const GoOn &goOn, std::unique_ptr<DirectoryObject> &object)
{
    const qsizetype call = calls.size();
    calls << Call{path, userName, givenPassword, flags};
    while (stillWaits && stillWaits(call)) {
        if (!goOn())
            return {Code::Cancelled, {}};
    }
    const std::optional<DirectoryPath> parsed = DirectoryPath::parse(path);
    if (!parsed || parsed->address != address)
        return {Code::Failed, failure};
    if (!givenPassword.isEmpty() && isUnencrypted && flags != MaySendUnencrypted)
        return {Code::NotEncrypted, QStringLiteral("\"%1\" does not encrypt the connection.").arg(address)};
    if (!userName.isEmpty() && givenPassword != password)
        return {Code::Failed, failure};
    if (!parsed->isRootDse && !entries.contains(parsed->name))
        return {Code::Failed, failure};
    object = std::make_unique<FakeObject>(*this, *parsed);
    return {};
}

QStringList FakeDirectory::paths() const
{
    QStringList result;
    for (const Call &call : calls)
        result << call.path;
    return result;
}

#include "settings/ClassesChange.h"

#include "registry/RegistryConstants.h"

using RegistryConstants::allAccess;

namespace {

const QString &rootName()
{
    static const QString name = QStringLiteral("HKEY_CLASSES_ROOT");
    return name;
}

clsKey readableKey(Registry &registry, const QString &path)
{
    clsKey root(registry);
    root.OpenFull(rootName(), {}, 0, Registry::ReadAccess);
    clsKey key = root.SubKey(path);
    key.OpenKey(Registry::ReadAccess);
    return key;
}

QByteArray bytesOf(const clsValue &value)
{
    return value.DataString().toLatin1();
}

} // namespace

ClassesChange::ClassesChange(Registry &registry)
    : m_registry(registry)
    , m_root(registry)
{
    m_root.OpenFull(rootName(), {}, 0, allAccess);
}

ClassesChange::~ClassesChange()
{
    if (!m_root.KeyOK())
        return;
    for (auto undo = m_undo.rbegin(); undo != m_undo.rend(); ++undo)
        (*undo)();
}

void ClassesChange::write(const QString &path, const QString &text)
{
    rememberMissing(path);
    m_root.AddSubKey(path);
    clsKey key = m_root.SubKey(path);
    key.OpenKey(allAccess);
    const std::optional<clsValue> before = key.KeyOK() ? key.Value() : std::nullopt;
    key.Value(QString(), text);
    m_undo.emplace_back([this, path, before] {
        clsKey changed = m_root.SubKey(path);
        changed.OpenKey(allAccess);
        if (!changed.KeyOK())
            return;
        if (before)
            changed.Value(QString(), bytesOf(*before), before->Type());
        else
            changed.DeleteValue(QString());
    });
}

std::optional<QByteArray> ClassesChange::defaultValue(Registry &registry, const QString &path)
{
    const clsKey key = readableKey(registry, path);
    const std::optional<clsValue> value = key.KeyOK() ? key.Value() : std::nullopt;
    return value ? std::optional(bytesOf(*value)) : std::nullopt;
}

/// The keys of a path that are not there, the upper ones first, are deleted when the change is undone.
void ClassesChange::rememberMissing(const QString &path)
{
    for (qsizetype end = path.indexOf(u'\\');; end = path.indexOf(u'\\', end + 1)) {
        const QString part = path.first(end < 0 ? path.size() : end);
        if (!readableKey(m_registry, part).KeyOK())
            m_undo.emplace_back([this, part] { m_root.DeleteSubKey(part); });
        if (end < 0)
            return;
    }
}

#include "registry/clsKey.h"

#include "platform/RuntimeError.h"
#include "registry/RegistryConstants.h"
#include "registry/TextBuffer.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

using RegistryConstants::allAccess;
using RegistryConstants::hives;

namespace {

constexpr quint32 bufferSize = clsKey::bufferSize;

struct NameBuffer
{
    NameBuffer()
    {
        bytes.fill(' ');
        bytes.back() = '\0';
    }

    std::array<char, bufferSize + 1> bytes{};
    quint32 length = bufferSize + 1;
};

struct DataBuffer
{
    std::array<uchar, bufferSize> bytes{};
    quint32 length = bufferSize;
    quint32 type = 0;

    [[nodiscard]] QByteArray cut() const { return {reinterpret_cast<const char *>(bytes.data()), qsizetype(length)}; }
};

RuntimeError notOpen()
{
    return RuntimeError::described(RuntimeError::RegistryError,
                                   QStringLiteral("Key must be opened before operations are allowed"));
}

} // namespace

/// A handle that its key and the keys made from it share. The number stays when it has been closed.
class clsKey::OpenHandle final
{
public:
    explicit OpenHandle(Registry &registry)
        : m_registry(registry)
    {
    }
    OpenHandle(const OpenHandle &) = delete;
    OpenHandle &operator=(const OpenHandle &) = delete;
    ~OpenHandle() { close(); }

    [[nodiscard]] Registry::Handle number() const { return m_number; }

    /// Whatever was open is closed after open has been called, which may look for the new key below it.
    template<class Open>
    [[nodiscard]] bool reopen(const Open &open)
    {
        Registry::Handle opened = 0;
        const bool isOpened = open(&opened) == Registry::Result::Success;
        close();
        m_number = opened;
        m_isOpen = isOpened;
        return isOpened;
    }

    void close()
    {
        if (std::exchange(m_isOpen, false))
            (void)m_registry.RegCloseKey(m_number);
    }

private:
    Registry &m_registry;
    Registry::Handle m_number = 0;
    bool m_isOpen = false;
};

clsKey::clsKey(Registry &registry, const QString &name)
    : m_registry(&registry)
    , m_name(name)
    , m_handle(std::make_shared<OpenHandle>(registry))
{
}

void clsKey::CloseKey()
{
    m_handle->close();
}

void clsKey::DeleteValue(const QString &name)
{
    requireOpen(Handle());
    (void)m_registry->RegDeleteValueA(Handle(), m_registry->toCodePage(name));
}

void clsKey::DeleteSubKey(const QString &SubKey, Registry::Handle OverrideHandle)
{
    const Registry::Handle handle = OverrideHandle != 0 ? OverrideHandle : Handle();
    requireOpen(handle);
    (void)m_registry->RegDeleteKeyA(handle, m_registry->toCodePage(SubKey));
}

void clsKey::AddSubKey(const QString &SubKey)
{
    Registry::Handle made = 0;
    const Registry::Result result =
        m_registry->RegCreateKeyExA(Handle(), m_registry->toCodePage(SubKey), "", 0, allAccess, &made, nullptr);
    if (result != Registry::Result::Success)
        throw RuntimeError::described(RuntimeError::RegistryError, QStringLiteral("Unable to create subkey"));
    (void)m_registry->RegCloseKey(made);
}

Registry::Handle clsKey::Handle() const
{
    return m_handle->number();
}

Registry::Handle clsKey::HiveRoot2Num(const QString &name)
{
    const auto hive = std::find_if(hives.begin(), hives.end(), [&name](const auto &row) { return row.name == name; });
    return hive == hives.end() ? 0 : hive->handle;
}

void clsKey::OpenFull(const QString &KeyStr, const QString &host, Registry::Handle ParentHive, quint32 Mode)
{
    const QStringList components = KeyStr.split(u'\\');
    const Registry::Handle hive = HiveRoot2Num(components.first());
    m_name.clear();
    if (hive != 0)
        OpenKey(Mode, hive, host);
    else
        OpenKey(Mode, ParentHive);
    // Each step closes the handle of the one before.
    for (const QString &component : components.sliced(1)) {
        m_name = component;
        OpenKey(allAccess, Handle());
    }
}

void clsKey::OpenKey(quint32 Mode, std::optional<Registry::Handle> OverrideParent, const QString &host)
{
    const FixedBuffer name = TextToFixedBuffer(m_name, *m_registry);
    const Registry::Handle above = OverrideParent.value_or(m_parent == nullptr ? 0 : m_parent->number());
    m_isOK = m_handle->reopen([&](Registry::Handle *opened) {
        if (!host.isEmpty())
            return m_registry->RegConnectRegistryA(m_registry->toCodePage(host), above, opened);
        return m_registry->RegOpenKeyExA(above, QByteArray(name.data()), 0, Mode, opened);
    });
    if (m_isOK)
        readInformation();
}

clsKey clsKey::SubKey(const QString &name) const
{
    clsKey key(*m_registry, name);
    key.m_parent = m_handle;
    return key;
}

std::vector<clsKey> &clsKey::SubKeys(Registry::Handle OverrideHandle)
{
    const Registry::Handle handle = OverrideHandle != 0 ? OverrideHandle : Handle();
    requireOpen(handle);
    if (!m_subKeys.empty())
        return m_subKeys;
    RegistryKeyInfo info;
    if (m_registry->RegQueryInfoKeyA(handle, nullptr, nullptr, &info) != Registry::Result::Success)
        return m_subKeys;
    for (quint32 index = 0; index < info.subKeys; ++index) {
        NameBuffer name;
        if (m_registry->RegEnumKeyExA(handle, index, name.bytes.data(), &name.length, nullptr, nullptr, nullptr) ==
            Registry::Result::Success)
            m_subKeys.push_back(SubKey(m_registry->fromCodePage({name.bytes.data(), qsizetype(name.length)})));
    }
    return m_subKeys;
}

std::optional<clsValue> clsKey::Value() const
{
    return Value(QString());
}

std::optional<clsValue> clsKey::Value(const QString &name) const
{
    requireOpen(Handle());
    DataBuffer data;
    if (m_registry->RegQueryValueExA(Handle(), m_registry->toCodePage(name), &data.type, data.bytes.data(),
                                     &data.length) != Registry::Result::Success)
        return std::nullopt;
    // Nothing fills the buffer for the name here; it has been handed over like this from the first.
    return clsValue(QString(qsizetype(bufferSize), u' '), data.cut(), data.type);
}

std::optional<clsValue> clsKey::Value(qint32 position) const
{
    requireOpen(Handle());
    NameBuffer name;
    DataBuffer data;
    if (m_registry->RegEnumValueA(Handle(), static_cast<quint32>(position), name.bytes.data(), &name.length, &data.type,
                                  data.bytes.data(), &data.length) != Registry::Result::Success)
        return std::nullopt;
    return clsValue(m_registry->fromCodePage({name.bytes.data(), qsizetype(name.length)}), data.cut(), data.type);
}

void clsKey::Value(const QString &name, const QVariant &Data, quint32 DataType)
{
    requireOpen(Handle());
    const bool isBytes = Data.typeId() == QMetaType::QByteArray;
    const QByteArray bytes = isBytes ? Data.toByteArray() : m_registry->toCodePage(Data.toString());
    (void)m_registry->RegSetValueExA(Handle(), m_registry->toCodePage(name), DataType, bytes);
}

void clsKey::Value(qint32, const QVariant &, quint32)
{
    // Writing is by name only; callers have come to rely on a position being harmless.
    requireOpen(Handle());
}

void clsKey::readInformation()
{
    std::array<char, bufferSize + 1> className{};
    quint32 classLength = className.size();
    RegistryKeyInfo info;
    if (m_registry->RegQueryInfoKeyA(Handle(), className.data(), &classLength, &info) != Registry::Result::Success)
        return;
    ClassName = m_registry->fromCodePage({className.data(), qsizetype(classLength)});
    ClassLength = classLength;
    MaxSubKeyLength = info.longestSubKeyName;
    MaxSubKeyClassLength = info.longestClassName;
    MaxValueNameLength = info.longestValueName;
    MaxValueLength = info.longestData;
    SecurityDescLength = info.securityDescriptorSize;
    ValuesCount = info.values;
}

void clsKey::requireOpen(Registry::Handle handle) const
{
    if (handle == 0)
        throw notOpen();
}

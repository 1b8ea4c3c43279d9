#pragma once

#include "platform/Registry.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>

#include <iosfwd>

/// Failures name a result by its number.
void PrintTo(Registry::Result result, std::ostream *stream);

/// What tests do with a registry, in few words. An operation that is expected to succeed and does not fails the test.
class RegistryUser final
{
public:
    using Handle = Registry::Handle;
    using Result = Registry::Result;

    explicit RegistryUser(Registry &registry)
        : m_registry(registry)
    {
    }

    [[nodiscard]] Handle made(Handle parent, const QByteArray &subKey, quint32 access = Registry::AllAccess) const;
    [[nodiscard]] Handle opened(Handle parent, const QByteArray &subKey, quint32 access = Registry::AllAccess) const;
    void make(Handle parent, const QByteArray &subKey) const { close(made(parent, subKey)); }
    void close(Handle key) const;

    /// What opening gives; a key that could be opened is closed again.
    [[nodiscard]] Result openResult(Handle parent, const QByteArray &subKey,
                                    quint32 access = Registry::AllAccess) const;
    [[nodiscard]] Result createResult(Handle parent, const QByteArray &subKey) const;

    /// @param type bytes, unless another one is given
    void set(Handle key, const QByteArray &name, QByteArrayView data, quint32 type = 3) const;
    /// The data of a value, or "<none>" and the result's number.
    [[nodiscard]] QByteArray get(Handle key, const QByteArray &name) const;

    /// In the registry's order.
    [[nodiscard]] QByteArrayList subKeys(Handle key) const;
    /// Sorted: the order of values is nobody's.
    [[nodiscard]] QByteArrayList valueNames(Handle key) const;
    [[nodiscard]] RegistryKeyInfo info(Handle key) const;

    /// Results of enumerating at the first position.
    [[nodiscard]] Result enumerateKeyResult(Handle key) const;
    [[nodiscard]] Result enumerateValueResult(Handle key) const;

    void removeTree(Handle parent, const QByteArray &subKey) const;

private:
    Registry &m_registry;
};

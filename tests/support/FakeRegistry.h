#pragma once

#include "platform/Registry.h"

#include <QByteArrayList>
#include <QHash>
#include <QList>
#include <QSet>

#include <map>
#include <optional>

/// A registry in memory: every hive is a tree of its own. Keys are named by whole paths, "HKEY_CURRENT_USER\\a", or
/// "\\\\host\\HKEY_LOCAL_MACHINE\\a" for those of another machine. Its code page is ISO 8859-1. A handle that is left
/// open, or closed twice, fails the test.
class FakeRegistry final : public Registry
{
public:
    FakeRegistry();
    ~FakeRegistry() override;

    /// How many handles are open.
    [[nodiscard]] qsizetype openHandles() const { return m_open.size(); }
    /// The paths that were opened or made, and not closed, in any order.
    [[nodiscard]] QByteArrayList openPaths() const { return m_open.values(); }

    void make(const QByteArray &path);
    [[nodiscard]] bool hasKey(const QByteArray &path) const;
    void set(const QByteArray &path, const QByteArray &name, const QByteArray &data, quint32 type = 1);
    [[nodiscard]] std::optional<QByteArray> data(const QByteArray &path, const QByteArray &name) const;
    [[nodiscard]] quint32 type(const QByteArray &path, const QByteArray &name) const;
    void remove(const QByteArray &path) { m_keys.erase(folded(path)); }
    [[nodiscard]] QByteArrayList paths() const;

    /// Paths that may not be opened, and below which nothing may be made: AccessDenied. Their hives can be opened.
    QByteArrayList denied;
    /// Keys can only be opened in order to read them: AccessDenied for anything else.
    bool isReadOnly = false;
    /// Values can be stored nowhere: DiskFull.
    bool isFull = false;
    /// As if nothing had ever been stored.
    bool isThere = true;
    /// Machines that can be reached, beside this one.
    QByteArrayList hosts;
    /// Each call with its path, in order: "RegOpenKeyExA HKEY_CURRENT_USER\\a".
    QByteArrayList calls;

    [[nodiscard]] bool hasStore() const override { return isThere; }

    [[nodiscard]] QByteArray toCodePage(QStringView text) const override { return text.toLatin1(); }
    [[nodiscard]] QString fromCodePage(QByteArrayView bytes) const override { return QString::fromLatin1(bytes); }

    Result RegConnectRegistryA(const QByteArray &machineName, Handle hive, Handle *result) override;
    Result RegOpenKeyExA(Handle key, const QByteArray &subKey, quint32 options, quint32 access,
                         Handle *result) override;
    Result RegCreateKeyExA(Handle key, const QByteArray &subKey, const QByteArray &className, quint32 options,
                           quint32 access, Handle *result, quint32 *disposition) override;
    Result RegCloseKey(Handle key) override;
    Result RegDeleteKeyA(Handle key, const QByteArray &subKey) override;
    Result RegDeleteValueA(Handle key, const QByteArray &name) override;
    Result RegEnumKeyExA(Handle key, quint32 index, char *name, quint32 *nameLength, char *className,
                         quint32 *classLength, quint64 *lastWrite) override;
    Result RegEnumValueA(Handle key, quint32 index, char *name, quint32 *nameLength, quint32 *type, uchar *data,
                         quint32 *dataLength) override;
    Result RegQueryInfoKeyA(Handle key, char *className, quint32 *classLength, RegistryKeyInfo *info) override;
    Result RegQueryValueExA(Handle key, const QByteArray &name, quint32 *type, uchar *data,
                            quint32 *dataLength) override;
    Result RegSetValueExA(Handle key, const QByteArray &name, quint32 type, QByteArrayView data) override;

private:
    struct StoredValue
    {
        QByteArray name;
        quint32 type;
        QByteArray data;
    };
    struct StoredKey
    {
        QByteArray path;
        QByteArray className;
        QList<StoredValue> values;
    };

    [[nodiscard]] static QByteArray folded(const QByteArray &text) { return text.toLower(); }
    [[nodiscard]] QByteArray pathOf(Handle key) const;
    [[nodiscard]] QByteArray pathBelow(Handle key, const QByteArray &subKey) const;
    [[nodiscard]] bool isDenied(const QByteArray &path) const;
    [[nodiscard]] StoredKey *keyAt(const QByteArray &path);
    [[nodiscard]] StoredKey *keyOf(Handle key, const char *call);
    [[nodiscard]] QByteArrayList childrenOf(const QByteArray &path) const;
    [[nodiscard]] Handle newHandle(const QByteArray &path);

    std::map<QByteArray, StoredKey> m_keys;
    QHash<Handle, QByteArray> m_open;
    Handle m_lastHandle = 0;
};

#pragma once

#include "platform/Registry.h"

/// The registry of Windows: its narrow functions themselves. Their code page is the process's active one, which the
/// program's manifest sets to UTF-8.
class WindowsRegistry final : public Registry
{
public:
    [[nodiscard]] QByteArray toCodePage(QStringView text) const override;
    [[nodiscard]] QString fromCodePage(QByteArrayView bytes) const override;

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
};

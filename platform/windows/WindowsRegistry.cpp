#include "platform/windows/WindowsRegistry.h"

#include <qt_windows.h>

namespace {

static_assert(sizeof(DWORD) == sizeof(quint32) && sizeof(HKEY) == sizeof(Registry::Handle));

Registry::Result resultOf(LSTATUS status)
{
    return static_cast<Registry::Result>(status);
}

/// The system's predefined handles are the hives' numbers with their sign carried on to the width of a pointer.
HKEY systemKey(Registry::Handle key)
{
    const bool isHive = key >= Registry::ClassesRoot && key <= Registry::DynData;
    const auto number = isHive ? static_cast<LONG_PTR>(static_cast<LONG>(key)) : static_cast<LONG_PTR>(key);
    return reinterpret_cast<HKEY>(number);
}

Registry::Handle handleOf(HKEY key)
{
    const auto number = reinterpret_cast<Registry::Handle>(key);
    const auto low = static_cast<quint32>(number);
    const bool isHive = reinterpret_cast<LONG_PTR>(key) == static_cast<LONG>(low) && low >= Registry::ClassesRoot &&
                        low <= Registry::DynData;
    return isHive ? low : number;
}

/// Null for a null text, which some functions tell from an empty one.
const char *textOrNull(const QByteArray &text)
{
    return text.isNull() ? nullptr : text.constData();
}

DWORD *systemNumber(quint32 *number)
{
    return reinterpret_cast<DWORD *>(number);
}

quint64 timeOf(const FILETIME &time)
{
    return quint64(time.dwHighDateTime) << 32U | time.dwLowDateTime;
}

} // namespace

QByteArray WindowsRegistry::toCodePage(QStringView text) const
{
    const auto *wide = reinterpret_cast<const wchar_t *>(text.utf16());
    const auto length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr);
    QByteArray bytes(size, '\0');
    WideCharToMultiByte(CP_ACP, 0, wide, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

QString WindowsRegistry::fromCodePage(QByteArrayView bytes) const
{
    const auto size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    QString text(length, QChar(u'\0'));
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, reinterpret_cast<wchar_t *>(text.data()), length);
    return text;
}

Registry::Result WindowsRegistry::RegConnectRegistryA(const QByteArray &machineName, Handle hive, Handle *result)
{
    // The manual wants the two backslashes; users and their files name hosts without them.
    const bool isBare = !machineName.isEmpty() && !machineName.startsWith("\\\\");
    const QByteArray name = isBare ? "\\\\" + machineName : machineName;
    HKEY connected = nullptr;
    const LSTATUS status =
        ::RegConnectRegistryA(name.isEmpty() ? nullptr : name.constData(), systemKey(hive), &connected);
    *result = status == ERROR_SUCCESS ? handleOf(connected) : 0;
    return resultOf(status);
}

Registry::Result WindowsRegistry::RegOpenKeyExA(Handle key, const QByteArray &subKey, quint32 options, quint32 access,
                                                Handle *result)
{
    HKEY opened = nullptr;
    const LSTATUS status = ::RegOpenKeyExA(systemKey(key), textOrNull(subKey), options, access, &opened);
    *result = status == ERROR_SUCCESS ? handleOf(opened) : 0;
    return resultOf(status);
}

Registry::Result WindowsRegistry::RegCreateKeyExA(Handle key, const QByteArray &subKey, const QByteArray &className,
                                                  quint32 options, quint32 access, Handle *result, quint32 *disposition)
{
    HKEY opened = nullptr;
    // The function takes a class name that it does not change through a pointer that says it may.
    QByteArray ownClassName = className;
    const LSTATUS status = ::RegCreateKeyExA(systemKey(key), textOrNull(subKey), 0, ownClassName.data(), options,
                                             access, nullptr, &opened, systemNumber(disposition));
    *result = status == ERROR_SUCCESS ? handleOf(opened) : 0;
    return resultOf(status);
}

Registry::Result WindowsRegistry::RegCloseKey(Handle key)
{
    return resultOf(::RegCloseKey(systemKey(key)));
}

Registry::Result WindowsRegistry::RegDeleteKeyA(Handle key, const QByteArray &subKey)
{
    return resultOf(::RegDeleteKeyA(systemKey(key), textOrNull(subKey)));
}

Registry::Result WindowsRegistry::RegDeleteValueA(Handle key, const QByteArray &name)
{
    return resultOf(::RegDeleteValueA(systemKey(key), textOrNull(name)));
}

Registry::Result WindowsRegistry::RegEnumKeyExA(Handle key, quint32 index, char *name, quint32 *nameLength,
                                                char *className, quint32 *classLength, quint64 *lastWrite)
{
    FILETIME time = {};
    const LSTATUS status = ::RegEnumKeyExA(systemKey(key), index, name, systemNumber(nameLength), nullptr, className,
                                           systemNumber(classLength), &time);
    if (lastWrite != nullptr)
        *lastWrite = timeOf(time);
    return resultOf(status);
}

Registry::Result WindowsRegistry::RegEnumValueA(Handle key, quint32 index, char *name, quint32 *nameLength,
                                                quint32 *type, uchar *data, quint32 *dataLength)
{
    return resultOf(::RegEnumValueA(systemKey(key), index, name, systemNumber(nameLength), nullptr, systemNumber(type),
                                    data, systemNumber(dataLength)));
}

Registry::Result WindowsRegistry::RegQueryInfoKeyA(Handle key, char *className, quint32 *classLength,
                                                   RegistryKeyInfo *info)
{
    FILETIME time = {};
    const LSTATUS status = ::RegQueryInfoKeyA(
        systemKey(key), className, className == nullptr ? nullptr : systemNumber(classLength), nullptr,
        systemNumber(&info->subKeys), systemNumber(&info->longestSubKeyName), systemNumber(&info->longestClassName),
        systemNumber(&info->values), systemNumber(&info->longestValueName), systemNumber(&info->longestData),
        systemNumber(&info->securityDescriptorSize), &time);
    info->lastWrite = timeOf(time);
    return resultOf(status);
}

Registry::Result WindowsRegistry::RegQueryValueExA(Handle key, const QByteArray &name, quint32 *type, uchar *data,
                                                   quint32 *dataLength)
{
    return resultOf(::RegQueryValueExA(systemKey(key), textOrNull(name), nullptr, systemNumber(type), data,
                                       systemNumber(dataLength)));
}

Registry::Result WindowsRegistry::RegSetValueExA(Handle key, const QByteArray &name, quint32 type, QByteArrayView data)
{
    // For a text without an end mark the system looks at the byte behind it, and takes a zero for the mark. So that
    // the stored size is the size given, that byte is not zero here.
    const QByteArray guarded = data.toByteArray() + '\x01';
    return resultOf(::RegSetValueExA(systemKey(key), textOrNull(name), 0, type,
                                     reinterpret_cast<const BYTE *>(guarded.constData()),
                                     static_cast<DWORD>(data.size())));
}

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// What RegQueryInfoKeyA() tells of a key. Lengths of names are characters without an end mark.
struct RegistryKeyInfo
{
    quint32 subKeys = 0;
    quint32 longestSubKeyName = 0;
    quint32 longestClassName = 0;
    quint32 values = 0;
    quint32 longestValueName = 0;
    /// In bytes, as the system keeps the data.
    quint32 longestData = 0;
    quint32 securityDescriptorSize = 0;
    /// When the key was last changed: steps of 100 nanoseconds since the begin of 1601 (UTC).
    quint64 lastWrite = 0;
};

/// The registry: a tree of keys below predefined ones, the hives, with named values of bytes. The operations are the
/// narrow (8-bit) functions of the Windows interface, with their names, their buffers and their results; their manual
/// is the one of that interface ("Registry Functions"). Implementations behave alike as far as
/// tests/platform/RegistryConformanceTest.cpp goes.
///
/// Names are 8-bit texts in the code page that toCodePage() and fromCodePage() know; they end at their first zero byte.
/// They are compared without regard to case and kept as they are written. A sub-key may be given as a path with "\".
/// Where the code page has characters of several bytes (UTF-8 on Windows), so have names, and so have the data of text
/// values: whoever stores a text puts it through toCodePage(), whoever reads one puts it through fromCodePage().
class Registry
{
public:
    /// A key that is open, or a hive. As wide as a pointer, which it is on Windows. Never 0 for an open key.
    using Handle = quintptr;

    // clang-format off
    static constexpr Handle ClassesRoot     = 0x80000000;
    static constexpr Handle CurrentUser     = 0x80000001;
    static constexpr Handle LocalMachine    = 0x80000002;
    static constexpr Handle Users           = 0x80000003;
    static constexpr Handle PerformanceData = 0x80000004;
    static constexpr Handle CurrentConfig   = 0x80000005;
    static constexpr Handle DynData         = 0x80000006;

    /// What may be done through a handle: "Registry Key Security and Access Rights" and "Access Mask" of the manual.
    static constexpr quint32 QueryValue       = 0x0001;
    static constexpr quint32 SetValue         = 0x0002;
    static constexpr quint32 CreateSubKey     = 0x0004;
    static constexpr quint32 EnumerateSubKeys = 0x0008;
    static constexpr quint32 Notify           = 0x0010;
    static constexpr quint32 CreateLink       = 0x0020;
    static constexpr quint32 Delete           = 0x10000;
    static constexpr quint32 ReadAccess       = 0x20019;
    static constexpr quint32 WriteAccess      = 0x20006;
    static constexpr quint32 AllAccess        = 0xF003F;
    static constexpr quint32 MaximumAllowed   = 0x02000000;
    static constexpr quint32 GenericAll       = 0x10000000;
    static constexpr quint32 GenericExecute   = 0x20000000;
    static constexpr quint32 GenericWrite     = 0x40000000;
    static constexpr quint32 GenericRead      = 0x80000000;

    /// RegCreateKeyExA(): whether the key was made or was there.
    static constexpr quint32 CreatedNewKey     = 1;
    static constexpr quint32 OpenedExistingKey = 2;

    /// The results that this program knows of, by their numbers ("System Error Codes" of the manual). There are others.
    enum class [[nodiscard]] Result : qint32 {
        Success             = 0,
        FileNotFound        = 2,
        AccessDenied        = 5,
        InvalidHandle       = 6,
        NotEnoughMemory     = 8,
        BadNetPath          = 53,
        InvalidParameter    = 87,
        DiskFull            = 112,
        CallNotImplemented  = 120,
        BadPathName         = 161,
        Busy                = 170,
        MoreData            = 234,
        NoMoreItems         = 259,
        BadDatabase         = 1009,
        CannotOpen          = 1011,
        RegistryCorrupt     = 1015,
        RegistryIoFailed    = 1016,
        KeyDeleted          = 1018,
        NoSystemResources   = 1450,
    };
    // clang-format on

    /// Which functions the program means to use: see PlatformProbe() in settings/Utilities.h.
    enum class CharacterWidth { Narrow, Wide };

    Registry() = default;
    Registry(const Registry &) = delete;
    Registry &operator=(const Registry &) = delete;
    virtual ~Registry() = default;

    /// False while nothing has ever been stored in a registry that is this program's own. It still can be asked for
    /// anything, which makes the store.
    [[nodiscard]] virtual bool hasStore() const { return true; }

    [[nodiscard]] CharacterWidth characterWidth() const { return m_characterWidth; }
    void setCharacterWidth(CharacterWidth width) { m_characterWidth = width; }

    /// text in the code page. A character that it does not have becomes "?", or one that looks like it.
    [[nodiscard]] virtual QByteArray toCodePage(QStringView text) const = 0;
    [[nodiscard]] virtual QString fromCodePage(QByteArrayView bytes) const = 0;

    /// A hive of another machine. @param machineName with or without "\\" before it; empty for this machine
    /// @param result 0 when it fails
    virtual Result RegConnectRegistryA(const QByteArray &machineName, Handle hive, Handle *result) = 0;

    /// @param subKey empty for the key itself: a hive then is its own result, any other key gets one more handle
    /// @param options 0
    /// @param result 0 when it fails
    virtual Result RegOpenKeyExA(Handle key, const QByteArray &subKey, quint32 options, quint32 access,
                                 Handle *result) = 0;

    /// Opens the key, after making what is missing of it and of the keys on the way.
    /// @param className kept with a key that is made
    /// @param options 0, for a key that stays
    /// @param result 0 when it fails
    /// @param disposition CreatedNewKey or OpenedExistingKey; may be null
    virtual Result RegCreateKeyExA(Handle key, const QByteArray &subKey, const QByteArray &className, quint32 options,
                                   quint32 access, Handle *result, quint32 *disposition) = 0;

    virtual Result RegCloseKey(Handle key) = 0;

    /// Deletes a key with its values. A key that has sub-keys is not deleted: AccessDenied.
    virtual Result RegDeleteKeyA(Handle key, const QByteArray &subKey) = 0;

    virtual Result RegDeleteValueA(Handle key, const QByteArray &name) = 0;

    /// The sub-key at a position. @param nameLength in: the size of name, with room for an end mark; out: the length
    /// of the name without it. With MoreData neither is written. className, classLength and lastWrite may be null.
    virtual Result RegEnumKeyExA(Handle key, quint32 index, char *name, quint32 *nameLength, char *className,
                                 quint32 *classLength, quint64 *lastWrite) = 0;

    /// The value at a position. name and nameLength as RegEnumKeyExA(); type, data and dataLength as
    /// RegQueryValueExA().
    virtual Result RegEnumValueA(Handle key, quint32 index, char *name, quint32 *nameLength, quint32 *type, uchar *data,
                                 quint32 *dataLength) = 0;

    /// @param className may be null; then classLength has no meaning
    virtual Result RegQueryInfoKeyA(Handle key, char *className, quint32 *classLength, RegistryKeyInfo *info) = 0;

    /// @param name empty for the key's default value
    /// @param data null to ask for type and size alone
    /// @param dataLength in: the size of data; out: the value's size, also with MoreData, which leaves what data holds
    ///        undefined
    virtual Result RegQueryValueExA(Handle key, const QByteArray &name, quint32 *type, uchar *data,
                                    quint32 *dataLength) = 0;

    /// Stores data.size() bytes and no end mark of its own. When it has returned Success, the value stays even if the
    /// program ends at once.
    virtual Result RegSetValueExA(Handle key, const QByteArray &name, quint32 type, QByteArrayView data) = 0;

private:
    CharacterWidth m_characterWidth = CharacterWidth::Narrow;
};

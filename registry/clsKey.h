#pragma once

#include "platform/Registry.h"
#include "registry/clsValue.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

/// A key of the registry, open or not, on this machine or another one. Paths are texts with "\" between their
/// components, the first of which is a hive's full name. Most failures show only as an empty result: the comments tell
/// which are raised.
///
/// A key that is still open is closed when it goes, and when it is opened anew. One that was made by SubKey() or
/// SubKeys() keeps its parent's handle open as long as it lives, unless CloseKey() closes that.
class clsKey final
{
public:
    /// The most bytes of a value that are read: names and data go through buffers of this size, whatever the registry
    /// could hold.
    static constexpr quint32 bufferSize = 255;

    explicit clsKey(Registry &registry, const QString &name = {});

    /// Closes the key. Handle() stays what it was.
    void CloseKey();

    /// @throws RuntimeError RegistryError when the key is not open
    void DeleteValue(const QString &name);

    /// Deletes a key below OverrideHandle, or below this key when that is 0.
    /// @throws RuntimeError RegistryError when both are 0
    void DeleteSubKey(const QString &SubKey, Registry::Handle OverrideHandle = 0);

    /// Makes the key below this one, with those on the way, unless it is there.
    /// @throws RuntimeError RegistryError when that fails
    void AddSubKey(const QString &SubKey);

    /// 0 until the key is opened, and after it could not be opened.
    [[nodiscard]] Registry::Handle Handle() const;

    /// The name relative to the parent.
    [[nodiscard]] const QString &Name() const { return m_name; }

    /// Whether the last attempt to open the key succeeded.
    [[nodiscard]] bool KeyOK() const { return m_isOK; }

    /// The hive of that full name, exactly as it is written; 0 for any other text.
    [[nodiscard]] static Registry::Handle HiveRoot2Num(const QString &name);

    /// Opens the key of a whole path, component by component. A first component that is no hive's name is not used:
    /// the others are looked for below ParentHive, on this machine.
    /// @param host the machine; empty for this one
    /// @param Mode the rights that the first component is opened with; the others are opened with all
    void OpenFull(const QString &KeyStr, const QString &host, Registry::Handle ParentHive, quint32 Mode);

    /// Opens the key of this object's name below OverrideParent, else below the parent. With a host it connects to the
    /// hive there instead. No more than 1024 bytes of the name count.
    void OpenKey(quint32 Mode, std::optional<Registry::Handle> OverrideParent = {}, const QString &host = {});

    /// A new object for a key below this one, which is not opened.
    [[nodiscard]] clsKey SubKey(const QString &name) const;

    /// The keys below OverrideHandle, or below this key when that is 0: as objects that are not opened, in the
    /// registry's order. What has been found once is given from then on, whatever becomes of the keys.
    /// @throws RuntimeError RegistryError when both are 0
    [[nodiscard]] std::vector<clsKey> &SubKeys(Registry::Handle OverrideHandle = 0);

    /// Reads a value: the default value, the one of a name, or the one at a position from 0. Nothing for one that is
    /// not there, cannot be read, or has more than bufferSize bytes or, at its position, a longer name.
    /// @throws RuntimeError RegistryError when the key is not open
    [[nodiscard]] std::optional<clsValue> Value() const;
    [[nodiscard]] std::optional<clsValue> Value(const QString &name) const;
    [[nodiscard]] std::optional<clsValue> Value(qint32 position) const;

    /// Stores Data as text, which a number and a byte array are turned into, with no zero at its end. A position
    /// instead of a name stores nothing.
    /// @throws RuntimeError RegistryError when the key is not open
    void Value(const QString &name, const QVariant &Data, quint32 DataType = 1);
    void Value(qint32 position, const QVariant &Data, quint32 DataType = 1);

    /// What the system told when the key was opened last. Lengths of names are without an end mark, other lengths are
    /// bytes.
    QString ClassName;
    quint32 ClassLength = 0;
    quint32 MaxSubKeyLength = 0;
    quint32 MaxSubKeyClassLength = 0;
    quint32 MaxValueNameLength = 0;
    quint32 MaxValueLength = 0;
    quint32 SecurityDescLength = 0;
    quint32 ValuesCount = 0;

private:
    class OpenHandle;

    void readInformation();
    void requireOpen(Registry::Handle handle) const;

    Registry *m_registry;
    QString m_name;
    std::shared_ptr<OpenHandle> m_handle;
    std::shared_ptr<OpenHandle> m_parent;
    std::vector<clsKey> m_subKeys;
    bool m_isOK = false;
};

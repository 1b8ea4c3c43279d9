#pragma once

#include "registry/clsKey.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

/// Default values that are written below HKEY_CLASSES_ROOT together: unless keep() is called, the keys become what
/// they were when the object goes.
class ClassesChange final
{
public:
    explicit ClassesChange(Registry &registry);
    ClassesChange(const ClassesChange &) = delete;
    ClassesChange &operator=(const ClassesChange &) = delete;
    ~ClassesChange();

    /// Makes the key where it is missing, and text its default value.
    /// @param path below HKEY_CLASSES_ROOT
    /// @throws RuntimeError RegistryError when the key can be neither made nor opened
    void write(const QString &path, const QString &text);

    void keep() { m_undo.clear(); }

    /// The default value of a key below HKEY_CLASSES_ROOT; nothing where there is none or it cannot be read.
    [[nodiscard]] static std::optional<QByteArray> defaultValue(Registry &registry, const QString &path);

private:
    void rememberMissing(const QString &path);

    Registry &m_registry;
    clsKey m_root;
    std::vector<std::function<void()>> m_undo;
};

#pragma once

#include <QString>

/// A file's path in two forms: the one that the user knows, and the one for the Windows interface, which begins with
/// "\\?\" and so may be longer than 260 characters whatever the machine's settings.
class WindowsPath final
{
public:
    /// @param path relative to the current folder, or absolute; "/" counts as "\"
    explicit WindowsPath(const QString &path);
    /// @param native a path that the Windows interface gave
    WindowsPath(const QString &shown, const QString &native);

    [[nodiscard]] const QString &shown() const { return m_shown; }
    /// Empty where the text cannot be a path.
    [[nodiscard]] const QString &native() const { return m_native; }

    /// The native path of another file in the same folder.
    [[nodiscard]] QString sibling(const QString &name) const;

    /// Where the old file is for the moment that a new one needs to take its place.
    [[nodiscard]] QString backup() const;

private:
    QString m_shown;
    QString m_native;
};

/// The "\\?\" form of a full path with backslashes: drive paths and shares. Anything else, such as a device or a path
/// that has this form, stays. Source: "Naming Files, Paths, and Namespaces" of the Windows documentation.
[[nodiscard]] QString extendedPath(const QString &fullPath);

/// What extendedPath() was given: the form that a user can read and type.
[[nodiscard]] QString readablePath(const QString &extendedPath);

#pragma once

#include <QString>

#include <optional>

/// The font of a document's list, as far as somebody has chosen one; the rest is the desktop's own font.
struct ListFont
{
    std::optional<QString> family;
    /// In points.
    std::optional<qint16> size;
};

/// The default editor that edits every item as a line of text. 0, or any other number, is each item's own editor.
inline constexpr qint16 editAsLine = 1;

/// The settings that documents ask for. They are read anew each time.
class DocumentPreferences
{
public:
    DocumentPreferences() = default;
    DocumentPreferences(const DocumentPreferences &) = delete;
    DocumentPreferences &operator=(const DocumentPreferences &) = delete;
    virtual ~DocumentPreferences() = default;

    /// The default editor: editAsLine, or any other number.
    /// @throws RuntimeError TypeMismatch when what is stored is no number
    [[nodiscard]] virtual qint16 Edit() const = 0;

    /// Non-zero: a document of a remote host starts with RemoteConnectFlag checked. @throws RuntimeError as Edit() does
    [[nodiscard]] virtual qint16 remote() const = 0;

    /// What new documents' lists are shown in. @throws RuntimeError as Edit() does
    [[nodiscard]] virtual ListFont listFont() const = 0;

    /// @param size in points
    /// @throws RuntimeError RegistryError without rights to the settings, DeviceError when the registry has not kept it
    ///         as it is
    virtual void storeListFont(const QString &family, qint16 size) = 0;
};

#pragma once

#include <QtGlobal>

/// The settings that documents ask for. They are read anew each time.
class DocumentPreferences
{
public:
    DocumentPreferences() = default;
    DocumentPreferences(const DocumentPreferences &) = delete;
    DocumentPreferences &operator=(const DocumentPreferences &) = delete;
    virtual ~DocumentPreferences() = default;

    /// The default editor: 1 edits every item as a line of text, anything else each item in the editor for its kind.
    /// @throws RuntimeError TypeMismatch when what is stored is no number
    [[nodiscard]] virtual qint16 Edit() const = 0;

    /// Non-zero: a document of a remote host starts with RemoteConnectFlag checked. @throws RuntimeError as Edit() does
    [[nodiscard]] virtual qint16 remote() const = 0;
};

#pragma once

#include <QString>

/// Rows on the clipboard, as plain text for everybody. Where a row holds bytes that are not UTF-8, other programs get
/// what is shown of them, and a document that the rows are pasted into gets the bytes.
class RowClipboard final
{
public:
    /// @param text rows, joined with CR LF
    static void put(const QString &text);

    /// The clipboard's text; empty when it holds none.
    [[nodiscard]] static QString text();
};

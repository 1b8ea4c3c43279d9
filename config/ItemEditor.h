#pragma once

#include <QString>

class ItemDocument;

/// What a document asks of an item editor. The document sets the properties, calls SetDefaultItem() for a new item or,
/// once the editor is shown, SetItem() for a row; the editor calls the document back when the user confirms.
class ItemEditor
{
public:
    ItemEditor() = default;
    ItemEditor(const ItemEditor &) = delete;
    ItemEditor &operator=(const ItemEditor &) = delete;
    virtual ~ItemEditor() = default;

    /// Where the editor sends its result.
    virtual void setWindowToAffect(ItemDocument &document) = 0;
    /// The remote host, empty for local, and whether it is to be connected to.
    virtual void setHost(const QString &host) = 0;
    virtual void setRemoteFlag(bool isRemote) = 0;
    /// True for a new item, false for the edit of a row.
    virtual void setWindowAddFlag(bool isNew) = 0;
    /// The row being edited, handed back with the result.
    virtual void setWindowAddItem(qint16 row) = 0;
    /// The caption of OKButton.
    virtual void setOKButtonCaption(const QString &caption) = 0;

    /// Fills the editor with the defaults of a new item.
    virtual void SetDefaultItem() = 0;

    /// Fills the editor from a line. @throws RuntimeError as ItemDocument::ParseLine() does
    virtual void SetItem(const QString &line) = 0;

    /// Shows the editor in front, without blocking the document.
    virtual void Show() = 0;
};

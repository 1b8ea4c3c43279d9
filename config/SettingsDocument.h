#pragma once

#include <QString>

#include <functional>

class RowChanges;
class RowList;

/// What the editor of the global settings sees of a document: its rows as a whole, since a setting may stand anywhere.
class SettingsDocument
{
public:
    SettingsDocument() = default;
    SettingsDocument(const SettingsDocument &) = delete;
    SettingsDocument &operator=(const SettingsDocument &) = delete;
    virtual ~SettingsDocument() = default;

    [[nodiscard]] virtual const RowList &rowList() const = 0;

    /// Changes rows as one undo step, and marks the document changed. What the command throws goes on to the caller.
    virtual void changeRows(const std::function<void(RowChanges &)> &command) = 0;

    /// The text of the current row; empty when no row is current.
    [[nodiscard]] virtual QString currentRowText() const = 0;
};

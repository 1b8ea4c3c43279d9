#pragma once

#include "config/ItemKind.h"

class ItemDocument;
class ItemEditor;

/// Gives documents their item editors. An editor is a window of its own; it is gone when the user has closed it.
class EditorFactory
{
public:
    EditorFactory() = default;
    EditorFactory(const EditorFactory &) = delete;
    EditorFactory &operator=(const EditorFactory &) = delete;
    virtual ~EditorFactory() = default;

    /// Whether there is an editor for that kind.
    [[nodiscard]] virtual bool hasEditor(ItemKind kind) const = 0;

    /// A new editor, for a new item.
    [[nodiscard]] virtual ItemEditor &newEditor(ItemKind kind) = 0;

    /// The kind's one editor for edits, the same for all documents. Closing it unloads its form: the next call gives
    /// one in its initial state.
    [[nodiscard]] virtual ItemEditor &sharedEditor(ItemKind kind) = 0;

    /// Closes every editor that would send its result to that document.
    virtual void closeEditorsOf(const ItemDocument &document) = 0;
};

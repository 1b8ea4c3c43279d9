#pragma once

#include "config/EditorFactory.h"
#include "editors/EditorServices.h"

#include <QPointer>
#include <QWidget>

#include <map>
#include <vector>

class ItemEditorForm;

/// Makes the item editors and knows which of them are open. An editor belongs to the parent window and is gone with it.
class ItemEditors final : public EditorFactory
{
public:
    /// @param services to outlive the editors
    explicit ItemEditors(const EditorServices &services);
    ~ItemEditors() override;

    /// The window that editors stay in front of. @param window the main window, which has to be there only once the
    ///     first editor is asked for
    void setParentWindow(QWidget *window) { m_parentWindow = window; }

    [[nodiscard]] bool hasEditor(ItemKind kind) const override;
    /// @param kind one that has an editor
    [[nodiscard]] ItemEditor &newEditor(ItemKind kind) override;
    [[nodiscard]] ItemEditor &sharedEditor(ItemKind kind) override;
    void closeEditorsOf(const ItemDocument &document) override;

private:
    ItemEditorForm &makeEditor(ItemKind kind);
    void forget(const ItemEditorForm &editor);

    EditorServices m_services;
    QPointer<QWidget> m_parentWindow;
    std::vector<QPointer<ItemEditorForm>> m_editors;
    std::map<ItemKind, QPointer<ItemEditorForm>> m_shared;
};

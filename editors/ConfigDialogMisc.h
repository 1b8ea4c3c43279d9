#pragma once

#include "editors/ItemEditorForm.h"

struct EditorServices;

/// The editor for a whole line as one text, which is stored as it is typed.
class ConfigDialogMisc final : public ItemEditorForm
{
    Q_OBJECT

public:
    ConfigDialogMisc(const EditorServices &services, QWidget *parent);

protected:
    void showItem(const QString &line) override;
    [[nodiscard]] std::optional<Item> collectItem() override;

private:
    LineEdit *m_item;
};

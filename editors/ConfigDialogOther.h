#pragma once

#include "editors/ItemEditorForm.h"

struct EditorServices;

/// The editor for a line of any kind as three texts: object, prefix and flags.
class ConfigDialogOther final : public ItemEditorForm
{
    Q_OBJECT

public:
    ConfigDialogOther(const EditorServices &services, QWidget *parent);

protected:
    void showItem(const QString &line) override;
    [[nodiscard]] std::optional<Item> collectItem() override;

private:
    void chooseFlags();

    LineEdit *m_objectName;
    LineEdit *m_prefix;
    LineEdit *m_objectFlags;
};

#pragma once

#include "editors/FlagEditorForm.h"

class Registry;
struct EditorServices;

/// The editor for keys of the registry. A new item starts empty.
class ConfigDialogReg final : public FlagEditorForm
{
    Q_OBJECT

public:
    ConfigDialogReg(const EditorServices &services, QWidget *parent);

protected:
    [[nodiscard]] QString object() const override;

private:
    void chooseKey();

    Registry &m_registry;
    LineEdit *m_objectName;
};

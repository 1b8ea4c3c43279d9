#pragma once

#include "editors/EditorServices.h"
#include "editors/FlagEditorForm.h"

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

    EditorServices m_services;
    LineEdit *m_objectName;
};

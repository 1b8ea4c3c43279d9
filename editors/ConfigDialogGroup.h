#pragma once

#include "editors/AccountEditorForm.h"

/// The editor for a line that names a group, or all groups whose names match.
class ConfigDialogGroup final : public AccountEditorForm
{
    Q_OBJECT

public:
    ConfigDialogGroup(const EditorServices &services, QWidget *parent);

private:
    static const Kind kind;
};

#pragma once

#include "editors/AccountEditorForm.h"

/// The editor for a line that names a user, or all users whose names match.
class ConfigDialogUser final : public AccountEditorForm
{
    Q_OBJECT

public:
    ConfigDialogUser(const EditorServices &services, QWidget *parent);

private:
    static const Kind kind;
};

#pragma once

#include "editors/PolicyEditorForm.h"

struct EditorServices;

/// The editor for the line of the account policy.
class ConfigDialogPolicy final : public PolicyEditorForm
{
    Q_OBJECT

public:
    ConfigDialogPolicy(const EditorServices &services, QWidget *parent);
};

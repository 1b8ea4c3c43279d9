#pragma once

#include "editors/PolicyEditorForm.h"

struct EditorServices;

/// The editor for the line of the audit policy.
class ConfigDialogAudit final : public PolicyEditorForm
{
    Q_OBJECT

public:
    ConfigDialogAudit(const EditorServices &services, QWidget *parent);
};

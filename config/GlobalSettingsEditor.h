#pragma once

class ConfigForm;

/// Edits the global settings of a document, its "#define" lines, in one form.
class GlobalSettingsEditor
{
public:
    GlobalSettingsEditor() = default;
    GlobalSettingsEditor(const GlobalSettingsEditor &) = delete;
    GlobalSettingsEditor &operator=(const GlobalSettingsEditor &) = delete;
    virtual ~GlobalSettingsEditor() = default;

    /// Shows the settings of that document.
    virtual void RunConfWizard(ConfigForm &document) = 0;
};

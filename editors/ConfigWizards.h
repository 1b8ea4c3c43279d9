#pragma once

#include "config/GlobalSettingsEditor.h"

#include <QPointer>
#include <QWidget>

#include <map>

class ConfigWizardInfo;
class Messages;

/// Opens the editor of the global settings, one for each document, and closes it with its document.
class ConfigWizards final : public GlobalSettingsEditor
{
public:
    explicit ConfigWizards(Messages &messages);

    /// The window that editors stay in front of. @param window the main window, which has to be there only once the
    ///     first editor is asked for
    void setParentWindow(QWidget *window) { m_parentWindow = window; }

    /// Goes to the field of the current row's setting.
    void RunConfWizard(ConfigForm &document) override;

private:
    Messages &m_messages;
    QPointer<QWidget> m_parentWindow;
    std::map<const ConfigForm *, QPointer<ConfigWizardInfo>> m_open;
};

#include "editors/ConfigWizards.h"

#include "config/ConfigForm.h"
#include "editors/ConfigWizardInfo.h"

ConfigWizards::ConfigWizards(Messages &messages)
    : m_messages(messages)
{
}

void ConfigWizards::RunConfWizard(ConfigForm &document)
{
    std::erase_if(m_open, [](const auto &each) { return !each.second; });
    QPointer<ConfigWizardInfo> &wizard = m_open[&document];
    if (!wizard || !wizard->isVisible()) {
        wizard = new ConfigWizardInfo(document, m_messages, m_parentWindow);
        QObject::connect(&document, &ConfigForm::closing, wizard, &QDialog::close);
    } else {
        wizard->LoadItems();
    }
    wizard->setWindowState(wizard->windowState() & ~Qt::WindowMinimized);
    wizard->show();
    wizard->raise();
    wizard->activateWindow();
    wizard->MoveCursor(document.currentRowText());
}

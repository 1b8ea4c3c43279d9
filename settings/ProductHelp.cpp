#include "settings/ProductHelp.h"

#include "platform/Messages.h"
#include "platform/RuntimeError.h"
#include "settings/ProductLookup.h"

ProductHelp::ProductHelp(Registry &registry, HelpViewer &viewer, Messages &messages)
    : m_registry(registry)
    , m_viewer(viewer)
    , m_messages(messages)
{
}

bool ProductHelp::hasFile() const
{
    return m_viewer.hasFile(file());
}

void ProductHelp::showContents()
{
    show(HelpViewer::Command::DisplayTableOfContents);
}

void ProductHelp::showSearch()
{
    show(HelpViewer::Command::DisplaySearch);
}

void ProductHelp::showTopic(quint32 topic)
{
    show(HelpViewer::Command::HelpContext, topic);
}

QString ProductHelp::file() const
{
    return InstallationDirectory(m_registry) + QStringLiteral("\\Help\\zentil.chm");
}

void ProductHelp::show(HelpViewer::Command command, quint32 topic)
{
    // Of this error users see the description alone: what went wrong is the help, not their work.
    try {
        m_viewer.HtmlHelpA(file(), command, topic);
    } catch (const RuntimeError &error) {
        m_messages.show(error.description());
    }
}

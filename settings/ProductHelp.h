#pragma once

#include "platform/HelpViewer.h"
#include "settings/Help.h"

#include <QString>

class Messages;
class Registry;

/// The help of the monitored product, which is that of this program too: "\Help\zentil.chm" in the product's folder.
/// What keeps it from being shown is told to the user.
class ProductHelp final : public Help
{
public:
    ProductHelp(Registry &registry, HelpViewer &viewer, Messages &messages);

    [[nodiscard]] bool hasFile() const override;
    void showContents() override;
    void showSearch() override;

    /// Opens the help at the topic of a context number.
    void showTopic(quint32 topic);

private:
    [[nodiscard]] QString file() const;
    void show(HelpViewer::Command command, quint32 topic = 0);

    Registry &m_registry;
    HelpViewer &m_viewer;
    Messages &m_messages;
};

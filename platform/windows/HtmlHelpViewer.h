#pragma once

#include "platform/HelpViewer.h"

#include <QLibrary>

/// The system's own viewer, which is loaded when help is first asked for. Its windows end with the program.
class HtmlHelpViewer final : public HelpViewer
{
public:
    HtmlHelpViewer();
    ~HtmlHelpViewer() override;

    [[nodiscard]] bool hasFile(const QString &file) const override;
    void HtmlHelpA(const QString &file, Command command, quint32 topic) override;

private:
    QLibrary m_library;
};

#pragma once

#include "config/DocumentShell.h"

#include <QMap>
#include <QStringList>

#include <functional>

/// A main window that remembers what a document asked of it.
class FakeShell final : public DocumentShell
{
public:
    void setMenuVisible(QLatin1String name, bool isVisible) override { menus[name] = isVisible; }
    void setToolButtonEnabled(QLatin1String key, bool isEnabled) override { buttons[key] = isEnabled; }
    [[nodiscard]] QString statusText() const override { return status; }
    void setStatusText(const QString &text) override
    {
        status = text;
        statusTexts << text;
    }
    void SaveAs() override
    {
        ++saveAsCalls;
        if (onSaveAs)
            onSaveAs();
    }

    QMap<QString, bool> menus;
    QMap<QString, bool> buttons;
    QString status;
    /// Every text that the status line has shown, in order.
    QStringList statusTexts;
    int saveAsCalls = 0;
    std::function<void()> onSaveAs;
};

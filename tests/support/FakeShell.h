#pragma once

#include "config/DocumentShell.h"

#include <QMap>
#include <QPoint>
#include <QStringList>

#include <functional>

/// A main window that remembers what a document asked of it.
class FakeShell final : public DocumentShell
{
public:
    void setMenuVisible(QLatin1String name, bool isVisible) override { menus[name] = isVisible; }
    void setMenuEnabled(QLatin1String name, bool isEnabled) override { enabledMenus[name] = isEnabled; }
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
    [[nodiscard]] QPrinter &printer() override { return onPrinter(); }
    void showItemMenu(const QPoint &position) override { itemMenus << position; }

    QMap<QString, bool> menus;
    QMap<QString, bool> enabledMenus;
    QMap<QString, bool> buttons;
    QList<QPoint> itemMenus;
    QString status;
    /// Every text that the status line has shown, in order.
    QStringList statusTexts;
    int saveAsCalls = 0;
    std::function<void()> onSaveAs;
    /// A test that prints gives a printer.
    std::function<QPrinter &()> onPrinter;
};

#pragma once

#include "platform/Messages.h"

/// Messages and questions as message boxes over the active window.
class MessageBoxes final : public Messages
{
public:
    void show(const QString &text, Icon icon, const QString &title) override;
    [[nodiscard]] Answer ask(const QString &text, Buttons buttons, Icon icon, const QString &title) override;
};

#pragma once

#include <QLatin1String>

class QTextEdit;

/// What a text button of the toolbar does with the selected text, or where nothing is selected with what is typed next.
using TextCommand = void (*)(QTextEdit &text);

/// The command of the button of that key; nullptr when it is no text button.
[[nodiscard]] TextCommand textCommand(QLatin1String key);

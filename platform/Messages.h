#pragma once

#include <QString>

/// Messages and questions to the user. One object serves the whole program and is handed down, so that a test can
/// answer in the user's place.
class Messages
{
public:
    enum class Icon { None, Information, Question, Exclamation, Critical };
    enum class Buttons {
        YesNo,
        /// As YesNo, for what should not happen by a mere press of the Enter key: No is the default.
        YesOrElseNo,
        YesNoCancel,
    };
    enum class Answer { Yes, No, Cancel };

    Messages() = default;
    Messages(const Messages &) = delete;
    Messages &operator=(const Messages &) = delete;
    virtual ~Messages() = default;

    /// Shows text, as plain text, and waits until the user has closed it.
    /// @param title the window's title; empty for the application's title
    virtual void show(const QString &text, Icon icon = Icon::None, const QString &title = {}) = 0;

    /// Asks and waits for the answer. Closing the box without an answer counts as Cancel, or as No where there is no
    /// Cancel button.
    [[nodiscard]] virtual Answer ask(const QString &text, Buttons buttons, Icon icon = Icon::Question,
                                     const QString &title = {}) = 0;
};

#pragma once

#include "platform/Messages.h"
#include "tests/support/FakeMessages.h"

#include <QWidget>

#include <functional>
#include <memory>

/// What a user does with windows, for tests. A control is found by its object name; one that is hidden or disabled
/// cannot be used, and trying to fails the test.

/// The messages of the running test, for the application object's outermost handler. A test that expects an error makes
/// a FakeMessages of its own and a UseMessages for as long as it lives.
[[nodiscard]] Messages &currentMessages();

class UseMessages final
{
public:
    explicit UseMessages(Messages &messages);
    UseMessages(const UseMessages &) = delete;
    UseMessages &operator=(const UseMessages &) = delete;
    ~UseMessages();
};

/// The only descendant of that type and name; fails the test when there is none.
template<class T>
[[nodiscard]] T *control(const QObject &window, const char *name);

/// Runs the menu entry of that name as a click on it would; fails the test when it is hidden (itself or its menu) or
/// disabled.
void trigger(const QWidget &window, const char *entry);

/// Clicks the button of that name with the mouse.
void press(const QWidget &window, const char *button);

/// Presses and releases a key with its modifiers in the widget that has the focus in window.
void key(QWidget &window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Clicks the middle of a row of a list or of the part of it that is seen.
void clickRow(QWidget &list, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Whether a dialog came and its steps were run. The test has to look at it.
struct DialogProof
{
    bool handled = false;
};

/// Waits for the next modal dialog (beside the one that is open already) and runs steps on it; a dialog that the steps
/// left open is rejected. Without a dialog within some seconds the proof stays unhandled.
[[nodiscard]] std::shared_ptr<DialogProof> onNextDialog(std::function<void(QWidget &dialog)> steps);

/// Puts name in place of what a file dialog proposes, and presses the button that accepts it.
void chooseInFileDialog(QWidget &dialog, const QString &name);

/// Shows window and waits until it is active.
void showActive(QWidget &window);

/// Waits until window, which has been shown, is active.
void awaitActive(const QWidget &window);

void failMissing(const QObject &window, const char *name);

template<class T>
T *control(const QObject &window, const char *name)
{
    T *found = window.findChild<T *>(QString::fromLatin1(name));
    if (!found)
        failMissing(window, name);
    return found;
}

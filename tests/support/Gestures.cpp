#include "tests/support/Gestures.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

constexpr int patienceMs = 5000;
constexpr int pollMs = 5;

Messages *messagesInUse = nullptr;

/// Passes on to the messages of the running test.
class CurrentMessages final : public Messages
{
public:
    void show(const QString &text, Icon icon, const QString &title) override
    {
        if (messagesInUse)
            messagesInUse->show(text, icon, title);
        else
            ADD_FAILURE() << "unexpected message: " << text.toStdString();
    }

    [[nodiscard]] Answer ask(const QString &text, Buttons buttons, Icon icon, const QString &title) override
    {
        if (messagesInUse)
            return messagesInUse->ask(text, buttons, icon, title);
        ADD_FAILURE() << "unexpected question: " << text.toStdString();
        return Answer::Cancel;
    }
};

bool isReachable(const QAction &action)
{
    for (const QObject *at = action.parent(); at; at = at->parent()) {
        const auto *menu = qobject_cast<const QMenu *>(at);
        if (menu && !(menu->menuAction()->isVisible() && menu->menuAction()->isEnabled()))
            return false;
    }
    return action.isVisible() && action.isEnabled();
}

void awaitDialog(const std::shared_ptr<DialogProof> &proof, const std::function<void(QWidget &)> &steps,
                 QElapsedTimer since)
{
    QWidget *dialog = QApplication::activeModalWidget();
    if (dialog && dialog->isVisible()) {
        proof->handled = true;
        const QPointer<QWidget> guard(dialog);
        steps(*dialog);
        if (guard && guard->isVisible()) {
            if (auto *asDialog = qobject_cast<QDialog *>(guard.data()))
                asDialog->reject();
            else
                guard->close();
        }
        return;
    }
    if (since.elapsed() < patienceMs)
        QTimer::singleShot(pollMs, qApp, [=] { awaitDialog(proof, steps, since); });
}

} // namespace

Messages &currentMessages()
{
    static CurrentMessages messages;
    return messages;
}

UseMessages::UseMessages(Messages &messages)
{
    messagesInUse = &messages;
}

UseMessages::~UseMessages()
{
    messagesInUse = nullptr;
}

void trigger(const QWidget &window, const char *entry)
{
    auto *action = control<QAction>(window, entry);
    if (!action)
        return;
    if (isReachable(*action))
        action->trigger();
    else
        ADD_FAILURE() << entry << " is hidden or disabled";
}

void press(const QWidget &window, const char *button)
{
    auto *found = control<QAbstractButton>(window, button);
    if (!found)
        return;
    if (found->isVisible() && found->isEnabled())
        QTest::mouseClick(found, Qt::LeftButton);
    else
        ADD_FAILURE() << button << " is hidden or disabled";
}

void key(QWidget &window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *target = window.window()->focusWidget() ? window.window()->focusWidget() : &window;
    QTest::keyClick(target, key, modifiers);
}

void clickRow(QWidget &list, int row, Qt::KeyboardModifiers modifiers)
{
    auto *view = qobject_cast<QAbstractItemView *>(&list);
    if (!view) {
        ADD_FAILURE() << "not a list";
        return;
    }
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    const QRect seen = view->visualRect(index).intersected(view->viewport()->rect());
    EXPECT_FALSE(seen.isEmpty()) << "row " << row << " is not to be seen";
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, seen.center());
}

std::shared_ptr<DialogProof> onNextDialog(std::function<void(QWidget &dialog)> steps)
{
    auto proof = std::make_shared<DialogProof>();
    QElapsedTimer since;
    since.start();
    QTimer::singleShot(0, qApp, [=, steps = std::move(steps)] { awaitDialog(proof, steps, since); });
    return proof;
}

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

void failMissing(const QObject &window, const char *name)
{
    ADD_FAILURE() << "there is no " << name << " in " << window.objectName().toStdString();
}

#include "tests/support/Gestures.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPointer>
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
                 const QPointer<QWidget> &before, QElapsedTimer since)
{
    QWidget *dialog = QApplication::activeModalWidget();
    if (dialog && dialog != before && dialog->isVisible()) {
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
    // Nobody waits any more for what only this knows of.
    if (proof.use_count() > 1 && since.elapsed() < patienceMs)
        QTimer::singleShot(pollMs, qApp, [=] { awaitDialog(proof, steps, before, since); });
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
    if (!isReachable(*action)) {
        ADD_FAILURE() << entry << " is hidden or disabled";
        return;
    }
    // By an event, as everything that a user does comes: an error ends at the application object, not in the test.
    QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
    QCoreApplication::sendPostedEvents(action, QEvent::MetaCall);
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

void chooseInFileDialog(QWidget &dialog, const QString &name)
{
    auto *edit = control<QLineEdit>(dialog, "fileNameEdit");
    auto *buttons = control<QDialogButtonBox>(dialog, "buttonBox");
    if (!edit || !buttons)
        return;
    auto *fileDialog = qobject_cast<QFileDialog *>(&dialog);
    ASSERT_NE(fileDialog, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    edit->setFocus();
    const QStringList wanted{fileDialog->directory().absoluteFilePath(name)};
    // At once, as from the clipboard. The dialog is still reading its folder, and selects the proposed file when it
    // comes to it; whoever is as quick as a test has to enter the name again then.
    const bool isEntered = QTest::qWaitFor([&] {
        if (fileDialog->selectedFiles() != wanted) {
            control<QListView>(dialog, "listView")->clearSelection();
            edit->selectAll();
            edit->insert(name);
        }
        return fileDialog->selectedFiles() == wanted;
    });
    EXPECT_TRUE(isEntered) << "the dialog does not take " << name.toStdString() << ", but has "
                           << fileDialog->selectedFiles().join(u' ').toStdString();
    for (QAbstractButton *button : buttons->buttons()) {
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) {
            EXPECT_TRUE(button->isEnabled()) << "the dialog does not take " << name.toStdString();
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    ADD_FAILURE() << "the dialog has no button to accept with";
}

std::shared_ptr<DialogProof> onNextDialog(std::function<void(QWidget &dialog)> steps)
{
    auto proof = std::make_shared<DialogProof>();
    QElapsedTimer since;
    since.start();
    const QPointer<QWidget> before = QApplication::activeModalWidget();
    QTimer::singleShot(0, qApp, [=, steps = std::move(steps)] { awaitDialog(proof, steps, before, since); });
    return proof;
}

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    awaitActive(window);
}

void awaitActive(const QWidget &window)
{
    // Not QTest::qWaitForWindowActive(): for that, a window is active as soon as the one is that it stands in front of.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window.window(); }));
}

void failMissing(const QObject &window, const char *name)
{
    ADD_FAILURE() << "there is no " << name << " in " << window.objectName().toStdString();
}

#include "settings/OpenWindows.h"

#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <functional>
#include <memory>

namespace {

/// A window that does something at intervals.
class TimedWindow : public QWidget
{
    Q_OBJECT

public:
    int updates = 0;
    std::function<void()> onUpdate;

public slots:
    void UpdateTimer()
    {
        ++updates;
        if (onUpdate)
            onUpdate();
    }
};

/// The operation as one that can be invoked, and inherited.
class TimedDialog : public QDialog
{
    Q_OBJECT

public:
    int updates = 0;

    Q_INVOKABLE void UpdateTimer() { ++updates; }
};

class InheritingDialog final : public TimedDialog
{
    Q_OBJECT
};

/// An operation of the name that is for something else.
class OtherWindow final : public QWidget
{
    Q_OBJECT

public:
    int updates = 0;

    Q_INVOKABLE void UpdateTimer(int) { ++updates; }
};

TEST(OpenWindows, EachThatOffersUpdateTimerIsToldOnce)
{
    TimedWindow window;
    InheritingDialog dialog;
    QMainWindow main;
    auto *area = new QMdiArea(&main);
    main.setCentralWidget(area);
    auto *document = new TimedWindow;
    auto *covered = new TimedWindow;
    area->addSubWindow(document);
    area->addSubWindow(covered);
    for (QWidget *each : QList<QWidget *>{&window, &dialog, &main})
        showActive(*each);
    area->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(document->parentWidget()));
    document->parentWidget()->showMaximized();
    updateTimersOfOpenWindows();
    EXPECT_EQ(window.updates, 1);
    EXPECT_EQ(dialog.updates, 1);
    EXPECT_EQ(document->updates, 1);
    EXPECT_EQ(covered->updates, 1);
}

TEST(OpenWindows, ThoseWithoutTheOperationAreSkipped)
{
    QWidget plain;
    OtherWindow other;
    TimedWindow window;
    for (QWidget *each : QList<QWidget *>{&plain, &other, &window})
        showActive(*each);
    updateTimersOfOpenWindows();
    EXPECT_EQ(other.updates, 0);
    EXPECT_EQ(window.updates, 1);
}

TEST(OpenWindows, AMinimisedOneIsOpenAndAClosedOneIsNot)
{
    TimedWindow minimised;
    TimedWindow closed;
    showActive(closed);
    closed.close();
    showActive(minimised);
    minimised.showMinimized();
    updateTimersOfOpenWindows();
    EXPECT_EQ(minimised.updates, 1);
    EXPECT_EQ(closed.updates, 0);
}

TEST(OpenWindows, AControlInAWindowIsNoWindow)
{
    QWidget window;
    auto *control = new TimedWindow;
    control->setParent(&window);
    showActive(window);
    EXPECT_TRUE(control->isVisibleTo(&window) || !control->isVisible());
    updateTimersOfOpenWindows();
    EXPECT_EQ(control->updates, 0);
}

TEST(OpenWindows, OneMayEndAnotherWhenItIsTold)
{
    auto first = std::make_unique<TimedWindow>();
    auto second = std::make_unique<TimedWindow>();
    int told = 0;
    // Whichever comes first ends the other.
    first->onUpdate = [&] { ++told, second.reset(); };
    second->onUpdate = [&] { ++told, first.reset(); };
    showActive(*first);
    showActive(*second);
    updateTimersOfOpenWindows();
    EXPECT_EQ(told, 1);
}

} // namespace

#include "OpenWindowsTest.moc"

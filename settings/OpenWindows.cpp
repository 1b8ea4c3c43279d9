#include "settings/OpenWindows.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QMetaMethod>
#include <QPointer>

namespace {

bool isOpenWindow(const QWidget &widget)
{
    const bool isInside = qobject_cast<const QMdiSubWindow *>(widget.parentWidget()) != nullptr;
    return (widget.isWindow() || isInside) && widget.isVisible();
}

} // namespace

void updateTimersOfOpenWindows()
{
    // A window may close another one when it is told.
    QList<QPointer<QWidget>> windows;
    for (QWidget *widget : QApplication::allWidgets()) {
        if (isOpenWindow(*widget))
            windows << widget;
    }
    for (const QPointer<QWidget> &window : windows) {
        if (!window)
            continue;
        const QMetaObject *type = window->metaObject();
        const int operation = type->indexOfMethod("UpdateTimer()");
        if (operation >= 0)
            type->method(operation).invoke(window, Qt::DirectConnection);
    }
}

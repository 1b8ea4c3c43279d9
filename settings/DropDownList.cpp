#include "settings/DropDownList.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QWheelEvent>

namespace {

bool movesOn(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

} // namespace

void DropDownList::keyPressEvent(QKeyEvent *event)
{
    const bool isModified = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (!isModified && movesOn(*event)) {
        showPopup();
    } else if (!isModified && !event->text().trimmed().isEmpty() && event->text().front().isPrint()) {
        showPopup();
        view()->keyboardSearch(event->text());
    } else {
        QComboBox::keyPressEvent(event);
    }
}

void DropDownList::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

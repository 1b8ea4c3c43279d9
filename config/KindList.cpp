#include "config/KindList.h"

#include "config/ItemKind.h"
#include "settings/WidenDropDown.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStandardItemModel>
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
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace

KindList::KindList(QWidget *parent)
    : QComboBox(parent)
{
    for (const ItemKindRow &row : itemKinds)
        addItem(row.displayName);
    setMaxVisibleItems(count());
    setCurrentIndex(-1);
    view()->viewport()->installEventFilter(this);
    connect(this, &QComboBox::textActivated, this, &KindList::chosen);
}

void KindList::setKindEnabled(ItemKind kind, bool isEnabled)
{
    auto *items = qobject_cast<QStandardItemModel *>(model());
    items->item(findText(itemKindRow(kind).displayName))->setEnabled(isEnabled);
}

void KindList::showPopup()
{
    WidenDropDown(*this);
    QComboBox::showPopup();
}

bool KindList::eventFilter(QObject *watched, QEvent *event)
{
    // The toolkit would take a click on a kind that is not available for one on the kind that is current.
    if (watched != view()->viewport() || event->type() != QEvent::MouseButtonRelease)
        return QComboBox::eventFilter(watched, event);
    const QModelIndex index = view()->indexAt(static_cast<QMouseEvent *>(event)->position().toPoint());
    return !(index.flags() & Qt::ItemIsEnabled);
}

void KindList::keyPressEvent(QKeyEvent *event)
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

void KindList::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

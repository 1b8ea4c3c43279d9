#include "config/KindList.h"

#include "config/ItemKind.h"
#include "settings/WidenDropDown.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStandardItemModel>

KindList::KindList(QWidget *parent)
    : DropDownList(parent)
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
    DropDownList::showPopup();
}

bool KindList::eventFilter(QObject *watched, QEvent *event)
{
    // The toolkit would take a click on a kind that is not available for one on the kind that is current.
    if (watched != view()->viewport() || event->type() != QEvent::MouseButtonRelease)
        return DropDownList::eventFilter(watched, event);
    const QModelIndex index = view()->indexAt(static_cast<QMouseEvent *>(event)->position().toPoint());
    return !(index.flags() & Qt::ItemIsEnabled);
}

void KindList::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // There is no button in its window that Enter would press.
    if (isEnter && !(event->modifiers() & ~Qt::KeypadModifier))
        showPopup();
    else
        DropDownList::keyPressEvent(event);
}

#include "config/ConfigListView.h"

#include "config/RowDelegate.h"

#include <QEvent>

ConfigListView::ConfigListView(QWidget *parent)
    : QListView(parent)
    , m_delegate(new RowDelegate(this))
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setRowFont(font());
    setItemDelegate(m_delegate);
}

void ConfigListView::setModel(QAbstractItemModel *model)
{
    QListView::setModel(model);
    connect(model, &QAbstractItemModel::modelReset, this, &ConfigListView::forgetCurrent);
    forgetCurrent();
}

void ConfigListView::setHorizontalExtent(int pixels)
{
    m_delegate->setExtent(pixels);
    scheduleDelayedItemsLayout();
}

int ConfigListView::horizontalExtent() const
{
    return m_delegate->extent();
}

int ConfigListView::widestRow(const QStringList &rows) const
{
    return m_delegate->metrics().widestRow(rows);
}

void ConfigListView::setRowFont(const QFont &font)
{
    QFont rowFont = font;
    rowFont.setKerning(false);
    setFont(rowFont);
    m_delegate->setMetrics(this->font());
}

void ConfigListView::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_delegate->setMetrics(font());
}

void ConfigListView::forgetCurrent()
{
    // Without this the view makes the first row current as soon as it gets the focus, and commands would act on a row
    // that nobody chose.
    setCurrentIndex(QModelIndex());
}

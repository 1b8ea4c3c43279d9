#include "config/ConfigListView.h"

#include "config/RowCommands.h"
#include "config/RowDelegate.h"

#include <QContextMenuEvent>
#include <QItemSelection>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

/// How far a key or a step of the wheel scrolls sideways.
constexpr int charactersPerStep = 8;

} // namespace

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

RowSelection ConfigListView::rowSelection() const
{
    RowSelection result;
    result.current = listIndex();
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            result.rows.push_back(row);
    }
    std::sort(result.rows.begin(), result.rows.end());
    return result;
}

void ConfigListView::setRowSelection(const RowSelection &selection)
{
    QItemSelection ranges;
    for (size_t first = 0; first < selection.rows.size();) {
        size_t end = first + 1;
        while (end < selection.rows.size() && selection.rows[end] == selection.rows[end - 1] + 1)
            ++end;
        ranges.append(
            QItemSelectionRange(model()->index(selection.rows[first], 0), model()->index(selection.rows[end - 1], 0)));
        first = end;
    }
    const QModelIndex current = model()->index(selection.current, 0);
    selectionModel()->select(ranges, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (current.isValid())
        scrollTo(current);
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
    takeFont();
}

void ConfigListView::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    takeFont();
    emit rowFontChanged();
}

void ConfigListView::contextMenuEvent(QContextMenuEvent *event)
{
    emit menuRequested(event->reason() == QContextMenuEvent::Keyboard ? belowCurrentRow() : event->globalPos());
    event->accept();
}

void ConfigListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        // Not every keyboard has a key for menus, and not on every system the toolkit takes this one for it.
        emit menuRequested(belowCurrentRow());
        return;
    }
    if (event->modifiers() & ~Qt::KeypadModifier) {
        QListView::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Delete:
        emit removeRequested();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit editRequested();
        break;
    default:
        if (!scrollSideways(event->key()))
            QListView::keyPressEvent(event);
        break;
    }
}

bool ConfigListView::scrollSideways(int key)
{
    // In a list of one column the view has no use for these keys, and long rows would be out of the keyboard's reach.
    if (key != Qt::Key_Left && key != Qt::Key_Right)
        return false;
    horizontalScrollBar()->triggerAction(key == Qt::Key_Left ? QAbstractSlider::SliderSingleStepSub
                                                             : QAbstractSlider::SliderSingleStepAdd);
    return true;
}

QPoint ConfigListView::belowCurrentRow() const
{
    const QRect row = visualRect(currentIndex()).intersected(viewport()->rect());
    return viewport()->mapToGlobal(row.bottomLeft());
}

void ConfigListView::takeFont()
{
    m_delegate->setMetrics(font());
    // The view would step by a whole row's width.
    horizontalScrollBar()->setSingleStep(charactersPerStep * fontMetrics().averageCharWidth());
}

void ConfigListView::forgetCurrent()
{
    // Without this the view makes the first row current as soon as it gets the focus, and commands would act on a row
    // that nobody chose.
    setCurrentIndex(QModelIndex());
}

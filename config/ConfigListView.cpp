#include "config/ConfigListView.h"

#include "config/RowDelegate.h"

#include <QKeyEvent>
#include <QScrollBar>

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

void ConfigListView::keyPressEvent(QKeyEvent *event)
{
    // In a list of one column the view has no use for these keys, and long rows would be out of the keyboard's reach.
    const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (!isSideways || event->modifiers() & ~Qt::KeypadModifier) {
        QListView::keyPressEvent(event);
        return;
    }
    const bool isLeft = event->key() == Qt::Key_Left;
    horizontalScrollBar()->triggerAction(isLeft ? QAbstractSlider::SliderSingleStepSub
                                                : QAbstractSlider::SliderSingleStepAdd);
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

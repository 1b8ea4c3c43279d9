#include "config/RowDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <cmath>

namespace {

constexpr int verticalPadding = 1;

QPalette::ColorGroup colorGroup(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
}

} // namespace

void RowDelegate::setMetrics(const QFont &font)
{
    m_metrics.emplace(font);
}

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const QPalette::ColorGroup colors = colorGroup(option.state);
    const bool isSelected = option.state & QStyle::State_Selected;
    QStyleOptionViewItem frame = option;
    frame.index = index;
    if (isSelected) {
        // Styles have colours of their own for what is selected, and some do not go with the palette's text.
        painter->fillRect(option.rect, option.palette.brush(colors, QPalette::Highlight));
        frame.state &= ~(QStyle::State_Selected | QStyle::State_MouseOver);
    }
    style->drawControl(QStyle::CE_ItemViewItem, &frame, painter, option.widget);

    // The text is painted here and not by the style, which lays out a whole row to show a part of it.
    const QString text = RowMetrics::painted(index.data(Qt::DisplayRole).toString());
    const QRectF seen = option.widget ? QRectF(option.rect).intersected(QRectF(option.widget->rect())) : option.rect;
    const qreal textLeft = option.rect.left() + m_metrics->margin();
    const RowMetrics::Part part = m_metrics->visiblePart(text, seen.left() - textLeft, seen.right() - textLeft);
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    painter->setFont(option.font);
    painter->setPen(option.palette.color(colors, isSelected ? QPalette::HighlightedText : QPalette::Text));
    const qreal baseline = option.rect.top() + (option.rect.height() - m_metrics->height()) / 2 + m_metrics->ascent();
    painter->drawText(QPointF(textLeft + part.offset, baseline), part.text);
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {m_extent, int(std::ceil(m_metrics->height())) + 2 * verticalPadding};
}

#pragma once

#include "config/RowMetrics.h"

#include <QStyledItemDelegate>

#include <optional>

/// Paints one row of ConfigList and gives every row the same size: as wide as the list's horizontal extent.
class RowDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    void setMetrics(const QFont &font);
    [[nodiscard]] const RowMetrics &metrics() const { return *m_metrics; }
    void setExtent(int pixels) { m_extent = pixels; }
    [[nodiscard]] int extent() const { return m_extent; }

private:
    std::optional<RowMetrics> m_metrics;
    int m_extent = 0;
};

#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

/// Where windows stand in an area when they are arranged, in device-independent pixels from the area's upper left
/// corner. Windows that would become smaller than minimum reach beyond the area instead.

/// Each as wide as the area. Together they fill it.
[[nodiscard]] QList<QRect> tiledOneAboveTheOther(const QSize &area, int count, const QSize &minimum);

/// Each as high as the area. Together they fill it.
[[nodiscard]] QList<QRect> tiledSideBySide(const QSize &area, int count, const QSize &minimum);

/// The upper left corners of minimised windows: in rows from the lower left corner, as many in a row as fit, the rows
/// one above the other.
[[nodiscard]] QList<QPoint> iconCorners(const QSize &area, int count, const QSize &icon);

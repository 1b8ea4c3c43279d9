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

/// One behind the other, each a step right of and below the one before and three quarters of the area wide and high.
/// Where the next one would reach beyond the area, a row begins anew at its corner.
/// @param step what stays seen of a window, in each direction; more than 0
[[nodiscard]] QList<QRect> cascaded(const QSize &area, int count, const QSize &minimum, int step);

/// The upper left corners of minimised windows: in rows from the lower left corner, as many in a row as fit, the rows
/// one above the other.
[[nodiscard]] QList<QPoint> iconCorners(const QSize &area, int count, const QSize &icon);

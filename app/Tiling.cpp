#include "app/Tiling.h"

#include <algorithm>

QList<QRect> tiledOneAboveTheOther(const QSize &area, int count, const QSize &minimum)
{
    QList<QRect> tiles = tiledSideBySide(area.transposed(), count, minimum.transposed());
    for (QRect &tile : tiles)
        tile = QRect(tile.y(), tile.x(), tile.height(), tile.width());
    return tiles;
}

QList<QRect> tiledSideBySide(const QSize &area, int count, const QSize &minimum)
{
    const int width = std::max(area.width(), count * minimum.width());
    const int height = std::max(area.height(), minimum.height());
    QList<QRect> tiles;
    // From edge to edge: a width that cannot be divided leaves no strip free.
    for (int i = 0; i < count; ++i) {
        const int left = width * i / count;
        tiles << QRect(left, 0, width * (i + 1) / count - left, height);
    }
    return tiles;
}

QList<QRect> cascaded(const QSize &area, int count, const QSize &minimum, int step)
{
    const QSize size = (area * 3 / 4).expandedTo(minimum);
    const QSize room = area - size;
    const int inRow = std::max(0, std::min(room.width(), room.height())) / step + 1;
    QList<QRect> places;
    for (int i = 0; i < count; ++i)
        places << QRect(QPoint(step, step) * (i % inRow), size);
    return places;
}

QList<QPoint> iconCorners(const QSize &area, int count, const QSize &icon)
{
    const int inRow = std::max(1, area.width() / std::max(1, icon.width()));
    QList<QPoint> corners;
    for (int i = 0; i < count; ++i)
        corners << QPoint(i % inRow * icon.width(), area.height() - (i / inRow + 1) * icon.height());
    return corners;
}

#include "app/Placement.h"

#include "platform/UserSettings.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int twipsPerPixel = 15;
constexpr double defaultEdge = 1000;
constexpr double defaultExtent = 6500;
constexpr double largestTwips = 1e6;
constexpr int smallestExtent = 100;

// What must be seen of a window's upper edge so that the mouse can take hold of it.
constexpr QSize graspable(64, 16);

const QString &section()
{
    static const QString name = QStringLiteral("Settings");
    return name;
}

int storedPixels(const UserSettings &settings, const QString &key, double absent)
{
    bool isNumber = false;
    const double twips = settings.GetSetting(section(), key).toDouble(&isNumber);
    const bool isUsable = isNumber && std::isfinite(twips) && std::abs(twips) <= largestTwips;
    return int(std::lround((isUsable ? twips : absent) / twipsPerPixel));
}

} // namespace

QRect storedPlacement(const UserSettings &settings)
{
    return {storedPixels(settings, QStringLiteral("MainLeft"), defaultEdge),
            storedPixels(settings, QStringLiteral("MainTop"), defaultEdge),
            std::max(smallestExtent, storedPixels(settings, QStringLiteral("MainWidth"), defaultExtent)),
            std::max(smallestExtent, storedPixels(settings, QStringLiteral("MainHeight"), defaultExtent))};
}

bool storePlacement(UserSettings &settings, const QRect &window)
{
    const auto store = [&settings](const QString &key, int pixels) {
        return settings.SaveSetting(section(), key, QString::number(pixels * twipsPerPixel));
    };
    return store(QStringLiteral("MainLeft"), window.left()) && store(QStringLiteral("MainTop"), window.top()) &&
           store(QStringLiteral("MainWidth"), window.width()) && store(QStringLiteral("MainHeight"), window.height());
}

QRect reachablePlacement(const QRect &window, const QList<QRect> &screens)
{
    const QRect upperEdge(window.topLeft(), QSize(window.width(), graspable.height()));
    for (const QRect &screen : screens) {
        const QRect seen = screen.intersected(upperEdge);
        if (seen.width() >= std::min(graspable.width(), window.width()) && seen.height() >= graspable.height())
            return window;
    }
    const QRect &screen = screens.first();
    QRect moved(window.topLeft(), window.size().boundedTo(screen.size()));
    moved.moveLeft(std::clamp(moved.left(), screen.left(), screen.right() - moved.width() + 1));
    moved.moveTop(std::clamp(moved.top(), screen.top(), screen.bottom() - moved.height() + 1));
    return moved;
}

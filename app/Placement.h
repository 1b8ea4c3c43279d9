#pragma once

#include <QList>
#include <QRect>

class UserSettings;

/// Where the main window stands, in device-independent pixels: the corner of its frame and the size of what is inside
/// the frame. In the per-user settings it is kept in twips, 15 to a pixel (a twip is 1/1440 inch, such a pixel 1/96).

/// The stored placement. What is absent, or not a number, is read as its default: 1000 for the left and top edge, 6500
/// for width and height.
[[nodiscard]] QRect storedPlacement(const UserSettings &settings);

/// @return false when a value could not be stored
[[nodiscard]] bool storePlacement(UserSettings &settings, const QRect &window);

/// Moves a window that cannot be reached onto a screen: when no screen shows enough of its upper edge to take hold of,
/// it is moved, and made smaller where it must be, into the first screen.
/// @param screens the usable areas of the screens, the primary one first; not empty
[[nodiscard]] QRect reachablePlacement(const QRect &window, const QList<QRect> &screens);

#pragma once

#include <QIcon>
#include <QLatin1String>

/// The icon of that name from the desktop's theme, or our own where the theme has none.
[[nodiscard]] QIcon themedIcon(QLatin1String name);

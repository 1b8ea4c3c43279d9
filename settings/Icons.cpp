#include "settings/Icons.h"

#include <QFile>

#include <algorithm>
#include <array>

namespace {

// Names of our own, which no theme has. A theme that lacks a name is searched folder by folder for it, and the program
// is to start at once.
constexpr std::array<QLatin1String, 6> ownNames{
    QLatin1String("comment"), QLatin1String("document"), QLatin1String("document-modified"),
    QLatin1String("edit"),    QLatin1String("font"),     QLatin1String("zentilconf"),
};

bool mayBeThemed(QLatin1String name)
{
    // "hicolor" is what every theme falls back on, and all there is without a desktop: it has applications' own icons.
    const QString theme = QIcon::themeName();
    const bool hasTheme = !theme.isEmpty() && theme != QLatin1String("hicolor");
    return hasTheme && std::find(ownNames.begin(), ownNames.end(), name) == ownNames.end();
}

/// The program carries its icons as drawings, and beside them pictures in several sizes where Qt has no reader for
/// drawings (on Windows).
QString ownFile(QLatin1String name)
{
    const QString pictures = QStringLiteral(":/icons/%1.ico").arg(name);
    return QFile::exists(pictures) ? pictures : QStringLiteral(":/icons/%1.svg").arg(name);
}

} // namespace

QIcon themedIcon(QLatin1String name)
{
    const QIcon own(ownFile(name));
    return mayBeThemed(name) ? QIcon::fromTheme(name, own) : own;
}

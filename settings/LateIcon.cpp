#include "settings/LateIcon.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace {

// Names of our own, which no theme has. A theme that lacks a name is searched folder by folder for it, and the program
// is to start at once.
constexpr std::array<QLatin1String, 6> ownNames{
    QLatin1String("comment"), QLatin1String("document"), QLatin1String("document-modified"),
    QLatin1String("edit"),    QLatin1String("font"),     QLatin1String("zentilconf"),
};

/// In pixels of the device. Most icons have no picture above 64.
constexpr std::array pictureSizes{16, 20, 24, 32, 40, 48, 64, 96, 128, 256};

bool mayBeThemed(QLatin1String name)
{
    // "hicolor" is what every theme falls back on, and all there is without a desktop: it has applications' own icons.
    const QString theme = QIcon::themeName();
    const bool hasTheme = !theme.isEmpty() && theme != QLatin1String("hicolor");
    return hasTheme && std::find(ownNames.begin(), ownNames.end(), name) == ownNames.end();
}

QString pictureFile(QLatin1String name, int size)
{
    return QStringLiteral(":/icons/%1/%2.png").arg(name).arg(size);
}

QPixmap readPicture(QLatin1String name, int wanted)
{
    QString file;
    for (const int size : pictureSizes) {
        const QString candidate = pictureFile(name, size);
        if (!QFile::exists(candidate))
            break;
        file = candidate;
        if (size >= wanted)
            break;
    }
    // Without the format Qt would load all its readers, to ask them.
    const QPixmap picture = QPixmap::fromImage(QImage(file, "PNG"));
    if (picture.width() <= wanted)
        return picture;
    return picture.scaled(wanted, wanted, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The program's own icon within that size: the picture that fits, or the next larger one made smaller.
QPixmap ownPicture(QLatin1String name, const QSize &size)
{
    const int wanted = std::min(size.width(), size.height());
    const QString key = QStringLiteral("LateIcon/%1/%2").arg(name).arg(wanted);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = readPicture(name, wanted);
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

/// As the style shows an icon of what is disabled or selected.
QPixmap inMode(const QPixmap &picture, QIcon::Mode mode)
{
    if (mode == QIcon::Normal || picture.isNull())
        return picture;
    QStyleOption option;
    option.palette = QGuiApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, picture, &option);
}

} // namespace

LateIcon::LateIcon(QLatin1String name)
    : m_name(name)
{
}

void LateIcon::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    if (!themed().isNull()) {
        themed().paint(painter, rect, Qt::AlignCenter, mode, state);
        return;
    }
    const qreal ratio = painter->device()->devicePixelRatio();
    QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    picture.setDevicePixelRatio(ratio);
    QRectF place(QPointF(), picture.deviceIndependentSize());
    place.moveCenter(QRectF(rect).center());
    painter->drawPixmap(place.topLeft(), picture);
}

QPixmap LateIcon::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

QPixmap LateIcon::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale)
{
    if (!themed().isNull())
        return themed().pixmap((QSizeF(size) / scale).toSize(), scale, mode, state);
    return inMode(ownPicture(m_name, size), mode);
}

QSize LateIcon::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    if (!themed().isNull())
        return themed().actualSize(size, mode, state);
    return ownPicture(m_name, size).size();
}

QList<QSize> LateIcon::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    if (!themed().isNull())
        return themed().availableSizes(mode, state);
    // What the frame of a window and a list of windows take. All of these are given to the display at the start.
    return {{16, 16}, {32, 32}, {48, 48}};
}

QIconEngine *LateIcon::clone() const
{
    return new LateIcon(*this);
}

const QIcon &LateIcon::themed()
{
    if (!m_themed)
        m_themed = mayBeThemed(m_name) ? QIcon::fromTheme(m_name) : QIcon();
    return *m_themed;
}

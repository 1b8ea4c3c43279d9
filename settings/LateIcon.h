#pragma once

#include <QIcon>
#include <QIconEngine>
#include <QLatin1String>

#include <optional>

/// An icon that is looked for when it is first shown, so that menus full of icons cost nothing before they are opened.
/// It is that of the desktop's theme, or where the theme has none the program's own, from the pictures that
/// app/icons/CMakeLists.txt makes.
class LateIcon final : public QIconEngine
{
public:
    explicit LateIcon(QLatin1String name);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    /// @param size in pixels of the device
    [[nodiscard]] QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    [[nodiscard]] QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QIconEngine *clone() const override;

private:
    [[nodiscard]] const QIcon &themed();

    QLatin1String m_name;
    /// Null where the theme has no such icon; nothing before it has been asked.
    std::optional<QIcon> m_themed;
};

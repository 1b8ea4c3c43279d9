#include "settings/LateIcon.h"

#include "settings/Icons.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

namespace {

/// A theme with icons of one colour, which no icon of the program is.
class LateIcons : public testing::Test
{
protected:
    LateIcons()
    {
        const QString pictures = folder.filePath("red/32");
        EXPECT_TRUE(QDir().mkpath(pictures));
        QImage red(32, 32, QImage::Format_ARGB32);
        red.fill(Qt::red);
        for (const char *name : {"edit-copy", "edit", "zentilconf"})
            EXPECT_TRUE(red.save(pictures + '/' + name + ".png"));
        QFile index(folder.filePath("red/index.theme"));
        EXPECT_TRUE(index.open(QIODevice::WriteOnly));
        EXPECT_GT(index.write("[Icon Theme]\nName=red\nDirectories=32\n[32]\nSize=32\nType=Scalable\nMinSize=1\n"
                              "MaxSize=512\n"),
                  0);
        QIcon::setThemeSearchPaths({folder.path()});
        QIcon::setThemeName("hicolor");
    }

    ~LateIcons() override
    {
        QIcon::setThemeSearchPaths(searchPaths);
        QIcon::setThemeName(theme);
    }

    static bool isRed(const QIcon &icon)
    {
        const QImage shown = icon.pixmap(32).toImage();
        return !shown.isNull() && shown.pixelColor(shown.rect().center()) == Qt::red;
    }

    const QStringList searchPaths = QIcon::themeSearchPaths();
    const QString theme = QIcon::themeName();
    const QTemporaryDir folder;
};

// Looked for when it is made, the icon would be the one without a theme.
TEST_F(LateIcons, IsLookedForWhenItIsFirstShown)
{
    const QIcon icon = themedIcon(QLatin1String("edit-copy"));
    QIcon::setThemeName("red");
    EXPECT_TRUE(isRed(icon));
}

TEST_F(LateIcons, WithoutAThemeIsOurOwn)
{
    const QIcon icon = themedIcon(QLatin1String("edit-copy"));
    EXPECT_FALSE(icon.pixmap(32).isNull());
    EXPECT_FALSE(isRed(icon));
}

// The theme has icons of these names, which mean something else there.
TEST_F(LateIcons, NamesOfOurOwnAreNotTakenFromAThemeThatHasThem)
{
    QIcon::setThemeName("red");
    EXPECT_FALSE(isRed(themedIcon(QLatin1String("edit"))));
    EXPECT_FALSE(isRed(themedIcon(QLatin1String("zentilconf"))));
}

// Not "edit-cut": Qt would take the theme's "edit" for it.
TEST_F(LateIcons, WhatTheThemeLacksIsOurOwn)
{
    const QImage own = themedIcon(QLatin1String("list-add")).pixmap(32).toImage();
    QIcon::setThemeName("red");
    EXPECT_EQ(themedIcon(QLatin1String("list-add")).pixmap(32).toImage(), own);
}

// 25 and 30 have no picture of their own and are made of larger ones; smaller ones would be shown as they are.
TEST_F(LateIcons, HasTheSizeThatIsAskedFor)
{
    const QIcon icon = themedIcon(QLatin1String("edit-copy"));
    for (const int size : {8, 16, 20, 24, 25, 30, 32, 40, 48, 60, 64})
        EXPECT_EQ(icon.pixmap(size).size(), QSize(size, size));
    EXPECT_EQ(icon.pixmap(QSize(64, 20)).size(), QSize(20, 20));
    EXPECT_EQ(icon.actualSize(QSize(64, 20)), QSize(20, 20));
}

TEST_F(LateIcons, IsNotMadeLargerThanItsLargestPicture)
{
    EXPECT_EQ(themedIcon(QLatin1String("edit-copy")).pixmap(200).size(), QSize(64, 64));
    EXPECT_EQ(themedIcon(QLatin1String("edit-copy")).actualSize(QSize(200, 200)), QSize(64, 64));
    EXPECT_EQ(themedIcon(QLatin1String("zentilconf")).pixmap(200).size(), QSize(200, 200));
}

TEST_F(LateIcons, OnAFineScreenHasAllThePixels)
{
    for (const char *name : {"hicolor", "red"}) {
        QIcon::setThemeName(name);
        const QPixmap picture = themedIcon(QLatin1String("edit-copy")).pixmap(QSize(16, 16), 2);
        EXPECT_EQ(picture.size(), QSize(32, 32)) << name;
        EXPECT_EQ(picture.devicePixelRatio(), 2) << name;
    }
}

TEST_F(LateIcons, IsPaintedInTheMiddleWithThePixelsOfTheScreen)
{
    const QIcon icon = themedIcon(QLatin1String("edit-copy"));
    QImage screen(128, 64, QImage::Format_ARGB32_Premultiplied);
    screen.fill(Qt::transparent);
    screen.setDevicePixelRatio(2);
    QPainter painter(&screen);
    icon.paint(&painter, QRect(0, 0, 64, 32));
    painter.end();
    screen.setDevicePixelRatio(1);

    const QImage whole = icon.pixmap(64).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(screen.copy(32, 0, 64, 64), whole);
    const QImage beside = screen.copy(0, 0, 32, 64);
    QImage nothing(beside.size(), beside.format());
    nothing.fill(Qt::transparent);
    EXPECT_EQ(beside, nothing);
}

TEST_F(LateIcons, OfWhatIsDisabledLooksOtherwise)
{
    const QIcon icon = themedIcon(QLatin1String("edit-copy"));
    const QImage disabled = icon.pixmap(20, QIcon::Disabled).toImage();
    EXPECT_EQ(disabled.size(), QSize(20, 20));
    EXPECT_NE(disabled, icon.pixmap(20).toImage());
}

// Each is sent to the display when the first window comes.
TEST_F(LateIcons, OffersFewSizesForTheFrameOfAWindow)
{
    const QList<QSize> sizes = themedIcon(QLatin1String("zentilconf")).availableSizes();
    EXPECT_EQ(sizes, (QList<QSize>{{16, 16}, {32, 32}, {48, 48}}));
}

} // namespace

#include "app/DocumentArea.h"

#include "tests/app/ProgramFixture.h"

#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScrollBar>

namespace {

class Arranged : public Program
{
protected:
    void SetUp() override
    {
        for (const char *path : {"/a.zcf", "/b.zcf", "/c.zcf"})
            fakeFiles.content[path] = "a\r\n";
        settings.values = {{"Settings/MainWidth", "30000"}, {"Settings/MainHeight", "18000"}};
        start({"/a.zcf", "/b.zcf", "/c.zcf"});
    }

    [[nodiscard]] DocumentArea &area() const { return *control<DocumentArea>(*window, "DocumentArea"); }

    [[nodiscard]] QMdiSubWindow &frame(size_t index) const
    {
        return *qobject_cast<QMdiSubWindow *>(document(index).parentWidget());
    }

    [[nodiscard]] QList<QRect> frames() const
    {
        QList<QRect> result;
        for (size_t index = 0; index < window->documents().size(); ++index)
            result << frame(index).geometry();
        return result;
    }

    /// Gives the area that size, which it keeps: the buttons of a maximised document, which may make the menu bar
    /// higher, are gone by then.
    void setAreaSize(const QSize &size)
    {
        for (size_t index = 0; index < window->documents().size(); ++index)
            frame(index).showNormal();
        settle();
        window->resize(window->size() + size - area().viewport()->size());
        settle();
        ASSERT_EQ(area().viewport()->size(), size);
    }

    void run(const char *entry)
    {
        trigger(*window, entry);
        settle();
    }
};

TEST_F(Arranged, TileHorizontalPutsDocumentsOneAboveTheOther)
{
    setAreaSize({1500, 1200});
    run("mnuWindowTileHorizontal");
    EXPECT_EQ(frames(), (QList<QRect>{{0, 0, 1500, 400}, {0, 400, 1500, 400}, {0, 800, 1500, 400}}));
}

TEST_F(Arranged, TileVerticalPutsDocumentsSideBySide)
{
    setAreaSize({1500, 1200});
    run("mnuWindowTileVertical");
    EXPECT_EQ(frames(), (QList<QRect>{{0, 0, 500, 1200}, {500, 0, 500, 1200}, {1000, 0, 500, 1200}}));
}

TEST_F(Arranged, TilingKeepsTheActiveDocument)
{
    activate(document(1));
    for (const char *entry : {"mnuWindowTileHorizontal", "mnuWindowTileVertical", "mnuWindowCascade"}) {
        run(entry);
        EXPECT_EQ(activeCaption(), "/b.zcf") << entry;
        EXPECT_EQ(area().activeSubWindow(), &frame(1)) << entry;
        for (size_t index = 0; index < 3; ++index)
            EXPECT_FALSE(frame(index).isMaximized()) << entry;
    }
}

TEST_F(Arranged, TilingLeavesMinimisedDocumentsOutAndRoomForThem)
{
    setAreaSize({1500, 1200});
    activate(document(0));
    frame(0).showMinimized();
    activate(document(1));
    ASSERT_TRUE(frame(0).isMinimized());
    const QRect icon = frame(0).geometry();
    run("mnuWindowTileVertical");
    EXPECT_TRUE(frame(0).isMinimized());
    EXPECT_EQ(frame(0).geometry(), icon);
    const int free = 1200 - icon.height();
    EXPECT_EQ(frames().mid(1), (QList<QRect>{{0, 0, 750, free}, {750, 0, 750, free}}));
}

TEST_F(Arranged, DocumentsThatDoNotFitCanBeScrolledTo)
{
    setAreaSize({600, 500});
    run("mnuWindowTileHorizontal");
    const int height = frame(0).height();
    EXPECT_GE(height, frame(0).minimumSizeHint().height());
    EXPECT_EQ(frame(2).geometry().top(), 2 * height);
    EXPECT_GT(area().verticalScrollBar()->maximum(), 0);
    // The scroll bar takes room, and no second one is needed for that.
    EXPECT_EQ(area().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(frame(0).width(), area().viewport()->width());
}

TEST_F(Arranged, TilingBeginsWhereTheAreaBeginsAlsoWhenItIsScrolled)
{
    setAreaSize({600, 500});
    run("mnuWindowTileHorizontal");
    area().verticalScrollBar()->setValue(area().verticalScrollBar()->maximum());
    settle();
    ASSERT_LT(frame(0).y(), 0);
    run("mnuWindowTileHorizontal");
    EXPECT_EQ(frame(0).pos(), QPoint(0, 0));
    EXPECT_EQ(frame(2).y(), 2 * frame(0).height());
}

TEST_F(Arranged, CascadePutsDocumentsOneBehindTheOtherTheActiveOneInFront)
{
    setAreaSize({1600, 1200});
    activate(document(0));
    run("mnuWindowCascade");
    const QList<QRect> places = frames();
    const QSize size(1200, 900);
    EXPECT_EQ(places.at(1), QRect(QPoint(0, 0), size));
    const QPoint step = places.at(2).topLeft();
    EXPECT_EQ(step.x(), step.y());
    // The title of the one behind stays seen.
    EXPECT_GE(step.y(), document(1).y());
    EXPECT_EQ(places.at(2), QRect(step, size));
    EXPECT_EQ(places.at(0), QRect(step * 2, size));
    EXPECT_EQ(activeCaption(), "/a.zcf");
}

TEST_F(Arranged, ArrangeIconsLinesUpMinimisedDocumentsAtTheLowerEdge)
{
    setAreaSize({1500, 1200});
    frame(2).showNormal();
    for (const size_t index : {size_t(0), size_t(1)}) {
        frame(index).showMinimized();
        settle();
        frame(index).move(300, 200);
    }
    const QRect other = frame(2).geometry();
    run("mnuWindowArrangeIcons");
    const QSize icon = frame(0).size();
    EXPECT_EQ(frame(0).pos(), QPoint(0, 1200 - icon.height()));
    EXPECT_EQ(frame(1).pos(), QPoint(icon.width(), 1200 - icon.height()));
    EXPECT_EQ(frame(2).geometry(), other);
}

TEST_F(Arranged, TilesFillTheAreaThatALowerMenuBarLeaves)
{
    // The letters are so small that the buttons of a maximised document decide how high the menu bar is.
    QFont font = window->menuBar()->font();
    font.setPixelSize(2);
    window->menuBar()->setFont(font);
    settle();
    ASSERT_TRUE(frame(2).isMaximized());
    const int before = area().viewport()->height();
    run("mnuWindowTileVertical");
    ASSERT_GT(area().viewport()->height(), before);
    EXPECT_EQ(frame(0).height(), area().viewport()->height());
}

TEST_F(Arranged, AreaWithoutDocumentsStaysAsItIs)
{
    while (window->activeDocument())
        run("mnuFileClose");
    for (const char *entry :
         {"mnuWindowTileHorizontal", "mnuWindowTileVertical", "mnuWindowCascade", "mnuWindowArrangeIcons"})
        run(entry);
    EXPECT_TRUE(window->documents().empty());
    run("mnuFileNew");
    EXPECT_TRUE(frame(0).isMaximized());
}

TEST_F(Arranged, OneDocumentFillsTheAreaAndCanBeUsed)
{
    run("mnuFileClose");
    run("mnuFileClose");
    for (const char *entry : {"mnuWindowTileHorizontal", "mnuWindowTileVertical"}) {
        run(entry);
        EXPECT_EQ(frame(0).geometry(), area().viewport()->rect());
        EXPECT_TRUE(list(document(0)).hasFocus());
    }
}

} // namespace

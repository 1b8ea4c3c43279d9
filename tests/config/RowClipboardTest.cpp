#include "config/RowClipboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

const QString withByte = QString("caf") + QChar(0xDCE9);

TEST(RowClipboardTest, PlainTextIsAllThatOrdinaryRowsNeed)
{
    RowClipboard::put("a\r\nb");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a\r\nb");
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasFormat("application/x-zentilconf-rows"));
    EXPECT_EQ(RowClipboard::text(), "a\r\nb");
}

TEST(RowClipboardTest, OtherProgramsGetWhatIsShownOfBytesThatAreNotUtf8)
{
    RowClipboard::put(withByte);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "caf\u00E9");
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->data("application/x-zentilconf-rows"), "caf\xE9");
    EXPECT_EQ(RowClipboard::text(), withByte);
}

TEST(RowClipboardTest, TakesTextOfOtherPrograms)
{
    QGuiApplication::clipboard()->setText("x");
    EXPECT_EQ(RowClipboard::text(), "x");
}

TEST(RowClipboardTest, WithoutTextThereIsNone)
{
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(RowClipboard::text(), "");
}

} // namespace

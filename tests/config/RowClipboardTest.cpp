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
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasFormat("application/x-zentilconf-rows"));
    EXPECT_EQ(RowClipboard::text(), withByte);
}

// Pasted from elsewhere they are in a document until it is saved. A copy is what was copied until then.
TEST(RowClipboardTest, HalvesOfPairsAndMarksStayBesideSuchBytes)
{
    const QString odd = QString(QChar(0xFEFF)) + QChar(0xD800) + withByte + QChar(0xDC00) + QChar(0) + QChar(0xFFFF);
    RowClipboard::put(odd);
    EXPECT_EQ(RowClipboard::text(), odd);
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

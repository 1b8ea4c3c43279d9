#include "config/UndoEvent.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

namespace {

TEST(UndoEventTest, AStepWithoutRecordsHasMaxZeroAndCountOne)
{
    const UndoEvent step;
    EXPECT_EQ(step.Max(), 0);
    EXPECT_EQ(step.Count(), 1);
    EXPECT_EQ(step.EventType(0), 0);
}

TEST(UndoEventTest, TheFirstRecordGoesToIndexOneAndRecordZeroIsNeverWritten)
{
    UndoEvent step;
    step.Add(7, UndoEvent::Removed, "text");
    EXPECT_EQ(step.Max(), 1);
    EXPECT_EQ(step.Count(), 2);
    EXPECT_EQ(step.Line(1), 7);
    EXPECT_EQ(step.EventType(1), 3);
    EXPECT_EQ(step.Text(1), "text");
    EXPECT_EQ(step.Line(0), 0);
    EXPECT_EQ(step.EventType(0), 0);
    EXPECT_EQ(step.Text(0), "");
}

TEST(UndoEventTest, AfterNAdditionsMaxIsN)
{
    UndoEvent step;
    for (int n = 1; n <= 70'000; ++n) {
        step.Add(static_cast<qint16>(n % 32767), UndoEvent::Inserted, {});
        ASSERT_EQ(step.Max(), n);
        ASSERT_EQ(step.Count(), n + 1);
    }
}

TEST(UndoEventTest, TheTypesHaveTheirNumbers)
{
    EXPECT_EQ(UndoEvent::Empty, 0);
    EXPECT_EQ(UndoEvent::Inserted, 1);
    EXPECT_EQ(UndoEvent::Changed, 2);
    EXPECT_EQ(UndoEvent::Removed, 3);
}

TEST(UndoEventTest, ARecordThatIsNotThereIsAnInvalidCall)
{
    UndoEvent step;
    step.Add(0, UndoEvent::Inserted, {});
    EXPECT_THROW((void)step.Line(2), RuntimeError);
    EXPECT_THROW((void)step.Text(-1), RuntimeError);
}

} // namespace

#include "tests/integration/RandomUse.h"

#include <QPixmapCache>

#include <malloc.h>

#include <algorithm>
#include <vector>

namespace {

constexpr int rounds = 6;

/// In bytes: what has been allocated and not freed.
qint64 liveHeap()
{
    const struct mallinfo2 heap = mallinfo2();
    return qint64(heap.uordblks) + qint64(heap.hblkhd);
}

class LongUse : public RandomUse
{
protected:
    /// The toolkit keeps the pictures of buttons and icons for a while, each window's own.
    void SetUp() override { QPixmapCache::setCacheLimit(0); }
    void TearDown() override { QPixmapCache::setCacheLimit(m_cacheLimit); }

    /// Closes everything, as at the end of the program, and forgets what the test itself has noted.
    void rest()
    {
        while (!documentsOpen.empty())
            forget(documentsOpen.back().form);
        window.reset();
        settle();
        history = {};
        told.said = {};
        expectedSaid = {};
        associations.calls = {};
        accounts.calls = {};
        directory.calls = {};
        registry.calls = {};
        fileSystem.asked = {};
    }

private:
    const int m_cacheLimit = QPixmapCache::cacheLimit();
};

// Broken by whatever keeps what a closed document, editor or dialog was made of, also where something still points to
// it. What is kept of some rounds only, such as characters that were not shown before, is none of that.
TEST_P(LongUse, KeepsNothingOfWhatWasClosed)
{
    constexpr qint64 noGrowth = 2'048;
    rest();
    const qsizetype widgets = QApplication::allWidgets().size();
    std::vector<qint64> live;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        startProgram();
        for (int i = 0; i < actionCount() / rounds; ++i)
            act();
        rest();
        EXPECT_EQ(QApplication::allWidgets().size(), widgets) << "round " << round;
        live.push_back(liveHeap());
    }
    qint64 leastGrowth = live.back() - live.front();
    for (size_t round = 1; round < live.size(); ++round)
        leastGrowth = std::min(leastGrowth, live[round] - live[round - 1]);
    EXPECT_LT(leastGrowth, noGrowth) << "bytes more in each of " << rounds << " rounds";
}

INSTANTIATE_TEST_SUITE_P(Seeds, LongUse, testing::Values(9));

} // namespace

#pragma once

#include "platform/Directory.h"

#include <QElapsedTimer>

#include <algorithm>
#include <chrono>

/// Waits for something a piece of time after the other, asking in between whether to go on.
class LdapPatience final
{
public:
    enum class End { Done, TimedOut, Cancelled };

    LdapPatience(std::chrono::milliseconds limit, const Directory::GoOn &goOn)
        : m_limit(limit)
        , m_goOn(goOn)
    {
        m_since.start();
    }

    /// @param isDone waits for as long as it is told and says whether it has come
    template<class IsDone>
    [[nodiscard]] End waitFor(const IsDone &isDone) const
    {
        using std::chrono::milliseconds;
        constexpr milliseconds piece(50);
        for (;;) {
            const milliseconds left = m_limit - milliseconds(m_since.elapsed());
            if (isDone(std::clamp(left, milliseconds(0), piece)))
                return End::Done;
            if (left <= milliseconds(0))
                return End::TimedOut;
            if (m_goOn && !m_goOn())
                return End::Cancelled;
        }
    }

private:
    std::chrono::milliseconds m_limit;
    const Directory::GoOn &m_goOn;
    QElapsedTimer m_since;
};

#include "platform/linux/LockPatience.h"

std::chrono::milliseconds LockPatience::at(Clock::time_point now) const
{
    const bool isSameCommand = m_gaveUp && now - *m_gaveUp < sameCommand;
    return isSameCommand ? std::chrono::milliseconds(0) : whole;
}

#pragma once

#include <chrono>
#include <optional>

/// How long the store is waited for while another program has it locked: long, unless another operation has just waited
/// in vain. One command of the user is many operations, and all of them together must not keep the user waiting longer
/// than one.
class LockPatience final
{
public:
    using Clock = std::chrono::steady_clock;

    /// Another program's change takes milliseconds; whoever waits longer is told.
    static constexpr std::chrono::milliseconds whole{5000};
    /// An operation that begins within this time after another gave up is one of the same command.
    static constexpr std::chrono::milliseconds sameCommand{1000};

    /// How long an operation waits that begins now.
    [[nodiscard]] std::chrono::milliseconds at(Clock::time_point now) const;

    void gaveUp(Clock::time_point now) { m_gaveUp = now; }

private:
    std::optional<Clock::time_point> m_gaveUp;
};

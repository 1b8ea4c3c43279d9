#pragma once

#include <functional>

/// What asks the program from outside, past its windows, to end.
class EndRequests
{
public:
    EndRequests() = default;
    EndRequests(const EndRequests &) = delete;
    EndRequests &operator=(const EndRequests &) = delete;
    virtual ~EndRequests() = default;

    /// Has asked called each time the program is asked to end, from the event loop of the thread that calls this, for
    /// as long as this object lives. To be called once.
    virtual void listen(const std::function<void()> &asked) = 0;
};

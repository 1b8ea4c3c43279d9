#pragma once

#include <qt_windows.h>

/// As long as one of these stands, the system does not ask the user for the medium of an empty drive: what needs it
/// fails at once.
class NoMediumQuestions final
{
public:
    NoMediumQuestions() { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &m_before); }
    NoMediumQuestions(const NoMediumQuestions &) = delete;
    NoMediumQuestions &operator=(const NoMediumQuestions &) = delete;
    ~NoMediumQuestions() { ::SetThreadErrorMode(m_before, nullptr); }

private:
    DWORD m_before = 0;
};

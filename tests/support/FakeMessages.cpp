#include "tests/support/FakeMessages.h"

#include <gtest/gtest.h>

#include <utility>

FakeMessages::~FakeMessages()
{
    verify();
}

void FakeMessages::expectShow(const QString &text, Icon icon, const QString &title)
{
    m_expected.push_back({false, text, title, icon, Buttons::YesNo, Answer::No});
}

void FakeMessages::expectAsk(const QString &text, Buttons buttons, Answer answer)
{
    m_expected.push_back({true, text, {}, Icon::Question, buttons, answer});
}

void FakeMessages::verify()
{
    for (const Expected &missing : std::exchange(m_expected, {}))
        ADD_FAILURE() << "expected, but did not come: " << missing.text.toStdString();
}

void FakeMessages::show(const QString &text, Icon icon, const QString &title)
{
    if (standIn) {
        standIn->show(text, icon, title);
        return;
    }
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected message: " << text.toStdString();
        return;
    }
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    EXPECT_FALSE(expected.isQuestion) << "a message where a question was expected: " << text.toStdString();
    EXPECT_EQ(text, expected.text);
    EXPECT_EQ(icon, expected.icon);
    EXPECT_EQ(title, expected.title);
}

Messages::Answer FakeMessages::ask(const QString &text, Buttons buttons, Icon icon, const QString &title)
{
    if (standIn)
        return standIn->ask(text, buttons, icon, title);
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected question: " << text.toStdString();
        return Answer::Cancel;
    }
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    EXPECT_TRUE(expected.isQuestion) << "a question where a message was expected: " << text.toStdString();
    EXPECT_EQ(text, expected.text);
    EXPECT_EQ(buttons, expected.buttons);
    return expected.answer;
}

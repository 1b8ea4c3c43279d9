#pragma once

#include "platform/Messages.h"

#include <QStringList>

#include <deque>

/// The user in a test. Every message and question has to be expected, in order; one that is not fails the test, and so
/// does one that was expected and did not come.
class FakeMessages final : public Messages
{
public:
    FakeMessages() = default;
    ~FakeMessages() override;

    void expectShow(const QString &text, Icon icon = Icon::None, const QString &title = {});
    void expectAsk(const QString &text, Buttons buttons, Answer answer);

    /// Fails when something expected has not come yet.
    void verify();

    /// Whether something expected has not come yet.
    [[nodiscard]] bool isExpecting() const { return !m_expected.empty(); }

    /// Who is told and asked instead, while it is set; nothing has to be expected then.
    Messages *standIn = nullptr;

    void show(const QString &text, Icon icon, const QString &title) override;
    [[nodiscard]] Answer ask(const QString &text, Buttons buttons, Icon icon, const QString &title) override;

private:
    struct Expected
    {
        bool isQuestion;
        QString text;
        QString title;
        Icon icon;
        Buttons buttons;
        Answer answer;
    };

    std::deque<Expected> m_expected;
};

#pragma once

#include "platform/PasswordScrambler.h"

#include <algorithm>

/// Turns passwords round, and has them in angle brackets while they are scrambled.
class FakeScrambler final : public PasswordScrambler
{
public:
    [[nodiscard]] std::optional<QString> scramble(const QString &password) override
    {
        return isMissing ? std::nullopt : std::optional(u'<' + turned(password) + u'>');
    }

    [[nodiscard]] std::optional<QString> unscramble(const QString &scrambled) override
    {
        return isMissing ? std::nullopt : std::optional(turned(scrambled.mid(1, scrambled.size() - 2)));
    }

    bool isMissing = false;

private:
    [[nodiscard]] static QString turned(QString text)
    {
        std::reverse(text.begin(), text.end());
        return text;
    }
};

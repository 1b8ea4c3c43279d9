#pragma once

#include <QString>

#include <optional>

/// Scrambles passwords, so that they do not stand in a configuration in clear, and back. How is the business of the
/// monitor's own library.
class PasswordScrambler
{
public:
    PasswordScrambler() = default;
    PasswordScrambler(const PasswordScrambler &) = delete;
    PasswordScrambler &operator=(const PasswordScrambler &) = delete;
    virtual ~PasswordScrambler() = default;

    /// Nothing when it cannot be done: the library is not there, or the password has characters that it cannot take.
    [[nodiscard]] virtual std::optional<QString> scramble(const QString &password) = 0;
    [[nodiscard]] virtual std::optional<QString> unscramble(const QString &scrambled) = 0;
};

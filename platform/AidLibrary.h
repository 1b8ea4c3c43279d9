#pragma once

#include "platform/PasswordScrambler.h"

#include <QStringConverter>

/// The monitor's library with AidScramble() and AidUnscramble(), which rewrite a text of 8-bit characters in place. It
/// is looked for each time, so that it may be installed while the program runs.
class AidLibrary final : public PasswordScrambler
{
public:
    /// @param name the library's file, which the system looks for where it looks for libraries, or its whole path
    /// @param codePage what the 8-bit characters are
    AidLibrary(const QString &name, QStringConverter::Encoding codePage);

    [[nodiscard]] std::optional<QString> scramble(const QString &password) override;
    [[nodiscard]] std::optional<QString> unscramble(const QString &scrambled) override;

private:
    [[nodiscard]] std::optional<QString> rewrite(const char *function, const QString &text, qsizetype zeros) const;

    QString m_name;
    QStringConverter::Encoding m_codePage;
};

#pragma once

#include <QString>

/// Flags that are taken out of a flags text one by one. Names are compared with regard to case, and what is taken is
/// always the first occurrence, wherever it stands: also one inside of something else.

/// The two positions of ExtractOption()'s numeric switch; they decide what the result is.
struct NotNumeric
{
};
struct Numeric
{
};

/// Takes a flag out of a flags text. @return 1 when it was there, 0 when not; the text is unchanged then
[[nodiscard]] int ExtractOption(QString &flags, QLatin1String name, NotNumeric);

/// Takes an option out of a flags text, together with the number behind it.
/// @return the number as it stands; empty when the option is not there, or stands there without a number: it is taken
///     out then too
[[nodiscard]] QString ExtractOption(QString &flags, QLatin1String name, Numeric);

/// Whether a character belongs to the number behind an option: a digit, or "-" in front of one. A "-" may stand
/// anywhere, so that "10-2" is taken whole; configurations out there rely on it.
/// @param found where the option's name begins
/// @param count how many characters of the number have been taken so far
[[nodiscard]] bool IsNumberCharAt(const QString &flags, QLatin1String name, qsizetype found, qsizetype count);

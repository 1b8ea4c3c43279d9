#pragma once

#include <QStringView>

/// Numbers that are stored as text. Blanks around a number do not count. A number is written in decimal, with a point,
/// a sign and an exponent ("E" or "D") where it has them, whatever the user's language; anything else, also no text at
/// all, is no number.
///
/// @throws RuntimeError TypeMismatch for a text that is no number, Overflow for a number beyond the type's range

/// A number between two whole ones becomes the nearest, and one in their middle the even one: 2.5 is 2.
[[nodiscard]] qint16 integerOf(QStringView text);
[[nodiscard]] qint32 longOf(QStringView text);
[[nodiscard]] double numberOf(QStringView text);

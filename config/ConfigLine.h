#pragma once

#include "config/ItemKind.h"

#include <QString>

/// One configuration line: a prefix ("", "=", "==", "!" or "!!") directly in front of the object, the object (in double
/// quotes when it holds a space), a space and the flags. To trim is to remove leading and trailing spaces, nothing
/// else.

/// Where the older parser differs from the document's own.
enum class ParseRule {
    /// A last space inside quotes belongs to the object; everything behind the last space is flags.
    Document,
    /// The last space splits even inside quotes, and the flags are at most as long as the text in front of them.
    Older,
};

/// Takes a line apart. No line is rejected.
/// @param prefix written only when the line has one; pass it in empty
/// @throws RuntimeError InvalidCall when all that is left of the object is one double quote
void parseLine(const QString &line, ParseRule rule, QString &prefix, QString &object, QString &flags);

/// The kind of a line, by the shape of its object.
[[nodiscard]] ItemKind GetItemType(const QString &line);

/// An object as it is stored: printable ASCII, with everything else as EscapeNonPrintable() writes it. A byte that was
/// carried over from an old file is written as the character that it is shown as.
[[nodiscard]] QString EscapeObject(const QString &object);

/// Whether flags are set off from the object. A line that is added while no row is selected gets its flags directly
/// behind the object; configurations out there rely on what the program has always written, so this stays.
enum class FlagsSpace { Yes, No };

/// Puts a line together. The flags are taken as they are.
[[nodiscard]] QString assembleLine(const QString &object, const QString &prefix, const QString &flags,
                                   FlagsSpace space);

/// Removes leading and trailing spaces, and only spaces.
[[nodiscard]] QString trimSpaces(const QString &text);

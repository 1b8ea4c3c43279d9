#pragma once

#include <QString>
#include <QStringList>

/// Distinguished names as text (RFC 4514): relative names, from the entry up to the root, with commas between them. A
/// character that would mean something stands behind a backslash, or as a backslash and the two hexadecimal digits of
/// each of its UTF-8 bytes. The older quoted form (RFC 2253, section 4) is understood too.

/// The relative names of a distinguished name, each without the blanks around it.
[[nodiscard]] QStringList relativeNames(const QString &distinguishedName);

/// A form in which two spellings of a relative name are equal: escapes are resolved and letters in upper case. What
/// separates the parts of a name of several values is still told from the same character in a value.
[[nodiscard]] QString comparableName(const QString &relativeName);

/// A distinguished name of the same meaning without "?" and "%", which mean something in a URL, and of printable ASCII
/// characters only, which stay as they are in a line of a configuration.
[[nodiscard]] QString nameForUrl(const QString &distinguishedName);

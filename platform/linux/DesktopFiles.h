#pragma once

#include <QByteArray>

/// The files in which desktops keep what opens what, as texts. Everything here is a function of texts alone.

/// A command line of a desktop entry that starts the program with files: its "Exec" key, see freedesktop.org.
[[nodiscard]] QByteArray desktopCommand(const QByteArray &programPath);

/// The desktop entry with the program's path for the one that it has.
[[nodiscard]] QByteArray entryForProgram(const QByteArray &entry, const QByteArray &programPath);

/// A key's text in the group "[Desktop Entry]"; empty when there is none.
[[nodiscard]] QByteArray entryText(const QByteArray &entry, const QByteArray &key);

/// The content of a mimeapps.list in which the type's files open with the entry: "Association between MIME types and
/// applications". The entry stands before the others that the type has; all other lines stay as they are.
[[nodiscard]] QByteArray withDefaultEntry(const QByteArray &list, const QByteArray &mimeType,
                                          const QByteArray &entryName);

#pragma once

#include <QString>

/// What stands behind the program's name in a command line as Windows hands it over. The name ends at its closing
/// quote, or without one at the first blank; the blanks behind it are dropped.
/// Source: "Parsing C command-line arguments" of the Windows documentation, on the first argument.
[[nodiscard]] QString behindProgramName(const QString &commandLine);

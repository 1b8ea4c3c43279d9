#pragma once

#include "platform/Platform.h"

#include <QStringList>

/// The files that the command line names, in order.
///
/// Where the system hands over one raw text: a text that begins with a double quote is one path without its first and
/// last character, blanks and all; any other is split at every space, so an unquoted path with blanks is taken for
/// several files. Where the shell has taken the arguments apart, every argument is one path.
[[nodiscard]] QStringList filesOfCommandLine(const CommandLine &commandLine);

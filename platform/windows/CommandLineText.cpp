#include "platform/windows/CommandLineText.h"

QString behindProgramName(const QString &commandLine)
{
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    qsizetype at = 0;
    // Quotes may stand anywhere in the name: they only say whether a blank ends it.
    for (bool isQuoted = false; at < commandLine.size() && (isQuoted || !isBlank(commandLine[at])); ++at) {
        if (commandLine[at] == QLatin1Char('"'))
            isQuoted = !isQuoted;
    }
    while (at < commandLine.size() && isBlank(commandLine[at]))
        ++at;
    return commandLine.sliced(at);
}

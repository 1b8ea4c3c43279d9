#include "app/CommandLineFiles.h"

QStringList filesOfCommandLine(const CommandLine &commandLine)
{
    if (!commandLine.rawText)
        return commandLine.arguments;
    const QString &text = *commandLine.rawText;
    if (text.isEmpty())
        return {};
    if (text.startsWith(u'"'))
        return {text.mid(1, qMax(qsizetype(0), text.size() - 2))};
    return text.split(u' ', Qt::SkipEmptyParts);
}

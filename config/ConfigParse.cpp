#include "config/ConfigParse.h"

#include "config/ConfigLine.h"
#include "platform/RuntimeError.h"

void ConfigParse::ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const
{
    parseLine(line, ParseRule::Older, prefix, object, flags);
}

QStringList ConfigParse::ParseFile(const QString &text) const
{
    QString uniform = text;
    uniform.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    QStringList lines = uniform.split(u'\n');
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    // The search for a line that is not empty has always asked for one more line before looking whether there is one.
    if (lines.isEmpty())
        throw RuntimeError(RuntimeError::InvalidCall);
    return lines;
}

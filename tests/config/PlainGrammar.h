#pragma once

#include <QString>
#include <QStringList>

/// The line grammar once more, written for comparison as plainly as it can be told: step by step over characters
/// counted from 1, without regard to speed, and sharing nothing with the program's own.
namespace plain {

/// The error of a text function that is asked for a negative length.
struct NegativeLength
{
};

struct Parts
{
    QString prefix;
    QString object;
    QString flags;

    bool operator==(const Parts &) const = default;
};

Parts parseAsDocument(QString line);
Parts parseAsOlderParser(QString line);

/// 0 Other, 1 File, 2 Registry, 3 Line, 4 User, 5 Group, 6 Directory Service, 7 User Right, 8 Account Policy,
/// 9 Audit Policy.
int kindOf(QString line);

QString escape(const QString &text);

/// @param hasSpace whether the flags are set off by a space
QString assemble(const QString &object, const QString &prefix, const QString &flags, bool hasSpace);

/// @throws NegativeLength when every line is empty
QStringList linesOf(const QString &text);

/// The text that is written for rows.
QString textOf(const QStringList &rows);

} // namespace plain

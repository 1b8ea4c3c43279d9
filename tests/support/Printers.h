#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>

#include <iosfwd>

// How a failed comparison shows values of Qt's types, which would be bytes otherwise. Every file of the tests has these
// without including them: the value would be shown in one way or the other by chance, where files differ in it.

void PrintTo(const QString &text, std::ostream *stream);
void PrintTo(const QByteArray &bytes, std::ostream *stream);
void PrintTo(const QPoint &point, std::ostream *stream);
void PrintTo(const QSize &size, std::ostream *stream);
void PrintTo(const QRect &rect, std::ostream *stream);

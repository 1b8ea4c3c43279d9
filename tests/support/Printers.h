#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QStringList>

#include <iosfwd>

/// How a failed comparison shows values of Qt's types.
void PrintTo(const QString &text, std::ostream *stream);
void PrintTo(const QByteArray &bytes, std::ostream *stream);
void PrintTo(const QRect &rect, std::ostream *stream);

/// Test parameters are named after a case's name; anything but letters and digits becomes "_".
[[nodiscard]] QByteArray caseName(const QString &name);

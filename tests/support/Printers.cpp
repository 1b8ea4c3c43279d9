#include "tests/support/Printers.h"

#include <QDebug>

#include <ostream>

namespace {

template<class T>
void printThroughDebug(const T &value, std::ostream *stream)
{
    QString text;
    QDebug(&text).nospace() << value;
    *stream << text.toStdString();
}

} // namespace

void PrintTo(const QString &text, std::ostream *stream)
{
    printThroughDebug(text, stream);
}

void PrintTo(const QByteArray &bytes, std::ostream *stream)
{
    printThroughDebug(bytes, stream);
}

void PrintTo(const QPoint &point, std::ostream *stream)
{
    printThroughDebug(point, stream);
}

void PrintTo(const QSize &size, std::ostream *stream)
{
    printThroughDebug(size, stream);
}

void PrintTo(const QRect &rect, std::ostream *stream)
{
    printThroughDebug(rect, stream);
}

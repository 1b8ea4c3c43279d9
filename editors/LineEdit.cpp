#include "editors/LineEdit.h"

#include <limits>

LineEdit::LineEdit(QLatin1String name, QWidget *parent)
    : QLineEdit(parent)
{
    setObjectName(name);
    // Without this it would cut off a long line.
    setMaxLength(std::numeric_limits<int>::max());
}

QString LineEdit::line() const
{
    return text().replace(u'\r', u' ').replace(u'\n', u' ');
}

#include "settings/NumberText.h"

#include "platform/RuntimeError.h"

#include <QLocale>
#include <QRegularExpression>
#include <QString>

#include <cmath>
#include <limits>

namespace {

template<class Integer>
Integer wholeNumberOf(QStringView text)
{
    // Rounds to the even one, as the system does where nobody has told it otherwise.
    const double number = std::nearbyint(numberOf(text));
    if (number < std::numeric_limits<Integer>::min() || number > std::numeric_limits<Integer>::max())
        throw RuntimeError(RuntimeError::Overflow);
    return static_cast<Integer>(number);
}

} // namespace

qint16 integerOf(QStringView text)
{
    return wholeNumberOf<qint16>(text);
}

qint32 longOf(QStringView text)
{
    return wholeNumberOf<qint32>(text);
}

double numberOf(QStringView text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A[ \\t]*([+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+))(?:[EeDd]([+-]?[0-9]+))?[ \\t]*\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        throw RuntimeError(RuntimeError::TypeMismatch);
    const QString exponent = match.hasCaptured(2) ? match.captured(2) : QStringLiteral("0");
    // What is too small to be told from zero is zero.
    const double number = QLocale::c().toDouble(match.captured(1) + QLatin1Char('e') + exponent);
    if (!std::isfinite(number))
        throw RuntimeError(RuntimeError::Overflow);
    return number;
}

#include "settings/DataSourceNames.h"

#include "platform/DataSources.h"

#include <QByteArray>
#include <QScopeGuard>

#include <algorithm>
#include <limits>

using Result = DataSources::Result;

namespace {

struct Enumeration
{
    Result last = Result::NoData;
    QStringList names;
    /// Of all names, without an end mark.
    qint16 longest = 0;
};

Enumeration enumerate(DataSources &sources, DataSources::Environment environment, qint16 size)
{
    Enumeration found;
    QByteArray name(size, '\0');
    quint16 direction = DataSources::FetchFirst;
    for (;;) {
        qint16 length = 0;
        found.last = sources.SQLDataSources(environment, direction, name.data(), size, &length);
        if (found.last != Result::Success && found.last != Result::SuccessWithInfo)
            return found;
        found.names << QString::fromLocal8Bit(name.constData());
        found.longest = std::max(found.longest, length);
        direction = DataSources::FetchNext;
    }
}

} // namespace

std::optional<QStringList> dataSourceNames(DataSources &sources)
{
    // The manual allows 32 characters; what people write into the configuration may be longer.
    constexpr qint16 usualSize = 256;

    DataSources::Environment environment = nullptr;
    const Result allocated = sources.SQLAllocEnv(&environment);
    if (allocated != Result::Success && allocated != Result::SuccessWithInfo)
        return std::nullopt;
    const auto free = qScopeGuard([&] { (void)sources.SQLFreeEnv(environment); });

    Enumeration found = enumerate(sources, environment, usualSize);
    if (found.longest >= usualSize && found.longest < std::numeric_limits<qint16>::max())
        found = enumerate(sources, environment, static_cast<qint16>(found.longest + 1));
    if (found.last != Result::NoData)
        return std::nullopt;
    return found.names;
}

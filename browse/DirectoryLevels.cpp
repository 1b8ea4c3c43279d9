#include "browse/DirectoryLevels.h"

#include "platform/DistinguishedName.h"

#include <algorithm>

std::optional<QStringList> levelsBelow(const QString &distinguishedName, const QString &context)
{
    const QStringList names = relativeNames(distinguishedName);
    const QStringList top = relativeNames(context);
    if (names.size() < top.size() || !std::equal(top.rbegin(), top.rend(), names.rbegin(), isSameName))
        return std::nullopt;
    QStringList levels = names.mid(0, names.size() - top.size());
    std::reverse(levels.begin(), levels.end());
    return levels;
}

bool isSameName(const QString &one, const QString &other)
{
    return comparableName(one) == comparableName(other);
}

QStringList possibleContexts(const QString &distinguishedName)
{
    const QStringList names = relativeNames(distinguishedName);
    QStringList contexts;
    for (qsizetype count = 1; count <= names.size(); ++count) {
        const QString context = names.mid(names.size() - count).join(u',');
        if (context.compare(QLatin1String("DC=COM"), Qt::CaseInsensitive) != 0)
            contexts << context;
    }
    return contexts;
}

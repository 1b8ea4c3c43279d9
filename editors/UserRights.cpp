#include "editors/UserRights.h"

#include "config/ConfigLine.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr QLatin1String tag("USERRIGHT:");
constexpr QLatin1String allRights("*");
constexpr QChar comma = u',';

const UserRight *rightOf(const QString &name)
{
    return std::find_if(userRights.begin(), userRights.end(),
                        [&](const UserRight &right) { return name.compare(right.name, Qt::CaseInsensitive) == 0; });
}

} // namespace

QString buildUserRights(const UserRightsText &rights)
{
    if (rights.isAll)
        return tag + allRights;
    QString names;
    for (size_t i = 0; i < userRights.size(); ++i) {
        if (rights.listed[i])
            names += comma + userRights[i].name;
    }
    const QString others = trimSpaces(rights.others);
    if (!others.isEmpty())
        names += comma + others;
    if (names.startsWith(comma))
        names.remove(0, 1);
    return tag + names;
}

UserRightsText parseUserRights(const QString &object)
{
    UserRightsText rights;
    const QString names = object.mid(tag.size()).remove(u' ');
    // No name at all has always been read as all rights, also where an earlier edit left the list empty.
    if (names.isEmpty() || names == allRights) {
        rights.isAll = true;
        return rights;
    }
    QStringList others;
    for (const QString &name : names.split(comma, Qt::SkipEmptyParts)) {
        const UserRight *right = rightOf(name);
        if (right == userRights.end())
            others << name;
        else
            rights.listed.set(size_t(right - userRights.begin()));
    }
    rights.others = others.join(comma);
    return rights;
}

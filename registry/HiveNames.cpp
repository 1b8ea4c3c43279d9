#include "registry/HiveNames.h"

#include "registry/RegistryConstants.h"

#include <algorithm>

using RegistryConstants::Hive;
using RegistryConstants::hives;

QString shortHiveName(const QString &name)
{
    const auto hive = std::find_if(hives.begin(), hives.end(), [&name](const Hive &row) { return row.name == name; });
    return hive == hives.end() ? name : QString(hive->shown);
}

QString fullHiveName(const QString &shortName)
{
    const auto hive =
        std::find_if(hives.begin(), hives.end(), [&shortName](const Hive &row) { return row.understood == shortName; });
    return hive == hives.end() ? shortName : QString(hive->name);
}

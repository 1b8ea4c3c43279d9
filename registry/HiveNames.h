#pragma once

#include <QString>

/// The short name under which a hive is shown; any other text as it is.
[[nodiscard]] QString shortHiveName(const QString &name);

/// The hive's name for a short one; any other text as it is. "HKDN", which shortHiveName() gives, is such a text.
[[nodiscard]] QString fullHiveName(const QString &shortName);

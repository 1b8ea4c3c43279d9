#pragma once

#include <QString>

class Registry;

/// The monitored product's registration, of the release whose key's name is the greatest in text order. Failures are
/// not told: they give an empty text.

/// The text of one of its values, up to the first character of code 0.
[[nodiscard]] QString ProductValue(Registry &registry, const QString &name);

/// Where the product is installed; empty when it is not.
[[nodiscard]] QString InstallationDirectory(Registry &registry);

/// The number that the first byte of its value "relver" is; 0 when there is none.
[[nodiscard]] qint16 ReleaseNumber(Registry &registry);

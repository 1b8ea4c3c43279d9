#pragma once

#include <QStringList>

#include <optional>

class DataSources;

/// The names of the data sources of this machine, in the driver manager's order. Nothing when it cannot tell.
[[nodiscard]] std::optional<QStringList> dataSourceNames(DataSources &sources);

#pragma once

#include "platform/DataSources.h"

/// The driver manager that the program is linked with: the system's on Windows, unixODBC on Linux.
class OdbcDataSources final : public DataSources
{
public:
    Result SQLAllocEnv(Environment *environment) override;
    Result SQLDataSources(Environment environment, quint16 direction, char *name, qint16 nameSize,
                          qint16 *nameLength) override;
    Result SQLFreeEnv(Environment environment) override;
};

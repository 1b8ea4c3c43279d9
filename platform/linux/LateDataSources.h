#pragma once

#include "platform/DataSources.h"

#include <QStringList>

#include <functional>
#include <memory>

/// The data sources of unixODBC, from the library of services, which is loaded when they are first asked for. When that
/// fails, there is no environment: SQLAllocEnv() gives Error.
class LateDataSources final : public DataSources
{
public:
    /// What the library has under the name "makeDataSources".
    using Make = DataSources *();

    /// @param folders where the library may be, asked for when it is loaded
    explicit LateDataSources(std::function<QStringList()> folders);

    Result SQLAllocEnv(Environment *environment) override;
    Result SQLDataSources(Environment environment, quint16 direction, char *name, qint16 nameSize,
                          qint16 *nameLength) override;
    Result SQLFreeEnv(Environment environment) override;

private:
    std::function<QStringList()> m_folders;
    std::unique_ptr<DataSources> m_dataSources;
};

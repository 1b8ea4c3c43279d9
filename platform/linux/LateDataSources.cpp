#include "platform/linux/LateDataSources.h"

#include "platform/linux/ServiceLibrary.h"

#include <utility>

LateDataSources::LateDataSources(std::function<QStringList()> folders)
    : m_folders(std::move(folders))
{
}

DataSources::Result LateDataSources::SQLAllocEnv(Environment *environment)
{
    *environment = nullptr;
    if (!m_dataSources) {
        QString problem;
        const auto make = reinterpret_cast<Make *>(ServiceLibrary::function("makeDataSources", m_folders(), problem));
        if (!make)
            return Result::Error;
        m_dataSources.reset(make());
    }
    return m_dataSources->SQLAllocEnv(environment);
}

DataSources::Result LateDataSources::SQLDataSources(Environment environment, quint16 direction, char *name,
                                                    qint16 nameSize, qint16 *nameLength)
{
    return m_dataSources ? m_dataSources->SQLDataSources(environment, direction, name, nameSize, nameLength)
                         : Result::InvalidHandle;
}

DataSources::Result LateDataSources::SQLFreeEnv(Environment environment)
{
    return m_dataSources ? m_dataSources->SQLFreeEnv(environment) : Result::InvalidHandle;
}

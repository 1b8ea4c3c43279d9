#include "platform/OdbcDataSources.h"

#include "OdbcInterface.h"

static_assert(DataSources::FetchNext == SQL_FETCH_NEXT && DataSources::FetchFirst == SQL_FETCH_FIRST);
static_assert(qint16(DataSources::Result::NoData) == SQL_NO_DATA);

DataSources::Result OdbcDataSources::SQLAllocEnv(Environment *environment)
{
    *environment = nullptr;
    return static_cast<Result>(::SQLAllocEnv(environment));
}

DataSources::Result OdbcDataSources::SQLDataSources(Environment environment, quint16 direction, char *name,
                                                    qint16 nameSize, qint16 *nameLength)
{
    SQLSMALLINT descriptionLength = 0;
    return static_cast<Result>(::SQLDataSources(environment, direction, reinterpret_cast<SQLCHAR *>(name), nameSize,
                                                nameLength, nullptr, 0, &descriptionLength));
}

DataSources::Result OdbcDataSources::SQLFreeEnv(Environment environment)
{
    return static_cast<Result>(::SQLFreeEnv(environment));
}

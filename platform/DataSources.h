#pragma once

#include <QtGlobal>

/// The data sources of this machine, as the ODBC driver manager knows them. The operations are its functions, with
/// their names, their buffers and their results; their manual is the one of ODBC ("ODBC API Reference"). Texts are
/// 8-bit, in the system's own encoding.
class DataSources
{
public:
    using Environment = void *;

    // clang-format off
    enum class [[nodiscard]] Result : qint16 {
        Success         = 0,
        SuccessWithInfo = 1,
        NoData          = 100,
        Error           = -1,
        InvalidHandle   = -2,
    };

    static constexpr quint16 FetchNext  = 1;
    static constexpr quint16 FetchFirst = 2;
    // clang-format on

    DataSources() = default;
    DataSources(const DataSources &) = delete;
    DataSources &operator=(const DataSources &) = delete;
    virtual ~DataSources() = default;

    /// @param environment to be given back with SQLFreeEnv(); null when it fails
    virtual Result SQLAllocEnv(Environment *environment) = 0;

    /// The first data source or the one after that which was given last; NoData behind the last one.
    /// @param nameSize the size of name, with room for an end mark; a longer name is cut to it (SuccessWithInfo)
    /// @param nameLength the length of the whole name without an end mark
    virtual Result SQLDataSources(Environment environment, quint16 direction, char *name, qint16 nameSize,
                                  qint16 *nameLength) = 0;

    virtual Result SQLFreeEnv(Environment environment) = 0;
};

#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

class Config;
class SettingsReader;

/// The database connection as the options have it.
struct OdbcConnection
{
    QString dsn;
    QString user;
    QString db;
    QString driver;
    QString server;

    bool operator==(const OdbcConnection &) const = default;
};

/// What the user has given in the options.
struct OptionValues
{
    qint16 autoStart = 0;
    qint16 remote = 0;
    qint32 refreshHost = 0;
    qint32 refreshCommand = 0;
    qint32 refreshProp = 0;
    qint16 edit = 0;
    OdbcConnection odbc;
};

/// What is stored; reader knows what could not be read and has its default.
[[nodiscard]] OptionValues readOptions(SettingsReader &reader);

/// Stores all of them, and between the refresh intervals and the default editor has the windows told.
/// @throws RuntimeError RegistryError at the first that cannot be stored for lack of rights, and DeviceError when the
///         registry has not kept all of them as they are: it was full, or a text is too long or has characters that are
///         not in its code page
void applyOptions(Config &config, const OptionValues &values, const std::function<void()> &updateTimers);

#include "settings/OptionValues.h"

#include "platform/RuntimeError.h"
#include "settings/Config.h"
#include "settings/SettingsReader.h"

#include <QCoreApplication>
#include <QStringList>

#include <array>
#include <utility>

namespace {

/// What must be stored now, by its setting.
auto storedTexts(const OptionValues &values)
{
    using namespace ConfigSettings;
    return std::array{
        std::pair(autoStart, QString::number(values.autoStart)),
        std::pair(remote, QString::number(values.remote)),
        std::pair(refreshHost, QString::number(values.refreshHost)),
        std::pair(refreshCommand, QString::number(values.refreshCommand)),
        std::pair(refreshProp, QString::number(values.refreshProp)),
        std::pair(edit, QString::number(values.edit)),
        std::pair(odbcDsn, values.odbc.dsn),
        std::pair(odbcUser, values.odbc.user),
        std::pair(odbcDb, values.odbc.db),
        std::pair(odbcDriver, values.odbc.driver),
        std::pair(odbcServer, values.odbc.server),
    };
}

void requireStored(const Config &config, const OptionValues &values)
{
    QStringList missing;
    for (const auto &[setting, text] : storedTexts(values)) {
        if (!config.isStored(setting, text))
            missing << setting.property;
    }
    if (!missing.isEmpty())
        throw RuntimeError(
            RuntimeError::DeviceError, {},
            QCoreApplication::translate("OptionValues", "The registry does not store these settings as they are: %1")
                .arg(missing.join(QStringLiteral(", "))));
}

} // namespace

OptionValues readOptions(SettingsReader &reader)
{
    using namespace ConfigSettings;

    OptionValues values;
    values.autoStart = reader.read(&Config::AutoStart, autoStart);
    values.remote = reader.read(&Config::remote, remote);
    values.edit = reader.read(&Config::Edit, edit);
    values.refreshHost = reader.read(&Config::RefreshHost, refreshHost);
    values.refreshCommand = reader.read(&Config::RefreshCommand, refreshCommand);
    values.refreshProp = reader.read(&Config::RefreshProp, refreshProp);
    values.odbc.dsn = reader.read(&Config::ODBCdsn, odbcDsn);
    values.odbc.user = reader.read(&Config::ODBCuser, odbcUser);
    values.odbc.db = reader.read(&Config::ODBCdb, odbcDb);
    values.odbc.driver = reader.read(&Config::ODBCdriver, odbcDriver);
    values.odbc.server = reader.read(&Config::ODBCserver, odbcServer);
    return values;
}

void applyOptions(Config &config, const OptionValues &values, const std::function<void()> &updateTimers)
{
    config.setAutoStart(values.autoStart);
    config.setremote(values.remote);
    config.setRefreshHost(values.refreshHost);
    config.setRefreshCommand(values.refreshCommand);
    config.setRefreshProp(values.refreshProp);
    updateTimers();
    config.setEdit(values.edit);
    config.setODBCdsn(values.odbc.dsn);
    config.setODBCuser(values.odbc.user);
    config.setODBCdb(values.odbc.db);
    config.setODBCdriver(values.odbc.driver);
    config.setODBCserver(values.odbc.server);
    requireStored(config, values);
}

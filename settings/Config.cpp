#include "settings/Config.h"

#include "registry/RegistryConstants.h"
#include "settings/NumberText.h"
#include "settings/ProductLookup.h"

#include <algorithm>

using RegistryConstants::allAccess;

namespace {

constexpr int highestLimited = 65535;

const QString &softwareKey()
{
    static const QString path = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE");
    return path;
}

} // namespace

Config::Config(Registry &registry)
    : m_registry(registry)
{
    Load();
}

// clang-format off
qint16  Config::OutputFlip() const     { return number(ConfigSettings::outputFlip); }
QString Config::FontName() const       { return text(ConfigSettings::fontName); }
qint16  Config::FontSize() const       { return number(ConfigSettings::fontSize); }
qint32  Config::RefreshHost() const    { return limitedNumber(ConfigSettings::refreshHost); }
qint32  Config::RefreshCommand() const { return limitedNumber(ConfigSettings::refreshCommand); }
qint32  Config::RefreshProp() const    { return limitedNumber(ConfigSettings::refreshProp); }
qint16  Config::AutoStart() const      { return number(ConfigSettings::autoStart); }
QString Config::DSN() const            { return text(ConfigSettings::dsn); }
QString Config::ODBCserver() const     { return text(ConfigSettings::odbcServer); }
QString Config::ODBCuser() const       { return text(ConfigSettings::odbcUser); }
QString Config::ODBCdb() const         { return text(ConfigSettings::odbcDb); }
QString Config::ODBCdriver() const     { return text(ConfigSettings::odbcDriver); }
QString Config::ODBCdsn() const        { return text(ConfigSettings::odbcDsn); }
QString Config::Server() const         { return text(ConfigSettings::server); }
qint16  Config::Edit() const           { return number(ConfigSettings::edit); }
qint16  Config::remote() const         { return number(ConfigSettings::remote); }
qint16  Config::RelVer() const         { return ReleaseNumber(m_registry); }

void Config::setOutputFlip(qint16 number)        { store(ConfigSettings::outputFlip, number); }
void Config::setFontName(const QString &text)    { store(ConfigSettings::fontName, text); }
void Config::setFontSize(qint16 number)          { store(ConfigSettings::fontSize, number); }
void Config::setRefreshHost(qint32 number)       { store(ConfigSettings::refreshHost, number); }
void Config::setRefreshCommand(qint32 number)    { store(ConfigSettings::refreshCommand, number); }
void Config::setRefreshProp(qint32 number)       { store(ConfigSettings::refreshProp, number); }
void Config::setAutoStart(qint16 number)         { store(ConfigSettings::autoStart, number); }
void Config::setDSN(const QString &text)         { store(ConfigSettings::dsn, text); }
void Config::setODBCserver(const QString &text)  { store(ConfigSettings::odbcServer, text); }
void Config::setODBCuser(const QString &text)    { store(ConfigSettings::odbcUser, text); }
void Config::setODBCdb(const QString &text)      { store(ConfigSettings::odbcDb, text); }
void Config::setODBCdriver(const QString &text)  { store(ConfigSettings::odbcDriver, text); }
void Config::setODBCdsn(const QString &text)     { store(ConfigSettings::odbcDsn, text); }
void Config::setServer(const QString &text)      { store(ConfigSettings::server, text); }
void Config::setEdit(qint16 number)              { store(ConfigSettings::edit, number); }
void Config::setremote(qint16 number)            { store(ConfigSettings::remote, number); }
// clang-format on

void Config::Load()
{
    m_applicationKey = QStringLiteral("Tarnwell Software\\ZentilAdmin");
}

void Config::SetSetting(const QString &Section, const QString &Name, const QVariant &Value)
{
    openSection(Section).Value(Name, Value);
}

QVariant Config::GetSetting(const QString &Section, const QString &Name, const QVariant &DefValue) const
{
    const std::optional<clsValue> value = openSection(Section).Value(Name);
    if (!value)
        return DefValue;
    QString text = value->DataString();
    text.remove(QChar(u'\0'));
    // Where the code page has characters of several bytes, the value's text has as many characters for one.
    return m_registry.fromCodePage(text.toLatin1());
}

bool Config::isStored(const Setting &setting, const QString &text) const
{
    return GetSetting(setting.section, setting.name, QVariant()) == QVariant(text);
}

clsKey Config::CreateKey(const QString &Section) const
{
    clsKey software(m_registry);
    software.OpenFull(softwareKey(), {}, 0, allAccess);
    if (!software.KeyOK())
        return software;
    software.AddSubKey(m_applicationKey);
    clsKey application = software.SubKey(m_applicationKey);
    application.OpenKey(allAccess);
    software.CloseKey();
    if (!application.KeyOK())
        return application;
    application.AddSubKey(Section);
    clsKey section = application.SubKey(Section);
    section.OpenKey(allAccess);
    application.CloseKey();
    return section;
}

clsKey Config::openSection(const QString &section) const
{
    clsKey key(m_registry);
    key.OpenFull(softwareKey() + QLatin1Char('\\') + m_applicationKey + QLatin1Char('\\') + section, {}, 0, allAccess);
    if (key.KeyOK())
        return key;
    clsKey made = CreateKey(section);
    // Who may not open the keys above cannot make one below them either, and is told so.
    if (!made.KeyOK())
        made.AddSubKey(section);
    return made;
}

QString Config::text(const Setting &setting) const
{
    return GetSetting(setting.section, setting.name, QString(setting.absent)).toString();
}

qint16 Config::number(const Setting &setting) const
{
    return integerOf(text(setting));
}

qint32 Config::limitedNumber(const Setting &setting) const
{
    const QString stored = text(setting);
    // Also what is beyond the type counts as too high, not as an error.
    return numberOf(stored) > highestLimited ? highestLimited : longOf(stored);
}

void Config::store(const Setting &setting, const QVariant &value)
{
    SetSetting(setting.section, setting.name, value);
}

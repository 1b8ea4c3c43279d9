#pragma once

#include "registry/clsKey.h"

#include <QLatin1String>
#include <QString>
#include <QVariant>

#include <array>

/// The settings of this machine, below HKEY_LOCAL_MACHINE\SOFTWARE and the program's key there, in sections. Each is
/// read and written in the registry at once, as text; reading one makes its section's key.
///
/// Every operation raises RuntimeError RegistryError where a section's key can neither be opened nor made. Reading a
/// number raises TypeMismatch for a text that is none and Overflow for one beyond its range (see NumberText.h). What
/// the registry does not store although its key is open is not told.
class Config final
{
public:
    /// One setting as it is stored. Numbers are 16 bits wide; a limited number has 32 bits and counts up to 65535.
    struct Setting
    {
        enum class Type { Text, Number, LimitedNumber };

        QLatin1String property;
        QLatin1String section;
        QLatin1String name;
        Type type;
        QLatin1String absent;
    };

    explicit Config(Registry &registry);

    [[nodiscard]] qint16 OutputFlip() const;
    [[nodiscard]] QString FontName() const;
    [[nodiscard]] qint16 FontSize() const;
    /// Refresh intervals. A stored number above 65535 reads as 65535; any other as it is, also a negative one.
    [[nodiscard]] qint32 RefreshHost() const;
    [[nodiscard]] qint32 RefreshCommand() const;
    [[nodiscard]] qint32 RefreshProp() const;
    [[nodiscard]] qint16 AutoStart() const;
    [[nodiscard]] QString DSN() const;
    [[nodiscard]] QString ODBCserver() const;
    [[nodiscard]] QString ODBCuser() const;
    [[nodiscard]] QString ODBCdb() const;
    [[nodiscard]] QString ODBCdriver() const;
    [[nodiscard]] QString ODBCdsn() const;
    [[nodiscard]] QString Server() const;
    [[nodiscard]] qint16 Edit() const;
    [[nodiscard]] qint16 remote() const;
    /// The monitored product's release number: see ReleaseNumber() in settings/ProductLookup.h.
    [[nodiscard]] qint16 RelVer() const;

    void setOutputFlip(qint16 number);
    void setFontName(const QString &text);
    void setFontSize(qint16 number);
    void setRefreshHost(qint32 number);
    void setRefreshCommand(qint32 number);
    void setRefreshProp(qint32 number);
    void setAutoStart(qint16 number);
    void setDSN(const QString &text);
    void setODBCserver(const QString &text);
    void setODBCuser(const QString &text);
    void setODBCdb(const QString &text);
    void setODBCdriver(const QString &text);
    void setODBCdsn(const QString &text);
    void setServer(const QString &text);
    void setEdit(qint16 number);
    void setremote(qint16 number);

    /// Names the program's key. Done when the object is made.
    void Load();

    void SetSetting(const QString &Section, const QString &Name, const QVariant &Value);

    /// The stored text without its characters of code 0, or DefValue when there is no such value or it is longer than
    /// the registry layer reads.
    [[nodiscard]] QVariant GetSetting(const QString &Section, const QString &Name, const QVariant &DefValue) const;

    /// Whether a setting is stored as this text. The registry layer does not tell what could not be stored: it was
    /// full, or the text is too long or has characters that are not in its code page.
    [[nodiscard]] bool isStored(const Setting &setting, const QString &text) const;

    /// The section's key, open, after making it and the program's key where they are missing. One that is not open
    /// says that HKEY_LOCAL_MACHINE\SOFTWARE or a key just made could not be opened.
    [[nodiscard]] clsKey CreateKey(const QString &Section) const;

private:
    [[nodiscard]] clsKey openSection(const QString &section) const;
    [[nodiscard]] QString text(const Setting &setting) const;
    [[nodiscard]] qint16 number(const Setting &setting) const;
    [[nodiscard]] qint32 limitedNumber(const Setting &setting) const;
    void store(const Setting &setting, const QVariant &value);

    Registry &m_registry;
    QString m_applicationKey;
};

/// Every setting, one row each.
namespace ConfigSettings {

using namespace Qt::StringLiterals;
using Setting = Config::Setting;
using enum Setting::Type;

// clang-format off
inline constexpr Setting outputFlip     {"OutputFlip"_L1,     "options"_L1, "outputflip"_L1,     Number,        "0"_L1};
inline constexpr Setting fontName       {"FontName"_L1,       "options"_L1, "fontname"_L1,       Text,          "MS Sans Serif"_L1};
inline constexpr Setting fontSize       {"FontSize"_L1,       "options"_L1, "fontsize"_L1,       Number,        "8"_L1};
inline constexpr Setting refreshHost    {"RefreshHost"_L1,    "options"_L1, "refreshhost"_L1,    LimitedNumber, "0"_L1};
inline constexpr Setting refreshCommand {"RefreshCommand"_L1, "options"_L1, "refreshcommand"_L1, LimitedNumber, "5"_L1};
inline constexpr Setting refreshProp    {"RefreshProp"_L1,    "options"_L1, "refreshprop"_L1,    LimitedNumber, "0"_L1};
inline constexpr Setting autoStart      {"AutoStart"_L1,      "options"_L1, "autostart"_L1,      Number,        "0"_L1};
inline constexpr Setting dsn            {"DSN"_L1,            "options"_L1, "dsn"_L1,            Text,          ""_L1};
inline constexpr Setting odbcServer     {"ODBCserver"_L1,     "odbc"_L1,    "server"_L1,         Text,          ""_L1};
inline constexpr Setting odbcUser       {"ODBCuser"_L1,       "odbc"_L1,    "user"_L1,           Text,          ""_L1};
inline constexpr Setting odbcDb         {"ODBCdb"_L1,         "odbc"_L1,    "db"_L1,             Text,          ""_L1};
inline constexpr Setting odbcDriver     {"ODBCdriver"_L1,     "odbc"_L1,    "driver"_L1,         Text,          ""_L1};
inline constexpr Setting odbcDsn        {"ODBCdsn"_L1,        "odbc"_L1,    "dsn"_L1,            Text,          ""_L1};
inline constexpr Setting server         {"Server"_L1,         "options"_L1, "server"_L1,         Text,          "Unknown"_L1};
inline constexpr Setting edit           {"Edit"_L1,           "options"_L1, "editdefault"_L1,    Number,        "0"_L1};
inline constexpr Setting remote         {"remote"_L1,         "options"_L1, "remoteflag"_L1,     Number,        "0"_L1};
// clang-format on

inline constexpr std::array all{
    outputFlip, fontName, fontSize, refreshHost, refreshCommand, refreshProp, autoStart, dsn,
    odbcServer, odbcUser, odbcDb,   odbcDriver,  odbcDsn,        server,      edit,      remote,
};

} // namespace ConfigSettings

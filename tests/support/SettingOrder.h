#pragma once

#include <QStringList>

namespace plain {

/// The global settings in the order in which they are written, for the plain models of tests. The program has a table
/// of its own.
inline const QStringList settingOrder{
    "DETECTIONDB",
    "BEHAVIORDB",
    "BEHDBTYPE",
    "OUTPUTFILE",
    "SYSLOG",
    "EVENTLOG",
    "SYSLOGFACILITY",
    "SYSLOGSEVERITY",
    "AUTO_COUNTDOWN_TIMER",
    "MAKECONF_SENSITIVITY",
    "PRIORITY",
    "MAILSERVER",
    "MAILTO",
    "MAILFROM",
    "MAILSUBJECT",
    "MAILTEMPFILE",
};

} // namespace plain

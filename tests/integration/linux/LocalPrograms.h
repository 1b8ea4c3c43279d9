#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// How long the tests wait for a program.
inline constexpr int patienceMs = 60'000;

/// Where a program is. Servers are often where only an administrator's programs are looked for. Fails the test when it
/// is missing.
[[nodiscard]] QString findProgram(const QString &name);

/// Runs a program to its end. Fails the test when that is not a good one.
void runProgram(const QString &name, const QStringList &arguments);

/// Fails the test when the file cannot be written.
void writeFile(const QString &path, const QByteArray &content);

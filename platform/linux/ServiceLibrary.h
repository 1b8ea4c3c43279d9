#pragma once

#include <QLibrary>
#include <QString>
#include <QStringList>

/// The library of this program with services that are seldom used and need much of the system: it is loaded when one of
/// them is first used, and stays. What is in it is said in platform/CMakeLists.txt.
namespace ServiceLibrary {

/// Where it is: in the folder of a program that was built, and in that of an installed one.
[[nodiscard]] QStringList folders();

/// A function of the library.
/// @param folders where it may be; the first that has it is taken
/// @return null when that fails; then problem is set to the reason
[[nodiscard]] QFunctionPointer function(const char *name, const QStringList &folders, QString &problem);

} // namespace ServiceLibrary

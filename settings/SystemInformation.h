#pragma once

#include "platform/Registry.h"

#include <QString>

class FileAccess;
class Programs;

/// Reads a value for the about box, in one step and with the rights to read and write that it always asks for: it does
/// without the registry layer. A text is given up to its first character of code 0, a number of 32 bits as "&h" and
/// its hexadecimal digits, a value of any other type as an empty text.
/// @param text empty when there is no such value, or one of more than 1024 bytes
/// @return whether the value could be read
[[nodiscard]] bool ReadRegistryValue(Registry &registry, Registry::Handle hive, const QString &path,
                                     const QString &name, QString &text);

/// The path of the program that shows what the system consists of: where the registry says so, else the first of those
/// that are installed. Empty when there is none.
[[nodiscard]] QString systemInformationTool(Registry &registry, const FileAccess &files, const Programs &programs);

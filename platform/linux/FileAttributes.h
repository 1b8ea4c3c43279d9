#pragma once

#include "platform/linux/FileHandle.h"

/// Gives one open file what belongs to another beside its bytes: owner, group, mode, and the extended attributes, of
/// which access control lists are a part.
/// @return false when something could not be carried over
[[nodiscard]] bool carryAttributes(SystemCalls &calls, const FileHandle &from, const FileHandle &to);

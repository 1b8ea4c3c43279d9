#pragma once

#include "platform/RuntimeError.h"

#include <functional>
#include <optional>

/// What work raises; nothing when it raises nothing. Anything but a RuntimeError fails the test.
[[nodiscard]] std::optional<RuntimeError> errorOf(const std::function<void()> &work);

/// Its number; 0 for none.
[[nodiscard]] int errorNumberOf(const std::function<void()> &work);

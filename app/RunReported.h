#pragma once

#include <functional>

class Messages;

/// Runs a command. An error that it raises is shown to the user; then the program goes on.
/// @return false when there was an error
bool runReported(Messages &messages, const std::function<void()> &command);

#pragma once

/// A socket that listens on a free port of this machine, which is then known. It is the caller's to close.
[[nodiscard]] int listenOnFreePort(int &port);

/// Whether somebody listens on a port of this machine.
[[nodiscard]] bool isListening(int port);

#pragma once

namespace classic {

// SIGFPE for the time of a request, as the platform registers its handlers.

/// Remembers the host's handler and registers `FpeHandler`.
void take_signal();

/// Registers `FpeHandler` again: a delivered signal unregisters it.
void register_handler();

/// Gives the host its handler back.
/// @return what the last signal registration returned; it carries no information
int give_signal_back();

}  // namespace classic

#pragma once

namespace classic {

// The signal registration of a request, as the platform does it.

/// SIGFPE handler: sets the error flag to 1 and, while a request runs, registers itself again.
void FpeHandler(int signal);

/// Remembers the host's handler and registers `FpeHandler`.
void take_signal();

/// Registers `FpeHandler` again: a delivered signal unregisters it.
void register_handler();

/// Gives the host its handler back.
/// @return what the last signal registration returned; it carries no information
int give_signal_back();

}  // namespace classic

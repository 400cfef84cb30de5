#pragma once

namespace classic {

// A host may run with floating-point traps on. A trapped instruction has no result, so a request
// that went on from one would loop on it or work with garbage: for the time of a request the traps
// are off, and the exceptions raised tell whether one of them would have fired.

/// Switches the host's traps off and remembers them.
void hold_traps();

/// Within a request: switches off, and holds with the others, the traps that the host's own finder
/// has switched on.
void hold_new_traps();

/// Faults up to here count no more.
void forget_faults();

/// Whether a trap of the host would have fired since the last `forget_faults`.
bool has_faulted();

/// Gives the host its traps back, and the exceptions that it had raised.
void release_traps();

}  // namespace classic

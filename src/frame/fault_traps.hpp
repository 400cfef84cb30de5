#pragma once

namespace classic {

// A host may run with floating-point traps on. A trapped instruction has no result, so a request
// that went on from one would loop on it or work with garbage: for the time of a request the traps
// are masked, and the sticky exception flags tell afterwards whether one of them would have fired.

/// Masks the traps that the host has enabled and remembers them.
void hold_traps();

/// Faults up to here count no more.
void forget_faults();

/// Gives the host its traps back.
/// @return true when a trap of the host would have fired since the last `forget_faults`
bool release_traps();

}  // namespace classic

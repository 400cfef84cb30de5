#pragma once

#include <cstdint>

namespace classic {

// The processor's floating-point exceptions and their traps, where it has two units those of both.

/// A set of exceptions. An exception of one unit is another than the same of the other unit: what
/// one unit raises traps only where that unit's trap is on.
using Exceptions = std::uint32_t;

/// The exceptions whose traps are on.
Exceptions traps_on();

/// The exceptions raised since they were last cleared.
Exceptions raised_exceptions();

/// Leaves these traps on and these exceptions raised. No exception that is pending traps meanwhile.
void write_exceptions(Exceptions traps, Exceptions raised);

}  // namespace classic

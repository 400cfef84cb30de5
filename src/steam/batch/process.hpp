#pragma once

namespace steam {

/// A number that a child process does not share with its parent.
long process_number();

/// Keeps the library's code in memory until the process ends: threads of a pool may wait in it.
void keep_library();

}  // namespace steam

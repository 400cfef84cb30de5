#pragma once

#include <cstddef>

#include "vek/steam.h"

namespace python {

/// How many threads a large batch may be spread over, the calling one among them.
void set_threads(unsigned count);
unsigned threads();

/// The threads for a batch of some rows; null when the calling thread is to work alone: when the
/// batch is small, when one thread was set, and on any thread but the process' first, since whoever
/// started that one has divided the work already.
vek_steam_pool* pool_for(std::size_t rows);

}  // namespace python

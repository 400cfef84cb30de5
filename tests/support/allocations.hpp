#pragma once

/// Calls of operator new so far, in programs that are linked with allocations.cpp.
long allocations();

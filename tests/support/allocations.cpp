#include "support/allocations.hpp"

#include <cstdlib>
#include <new>

namespace {
long count = 0;
}

long allocations() { return count; }

void* operator new(std::size_t size) {
  ++count;
  if (void* memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

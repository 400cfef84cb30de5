#include "threads.hpp"

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

namespace python {
namespace {

/// Waking the threads costs as much as some hundred rows.
constexpr std::size_t smallest_batch = 4096;

std::atomic<unsigned> wanted{1};

bool is_first_thread() { return syscall(SYS_gettid) == getpid(); }

/// Kept for good: its threads may wait when the process ends.
struct Pool {
  vek_steam_pool* pool;
  unsigned threads;
};

/// Only the first thread of a process comes here.
vek_steam_pool* pool_of(unsigned threads) {
  static Pool kept{nullptr, 0};
  if (kept.threads != threads) {
    vek_steam_pool_destroy(kept.pool);
    kept = {vek_steam_pool_create(threads), threads};
  }
  return kept.pool;
}

}  // namespace

void set_threads(unsigned count) { wanted = count; }
unsigned threads() { return wanted; }

vek_steam_pool* pool_for(std::size_t rows) {
  const unsigned count = wanted;
  return count > 1 && rows >= smallest_batch && is_first_thread() ? pool_of(count) : nullptr;
}

}  // namespace python

#pragma once

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

/// Calls work(0) … work(count - 1), each once, on all processors.
template <class Work>
void in_parallel(std::size_t count, const Work& work) {
  std::atomic<std::size_t> next = 0;
  const auto run = [&] {
    for (std::size_t i = next++; i < count; i = next++) {
      work(i);
    }
  };
  std::vector<std::jthread> threads;
  for (unsigned n = 1; n < std::thread::hardware_concurrency(); ++n) {
    threads.emplace_back(run);
  }
  run();
}

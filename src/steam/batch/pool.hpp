#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "steam/batch/batch.hpp"

namespace steam {

/// Threads that wait for batches. Any number of threads may run batches on one crew at a time.
class Crew {
 public:
  /// @param threads  beside those that run batches; fewer when the system has no more
  explicit Crew(unsigned threads);
  ~Crew();
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;

  /// Works on a batch together with at most `helpers` threads of the crew until it is done.
  void run(Batch& batch, std::size_t helpers);

 private:
  /// A batch that waits for helpers or has some.
  struct Job {
    Batch* batch;
    std::size_t wanted, working;
  };
  void serve();

  std::mutex mutex_;
  std::condition_variable has_work_, is_free_;
  std::deque<Job*> jobs_;  ///< that want more helpers
  bool ends_ = false;
  std::vector<std::thread> threads_;
};

/// The number of threads that a host asks for; 0: one for each core.
unsigned threads_for(unsigned asked);

}  // namespace steam

/// A crew that begins anew in a child process, where the threads of the parent are not.
struct vek_steam_pool {
 public:
  explicit vek_steam_pool(unsigned threads);
  ~vek_steam_pool();
  vek_steam_pool(const vek_steam_pool&) = delete;
  vek_steam_pool& operator=(const vek_steam_pool&) = delete;

  void run(steam::Batch& batch);

 private:
  /// The crew of one process.
  struct Home {
    long process;
    steam::Crew crew;
  };
  [[nodiscard]] Home* home() const;
  steam::Crew& crew();

  unsigned threads_;
  std::atomic<Home*> home_;
};

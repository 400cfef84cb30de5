#include "steam/batch/pool.hpp"

#include <algorithm>
#include <system_error>

#include "steam/batch/process.hpp"

namespace steam {

unsigned threads_for(unsigned asked) {
  return asked > 0 ? asked : std::max(1U, std::thread::hardware_concurrency());
}

Crew::Crew(unsigned threads) {
  threads_.reserve(threads);
  try {
    while (threads_.size() < threads) {
      threads_.emplace_back([this] { serve(); });
    }
  } catch (const std::system_error&) {  // those that there are will do
  }
}

Crew::~Crew() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  has_work_.notify_all();
  for (std::thread& thread : threads_) {
    thread.join();
  }
}

void Crew::run(Batch& batch, std::size_t helpers) {
  Job job{&batch, std::min(helpers, threads_.size()), 0};
  if (job.wanted > 0) {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(&job);
  }
  has_work_.notify_all();
  batch.work();
  std::unique_lock lock(mutex_);
  std::erase(jobs_, &job);
  is_free_.wait(lock, [&] { return job.working == 0; });
}

void Crew::serve() {
  std::unique_lock lock(mutex_);
  for (;;) {
    has_work_.wait(lock, [this] { return ends_ || !jobs_.empty(); });
    if (ends_) {
      return;
    }
    Job& job = *jobs_.front();
    ++job.working;
    if (--job.wanted == 0) {
      jobs_.pop_front();
    }
    lock.unlock();
    job.batch->work();
    lock.lock();
    if (--job.working == 0) {
      is_free_.notify_all();
    }
  }
}

}  // namespace steam

vek_steam_pool::vek_steam_pool(unsigned threads)
    : threads_(steam::threads_for(threads)), home_(home()) {
  steam::keep_library();
}

vek_steam_pool::~vek_steam_pool() {
  Home* const here = home_;
  if (here->process == steam::process_number()) {
    delete here;
  }
}

vek_steam_pool::Home* vek_steam_pool::home() const {
  return new Home{steam::process_number(), steam::Crew(threads_ - 1)};
}

steam::Crew& vek_steam_pool::crew() {
  Home* here = home_;
  if (here->process != steam::process_number()) {
    Home* const fresh = home();  // the parent's threads are not here: it stays as it is
    if (home_.compare_exchange_strong(here, fresh)) {
      return fresh->crew;
    }
    delete fresh;
  }
  return here->crew;
}

void vek_steam_pool::run(steam::Batch& batch) {
  const std::size_t threads = std::min<std::size_t>(threads_, batch.chunks());
  crew().run(batch, threads - (threads > 0 ? 1 : 0));
}

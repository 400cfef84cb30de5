#include <benchmark/benchmark.h>

#include <span>
#include <string>

#include "unit_costs.hpp"
#include "vek/vek.h"
#include "work.hpp"

// Time per state of each kind of request in each region, one state at a time and in batches, and of
// the classic module's finder for the same pair. The counter `pow` is the time in units of one
// std::pow(x, -5/17) of the same run.

namespace {

using steam::Region;
using work::Task;

constexpr std::size_t row_count = 4000;

const UnitCosts& units() {
  static const UnitCosts costs = unit_costs();
  return costs;
}

void report(benchmark::State& state, std::size_t rows = row_count) {
  const auto calls = static_cast<double>(state.iterations()) * static_cast<double>(rows);
  state.SetItemsProcessed(static_cast<std::int64_t>(calls));
  state.counters["pow"] = benchmark::Counter(
      calls * units().pow * 1e-9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void single(benchmark::State& state, const Task& task, Region region) {
  const work::Rows rows = work::rows(task, region, row_count);
  std::array<double, 8> out{};
  for ([[maybe_unused]] auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores)
    for (std::size_t i = 0; i < row_count; ++i) {
      steam::values(task.pair, rows.first[i], rows.second[i], task.wanted, out);
      benchmark::DoNotOptimize(out);
    }
  }
  report(state);
}

/// A batch is long enough for the start of its threads not to count.
constexpr std::size_t repeats = 16;

void batch(benchmark::State& state, const Task& task, Region region, unsigned threads) {
  work::Rows rows = work::rows(task, region, row_count);
  for (std::vector<double>* column : {&rows.first, &rows.second}) {
    column->resize(repeats * row_count);
    for (std::size_t i = row_count; i < column->size(); ++i) {
      (*column)[i] = (*column)[i - row_count];
    }
  }
  std::vector<std::vector<double>> columns(task.wanted.size(),
                                           std::vector<double>(rows.first.size()));
  const std::vector<std::span<double>> outputs(columns.begin(), columns.end());
  const steam::Options options{.threads = threads};
  for ([[maybe_unused]] auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores)
    steam::evaluate(task.pair, rows.first, rows.second, task.wanted, outputs, {}, options);
    benchmark::ClobberMemory();
  }
  report(state, rows.first.size());
}

/// By `steam::Pair`; the module has none for the last ones. The iteration of `vekrsx_` may not end.
constexpr std::array<VekFinder, steam::pair_count> finders{
    vekrpt_, vekrpx_, vekrtx_, vekrpv_, vekrph_, vekrps_, vekrpu_,
    vekrtv_, vekrth_, vekrtu_, vekrts_, nullptr, vekrhs_, vekrus_,
    vekrvh_, vekrvs_, vekrvu_, vekrvx_, nullptr, nullptr, nullptr};

VekFinder finder_of(const Task& task) { return finders[static_cast<std::size_t>(task.pair)]; }

void classic(benchmark::State& state, const Task& task, Region region) {
  const work::Rows rows = work::rows(task, region, row_count);
  double tolerance = 1e-8;
  for ([[maybe_unused]] auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores)
    for (std::size_t i = 0; i < row_count; ++i) {
      double a = rows.first[i];
      double b = rows.second[i];
      benchmark::DoNotOptimize(finder_of(task)(&a, &b, &tolerance));
    }
  }
  report(state);
}

void add(const Task& task, Region region) {
  const std::string name = std::string(task.name) + "/" + work::name(region);
  benchmark::RegisterBenchmark(("single/" + name).c_str(),
                               [&task, region](auto& state) { single(state, task, region); });
  if (finder_of(task) != nullptr) {
    benchmark::RegisterBenchmark(("classic/" + name).c_str(),
                                 [&task, region](auto& state) { classic(state, task, region); });
  }
  for (const unsigned threads : {1U, 2U}) {
    benchmark::RegisterBenchmark(
        ("batch/" + std::to_string(threads) + "/" + name).c_str(),
        [&task, region, threads](auto& state) { batch(state, task, region, threads); })
        ->UseRealTime();
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::AddCustomContext("pow_ns", std::to_string(units().pow));
  benchmark::AddCustomContext("exp_ns", std::to_string(units().exp));
  benchmark::AddCustomContext("subregion_1_ns", std::to_string(units().water));
  benchmark::AddCustomContext("subregion_2_ns", std::to_string(units().steam));
  benchmark::AddCustomContext("subregion_3_ns", std::to_string(units().dense));
  for (const Task& task : work::tasks()) {
    for (const Region region : {Region::water, Region::steam, Region::wet, Region::dense_steam,
                                Region::hot_water, Region::wet_above_350}) {
      if (work::applies(task, region)) {
        add(task, region);
      }
    }
  }
  benchmark::RunSpecifiedBenchmarks();
}

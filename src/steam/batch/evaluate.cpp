#include <new>
#include <vector>

#include "steam/arguments.hpp"
#include "steam/batch/batch.hpp"
#include "steam/batch/pool.hpp"
#include "steam/batch/strided.hpp"

namespace steam {
namespace {

constexpr std::size_t usual_chunk = 512;

Places places(const void* data, std::ptrdiff_t stride, std::size_t size) {
  return {reinterpret_cast<std::uintptr_t>(data), stride, size};
}

/// Every place that is written, the status last.
std::vector<Places> written(const Rows& rows, std::size_t count) {
  std::vector<Places> all;
  for (std::size_t i = 0; i < count; ++i) {
    all.push_back(places(rows.outputs[i].data, rows.outputs[i].stride, sizeof(double)));
  }
  if (rows.status) {
    all.push_back(places(rows.status->data, rows.status->stride, 1));
  }
  return all;
}

/// Whether what one row writes is read or written by another, or twice by itself.
bool overlap(const Rows& rows, std::size_t count) {
  const std::vector<Places> all = written(rows, count);
  const Places inputs[]{places(rows.first.data, rows.first.stride, sizeof(double)),
                        places(rows.second.data, rows.second.stride, sizeof(double))};
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!are_apart(all[i], rows.count)) {
      return true;
    }
    for (std::size_t k = 0; k < i; ++k) {
      if (may_overlap(all[k], all[i], rows.count)) {
        return true;
      }
    }
    for (const Places& input : inputs) {
      if (!(input == all[i]) && may_overlap(input, all[i], rows.count)) {
        return true;
      }
    }
  }
  return false;
}

bool has_null(const Rows& rows, std::size_t count) {
  if (count > 0 && !rows.outputs) {
    return true;
  }
  bool null = rows.count > 0 && (!rows.first.data || !rows.second.data);
  for (std::size_t i = 0; rows.count > 0 && i < count; ++i) {
    null = null || !rows.outputs[i].data;
  }
  return null || (rows.count > 0 && rows.status && !rows.status->data);
}

/// What is wrong with a call.
int check(int pair, const Rows& rows, std::size_t count, const int* properties,
          const vek_steam_options* options, std::size_t options_size) {
  const int wrong = first_wrong({is_pair(pair) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_PAIR,
                                 check_properties(count, properties),
                                 options ? check_record(options, options_size) : VEK_STEAM_OK});
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  return has_null(rows, count)  ? VEK_STEAM_NULL
         : overlap(rows, count) ? VEK_STEAM_OVERLAP
                                : VEK_STEAM_OK;
}

void run(Batch& batch, const vek_steam_options& options) {
  if (options.pool) {
    options.pool->run(batch);
    return;
  }
  const std::size_t chunks = batch.chunks();
  const std::size_t threads = std::min<std::size_t>(threads_for(options.threads), chunks);
  if (threads < 2) {
    batch.work();
    return;
  }
  Crew(static_cast<unsigned>(threads) - 1).run(batch, threads - 1);
}

}  // namespace
}  // namespace steam

using namespace steam;

int vek_steam_evaluate(int pair, size_t rows, vek_steam_input first, vek_steam_input second,
                       size_t count, const int* properties, const vek_steam_output* outputs,
                       const vek_steam_output* status, const vek_steam_options* options,
                       size_t options_size, size_t* done) {
  try {
    const Rows columns{rows, first, second, outputs, status};
    const int wrong = check(pair, columns, count, properties, options, options_size);
    if (wrong != VEK_STEAM_OK) {
      return wrong;
    }
    vek_steam_options how = options ? *options : vek_steam_options{};
    how.chunk = how.chunk > 0 ? how.chunk : usual_chunk;
    Batch batch(static_cast<Pair>(pair), columns, Wanted(count, properties), how);
    run(batch, how);
    batch.mark_rest();
    if (done) {
      *done = batch.done();
    }
    return VEK_STEAM_OK;
  } catch (const std::bad_alloc&) {
    return VEK_STEAM_NO_MEMORY;
  }
}

vek_steam_pool* vek_steam_pool_create(unsigned threads) {
  try {
    return new vek_steam_pool(threads);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void vek_steam_pool_destroy(vek_steam_pool* pool) { delete pool; }

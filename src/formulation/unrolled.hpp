#pragma once

#include <utility>

namespace formulation {

/// f(0), f(1), … f(N - 1), each with a number that is known when compiling.
template <int N, class F>
[[gnu::always_inline]] constexpr void unrolled(const F& f) {
  [&]<int... i>(std::integer_sequence<int, i...>) __attribute__((always_inline)) {
    (f(std::integral_constant<int, i>{}), ...);
  }
  (std::make_integer_sequence<int, N>{});
}

}  // namespace formulation

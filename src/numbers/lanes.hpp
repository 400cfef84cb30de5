#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace numbers {

// Formulas are written once over a number type: a double, or the lanes of a vector, each with the
// double of another state. All lanes take the same steps as a double alone, so that each has the
// same bits. What formulas need beyond + - * / is here, for both; where a double takes a branch,
// lanes take both sides and select.

/// The compiler's vector type.
template <class T, int count>
struct Vector {
  typedef T Type __attribute__((vector_size(count * sizeof(T))));
};

/// What a comparison says of each lane: all bits or none.
template <int count>
struct Mask {
  using All = typename Vector<std::int64_t, count>::Type;
  All v;

  Mask() = default;
  /// The same in all lanes.
  [[gnu::always_inline]] Mask(bool all)  // NOLINT(google-explicit-constructor)
      : v(std::int64_t{all ? -1 : 0} - All{}) {}
  [[gnu::always_inline]] explicit Mask(All lanes) : v(lanes) {}

  [[gnu::always_inline]] bool operator[](int lane) const { return v[lane] != 0; }
  [[gnu::always_inline]] friend Mask operator&(Mask a, Mask b) { return Mask(a.v & b.v); }
  [[gnu::always_inline]] friend Mask operator|(Mask a, Mask b) { return Mask(a.v | b.v); }
  [[gnu::always_inline]] friend Mask operator!(Mask a) { return Mask(~a.v); }
  [[gnu::always_inline]] Mask& operator&=(Mask b) { return *this = *this & b; }
  [[gnu::always_inline]] Mask& operator|=(Mask b) { return *this = *this | b; }
};

/// Doubles or whole numbers that are computed with together, lane by lane. Each count belongs to
/// one kind of processor: 2 to every one, 4 to those with AVX2, 8 to those with AVX-512.
template <class T, int count>
struct Lanes {
  using All = typename Vector<T, count>::Type;
  All v;

  Lanes() = default;
  /// The same number in all lanes.
  template <class U>
  requires std::is_arithmetic_v<U>
  [[gnu::always_inline]] constexpr Lanes(U all)  // NOLINT(google-explicit-constructor)
      : v(static_cast<T>(all) - All{}) {}
  [[gnu::always_inline]] explicit Lanes(All lanes) : v(lanes) {}

  [[gnu::always_inline]] T operator[](int lane) const { return v[lane]; }
  [[gnu::always_inline]] void set(int lane, T value) { v[lane] = value; }

  [[gnu::always_inline]] friend Lanes operator+(Lanes a, Lanes b) { return Lanes(a.v + b.v); }
  [[gnu::always_inline]] friend Lanes operator-(Lanes a, Lanes b) { return Lanes(a.v - b.v); }
  [[gnu::always_inline]] friend Lanes operator*(Lanes a, Lanes b) { return Lanes(a.v * b.v); }
  [[gnu::always_inline]] friend Lanes operator/(Lanes a, Lanes b) { return Lanes(a.v / b.v); }
  [[gnu::always_inline]] friend Lanes operator-(Lanes a) { return Lanes(-a.v); }
  [[gnu::always_inline]] Lanes& operator+=(Lanes b) { return *this = *this + b; }
  [[gnu::always_inline]] Lanes& operator-=(Lanes b) { return *this = *this - b; }
  [[gnu::always_inline]] Lanes& operator*=(Lanes b) { return *this = *this * b; }

  // Of whole numbers alone.
  [[gnu::always_inline]] friend Lanes operator&(Lanes a, Lanes b) { return Lanes(a.v & b.v); }
  [[gnu::always_inline]] friend Lanes operator|(Lanes a, Lanes b) { return Lanes(a.v | b.v); }
  [[gnu::always_inline]] friend Lanes operator>>(Lanes a, int bits) { return Lanes(a.v >> bits); }
  [[gnu::always_inline]] friend Lanes operator<<(Lanes a, int bits) { return Lanes(a.v << bits); }

  [[gnu::always_inline]] friend Mask<count> operator<(Lanes a, Lanes b) {
    return Mask<count>(a.v < b.v);
  }
  [[gnu::always_inline]] friend Mask<count> operator<=(Lanes a, Lanes b) {
    return Mask<count>(a.v <= b.v);
  }
  [[gnu::always_inline]] friend Mask<count> operator>(Lanes a, Lanes b) {
    return Mask<count>(a.v > b.v);
  }
  [[gnu::always_inline]] friend Mask<count> operator>=(Lanes a, Lanes b) {
    return Mask<count>(a.v >= b.v);
  }
  [[gnu::always_inline]] friend Mask<count> operator==(Lanes a, Lanes b) {
    return Mask<count>(a.v == b.v);
  }
};

/// The types that go with a number type: of its whole numbers and of its comparisons.
template <class Num>
struct Companions;
template <>
struct Companions<double> {
  static constexpr int width = 1;
  using Whole = std::int64_t;
  using Mask = bool;
};
template <int count>
struct Companions<Lanes<double, count>> {
  static constexpr int width = count;
  using Whole = Lanes<std::int64_t, count>;
  using Mask = numbers::Mask<count>;
};
template <class Num>
using WholeOf = typename Companions<Num>::Whole;
template <class Num>
using MaskOf = typename Companions<Num>::Mask;
template <class Num>
constexpr int width_of = Companions<Num>::width;

/// The number of a lane.
[[gnu::always_inline]] inline double lane_of(double x, std::size_t /*lane*/) { return x; }
[[gnu::always_inline]] inline std::int64_t lane_of(std::int64_t x, std::size_t /*lane*/) {
  return x;
}
template <class T, int n>
[[gnu::always_inline]] inline T lane_of(Lanes<T, n> x, std::size_t lane) {
  return x.v[lane];
}

/// a where the condition holds, b elsewhere.
template <class T>
[[gnu::always_inline]] inline T select(bool condition, T a, T b) {
  return condition ? a : b;
}
template <class T, int n>
[[gnu::always_inline]] inline Lanes<T, n> select(Mask<n> condition, Lanes<T, n> a, Lanes<T, n> b) {
  return Lanes<T, n>(condition.v ? a.v : b.v);
}

/// Where both conditions hold.
[[gnu::always_inline]] inline bool both(bool a, bool b) { return a && b; }
template <int n>
[[gnu::always_inline]] inline Mask<n> both(Mask<n> a, Mask<n> b) {
  return a & b;
}

/// The lanes in which the condition holds, as bits.
[[gnu::always_inline]] inline unsigned lanes_of(bool condition) { return condition ? 1 : 0; }
template <int n>
[[gnu::always_inline]] inline unsigned lanes_of(Mask<n> condition) {
#if defined(__AVX2__)
  if constexpr (n == 4) {
    return static_cast<unsigned>(_mm256_movemask_pd(std::bit_cast<__m256d>(condition.v)));
  }
#endif
#if defined(__AVX512F__)
  if constexpr (n == 8) {
    const auto v = std::bit_cast<__m512i>(condition.v);
    return _mm512_test_epi64_mask(v, v);
  }
#endif
  unsigned lanes = 0;
  for (int lane = 0; lane < n; ++lane) {
    lanes |= condition[lane] ? 1U << lane : 0U;
  }
  return lanes;
}

/// Whether the condition holds in a lane, or in all.
template <class Condition>
[[gnu::always_inline]] inline bool any(Condition condition) {
  return lanes_of(condition) != 0;
}
template <class Condition>
[[gnu::always_inline]] inline bool all(Condition condition) {
  return !any(!condition);
}

/// The bits of a double as a whole number, and back.
[[gnu::always_inline]] inline std::int64_t bits_of(double x) {
  return std::bit_cast<std::int64_t>(x);
}
[[gnu::always_inline]] inline double from_bits(std::int64_t x) { return std::bit_cast<double>(x); }
template <int n>
[[gnu::always_inline]] inline Lanes<std::int64_t, n> bits_of(Lanes<double, n> x) {
  return std::bit_cast<Lanes<std::int64_t, n>>(x);
}
template <int n>
[[gnu::always_inline]] inline Lanes<double, n> from_bits(Lanes<std::int64_t, n> x) {
  return std::bit_cast<Lanes<double, n>>(x);
}

/// The whole number at or below x, 0 to 2^31; and that as a double.
[[gnu::always_inline]] inline std::int64_t whole_below(double x) {
  return static_cast<std::int32_t>(x);
}
[[gnu::always_inline]] inline double below(double x) {
  return static_cast<double>(static_cast<std::int32_t>(x));
}
template <int n>
[[gnu::always_inline]] inline Lanes<std::int64_t, n> whole_below(Lanes<double, n> x) {
  using Short = typename Vector<std::int32_t, n>::Type;
  using Long = typename Vector<std::int64_t, n>::Type;
  return Lanes<std::int64_t, n>(__builtin_convertvector(__builtin_convertvector(x.v, Short), Long));
}
template <int n>
[[gnu::always_inline]] inline Lanes<double, n> below(Lanes<double, n> x) {
  using Short = typename Vector<std::int32_t, n>::Type;
  using All = typename Vector<double, n>::Type;
  return Lanes<double, n>(__builtin_convertvector(__builtin_convertvector(x.v, Short), All));
}

/// The bits moved down, and 0 above them.
[[gnu::always_inline]] inline std::int64_t shifted_right(std::int64_t x, int bits) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(x) >> bits);
}
template <int n>
[[gnu::always_inline]] inline Lanes<std::int64_t, n> shifted_right(Lanes<std::int64_t, n> x,
                                                                   int bits) {
  using Unsigned = typename Vector<std::uint64_t, n>::Type;
  return std::bit_cast<Lanes<std::int64_t, n>>(std::bit_cast<Unsigned>(x.v) >> bits);
}

/// What a function of one double gives in each lane.
template <class F>
[[gnu::always_inline]] inline double each_lane(double x, const F& f) {
  return f(x);
}
template <int n, class F>
[[gnu::always_inline]] inline Lanes<double, n> each_lane(Lanes<double, n> x, const F& f) {
  Lanes<double, n> y;
  for (int lane = 0; lane < n; ++lane) {
    y.v[lane] = f(x.v[lane]);
  }
  return y;
}

/// What a function of two doubles gives in each lane.
template <class F>
[[gnu::always_inline]] inline double each_lane(double x, double y, const F& f) {
  return f(x, y);
}
template <int n, class F>
[[gnu::always_inline]] inline Lanes<double, n> each_lane(Lanes<double, n> x, Lanes<double, n> y,
                                                         const F& f) {
  Lanes<double, n> z;
  for (int lane = 0; lane < n; ++lane) {
    z.v[lane] = f(x.v[lane], y.v[lane]);
  }
  return z;
}

[[gnu::always_inline]] inline double sqrt(double x) { return std::sqrt(x); }
template <int n>
[[gnu::always_inline]] inline Lanes<double, n> sqrt(Lanes<double, n> x) {
  if constexpr (n == 1) {
    return each_lane(x, [](double lane) { return std::sqrt(lane); });
  }
#if defined(__SSE2__)
  else if constexpr (n == 2) {
    return Lanes<double, n>(_mm_sqrt_pd(x.v));
  }
#endif
#if defined(__AVX2__)
  else if constexpr (n == 4) {
    return Lanes<double, n>(_mm256_sqrt_pd(x.v));
  }
#endif
#if defined(__AVX512F__)
  else if constexpr (n == 8) {
    return Lanes<double, n>(_mm512_maskz_sqrt_pd(0xff, x.v));
  }
#endif
  else {
    return each_lane(x, [](double lane) { return std::sqrt(lane); });
  }
}

template <class Num>
[[gnu::always_inline]] inline Num abs(Num x) {
  return from_bits(bits_of(x) & WholeOf<Num>(INT64_MAX));
}

/// The larger and the smaller of two numbers; the first where one is not a number.
template <class Num>
[[gnu::always_inline]] inline Num larger(Num a, Num b) {
  return select(a < b, b, a);
}
template <class Num>
[[gnu::always_inline]] inline Num smaller(Num a, Num b) {
  return select(b < a, b, a);
}

}  // namespace numbers

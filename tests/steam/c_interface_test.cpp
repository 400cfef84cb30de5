#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cfenv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <thread>
#include <vector>

#include "answers.hpp"
#include "vek/steam.h"

// What the C interface has beyond the C++ one that stands on it: sizes, null pointers, strides,
// pools, and codes instead of exceptions.

namespace {

constexpr std::array<int, 2> wanted{VEK_STEAM_T, VEK_STEAM_S};

/// Rows of (p,h) in records of three doubles and a byte, so that most are unaligned.
class Records {
 public:
  static constexpr std::ptrdiff_t stride = 3 * sizeof(double) + 1;
  explicit Records(std::size_t rows) : bytes_(rows * stride) {
    for (std::size_t row = 0; row < rows; ++row) {
      set(row, 0, 1 + static_cast<double>(row % 150));
      set(row, 1, 100 + 7 * static_cast<double>(row % 400));
    }
  }
  char* at(std::size_t row, std::size_t field) {
    return bytes_.data() + row * stride + field * sizeof(double);
  }
  double get(std::size_t row, std::size_t field) {
    double value;
    std::memcpy(&value, at(row, field), sizeof value);
    return value;
  }
  void set(std::size_t row, std::size_t field, double value) {
    std::memcpy(at(row, field), &value, sizeof value);
  }

 private:
  std::vector<char> bytes_;
};

void expect_row(double p, double h, double t, double s) {
  std::array<double, 2> out{};
  EXPECT_EQ(vek_steam_values(VEK_STEAM_PH, p, h, 2, wanted.data(), out.data()), VEK_STEAM_OK);
  EXPECT_TRUE(answers::same_bits(out[0], t) && answers::same_bits(out[1], s)) << p << ' ' << h;
}

TEST(CInterface, EvaluatesRecordsSlicesAndConstantsInPlace) {
  constexpr std::size_t rows = 1500;
  Records records(rows);
  Records before = records;
  const double p = 20;
  std::vector<double> reversed(rows);
  // h of the records, their h overwritten by t; s from the last row to the first; one p for all.
  const vek_steam_input pressure{&p, 0}, h{records.at(0, 1), Records::stride};
  const std::array<vek_steam_output, 2> outputs{
      {{records.at(0, 1), Records::stride}, {&reversed.back(), -8}}};
  const vek_steam_output status{records.at(0, 3), Records::stride};
  std::size_t done = 0;
  EXPECT_EQ(vek_steam_evaluate(VEK_STEAM_PH, rows, pressure, h, 2, wanted.data(), outputs.data(),
                               &status, nullptr, 0, &done),
            VEK_STEAM_OK);
  EXPECT_EQ(done, rows);
  for (std::size_t row = 0; row < rows; ++row) {
    EXPECT_EQ(*records.at(row, 3), 0);
    EXPECT_EQ(records.get(row, 0), before.get(row, 0));
    expect_row(p, before.get(row, 1), records.get(row, 1), reversed[rows - 1 - row]);
  }
}

TEST(CInterface, PlacesThatOverlapAreRefused) {
  std::vector<double> a(40, 20), b(40, 1000);
  struct Case {
    vek_steam_output first, second;
    int code;
  };
  const auto output = [](double* data, std::ptrdiff_t stride) {
    return vek_steam_output{data, stride};
  };
  double* const x = a.data();
  std::vector<double> c(40);
  char* const bytes = reinterpret_cast<char*>(c.data());
  for (const Case& k : {Case{output(c.data(), 16), output(c.data() + 1, 16), VEK_STEAM_OK},
                        Case{output(c.data(), 16), output(c.data() + 2, 16), VEK_STEAM_OVERLAP},
                        Case{output(c.data(), 24), {bytes + 8, 24}, VEK_STEAM_OK},
                        Case{output(c.data(), 24), {bytes + 7, 24}, VEK_STEAM_OVERLAP},
                        Case{output(c.data(), 24), {bytes + 17, 24}, VEK_STEAM_OVERLAP},
                        Case{output(c.data(), 8), output(c.data() + 19, -8), VEK_STEAM_OK},
                        Case{output(c.data(), 8), output(c.data() + 18, -8), VEK_STEAM_OVERLAP},
                        Case{output(c.data(), 0), output(c.data() + 1, 8), VEK_STEAM_OVERLAP},
                        Case{output(c.data(), 7), output(c.data() + 20, 8), VEK_STEAM_OVERLAP},
                        Case{output(x, 8), output(c.data(), 8), VEK_STEAM_OK},
                        Case{output(x + 1, 8), output(c.data(), 8), VEK_STEAM_OVERLAP},
                        Case{output(x, 16), output(c.data(), 8), VEK_STEAM_OVERLAP}}) {
    const std::array<vek_steam_output, 2> outputs{k.first, k.second};
    a.assign(40, 20);
    EXPECT_EQ(vek_steam_evaluate(VEK_STEAM_PH, 10, {x, 8}, {b.data(), 8}, 2, wanted.data(),
                                 outputs.data(), nullptr, nullptr, 0, nullptr),
              k.code)
        << (&k)->first.stride;
  }
}

constexpr std::array<int, 2> unknown{VEK_STEAM_T, 4711};

TEST(CInterface, MisuseOfStatesIsACode) {
  vek_steam_state state;
  vek_steam_phase phase;
  std::size_t count = 0;
  const auto state_of = [&](vek_steam_state* to, std::size_t size, std::size_t phase_size) {
    return vek_steam_state_of(VEK_STEAM_PT, 10, 100, to, size, &phase, nullptr, phase_size);
  };
  EXPECT_EQ(state_of(nullptr, sizeof state, sizeof phase), VEK_STEAM_NULL);
  EXPECT_EQ(state_of(&state, sizeof state - 1, sizeof phase), VEK_STEAM_SHORT);
  EXPECT_EQ(state_of(&state, sizeof state, sizeof phase - 1), VEK_STEAM_SHORT);
  EXPECT_EQ(vek_steam_states_of(VEK_STEAM_PT, 10, 100, nullptr, 0, nullptr, nullptr, 0, 0, &count),
            VEK_STEAM_OK);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(vek_steam_states_of(VEK_STEAM_PT, 1, 1, &state, sizeof state, nullptr, nullptr, 0, 1,
                                nullptr),
            VEK_STEAM_NULL);
  EXPECT_EQ(vek_steam_saturation(VEK_STEAM_H, 10, &phase, nullptr, sizeof phase),
            VEK_STEAM_NO_SUCH_PROPERTY);
  EXPECT_EQ(vek_steam_limits_of(nullptr, 100), VEK_STEAM_NULL);
}

TEST(CInterface, MisuseOfValuesIsACode) {
  std::array<double, 2> out{};
  std::size_t count = 0;
  const int* const properties = wanted.data();
  const auto values = [&](int pair, const int* of, double* to) {
    return vek_steam_values(pair, 10, 100, 2, of, to);
  };
  EXPECT_EQ(values(-1, properties, out.data()), VEK_STEAM_NO_SUCH_PAIR);
  EXPECT_EQ(values(vek_steam_pair_count(), properties, out.data()), VEK_STEAM_NO_SUCH_PAIR);
  EXPECT_EQ(values(VEK_STEAM_PT, unknown.data(), out.data()), VEK_STEAM_NO_SUCH_PROPERTY);
  EXPECT_EQ(values(VEK_STEAM_PT, nullptr, out.data()), VEK_STEAM_NULL);
  EXPECT_EQ(values(VEK_STEAM_PT, properties, nullptr), VEK_STEAM_NULL);
  const auto all_values = [&](const int* of, double* to, std::size_t* states) {
    return vek_steam_values_of_states(VEK_STEAM_PV, 1, 0.0010001, 2, of, to, 1, states);
  };
  EXPECT_EQ(all_values(unknown.data(), out.data(), &count), VEK_STEAM_NO_SUCH_PROPERTY);
  EXPECT_EQ(all_values(properties, nullptr, &count), VEK_STEAM_NULL);
  EXPECT_EQ(all_values(properties, out.data(), nullptr), VEK_STEAM_NULL);
  EXPECT_EQ(all_values(properties, out.data(), &count), VEK_STEAM_OK);
  EXPECT_EQ(count, 2U);
  const auto evaluate = [&](const void* first, const vek_steam_output* to, std::size_t rows) {
    return vek_steam_evaluate(VEK_STEAM_PT, rows, {first, 8}, {first, 8}, 2, properties, to,
                              nullptr, nullptr, 0, nullptr);
  };
  const std::array<vek_steam_output, 2> nowhere{};
  EXPECT_EQ(evaluate(nullptr, nowhere.data(), 1), VEK_STEAM_NULL);
  EXPECT_EQ(evaluate(out.data(), nowhere.data(), 1), VEK_STEAM_NULL);
  EXPECT_EQ(evaluate(out.data(), nullptr, 0), VEK_STEAM_NULL);
  EXPECT_EQ(evaluate(nullptr, nowhere.data(), 0), VEK_STEAM_OK);
}

TEST(CInterface, LongerStructuresKeepWhatTheLibraryDoesNotKnow) {
  struct Longer {
    vek_steam_state state;
    double later;
  };
  std::array<Longer, 3> states{};
  states[0].later = states[1].later = 42;
  std::size_t count = 0;
  EXPECT_EQ(vek_steam_states_of(VEK_STEAM_PV, 1, 0.0010001, &states[0].state, sizeof(Longer),
                                nullptr, nullptr, 0, 3, &count),
            VEK_STEAM_OK);
  EXPECT_EQ(count, 2U);
  EXPECT_NEAR(states[0].state.t, 8.5121, 1e-4);
  EXPECT_NEAR(states[1].state.t, 0.9855, 1e-4);
  EXPECT_EQ(states[0].later + states[1].later, 84);
}

TEST(CInterface, TextsFitTheirBuffers) {
  vek_steam_refusal refusal;
  const int code = vek_steam_values(VEK_STEAM_PT, 2000, 100, 0, nullptr, nullptr);
  ASSERT_EQ(code, VEK_STEAM_PRESSURE);
  vek_steam_refusal_of(code, VEK_STEAM_PT, 2000, 100, &refusal, sizeof refusal);
  std::array<char, 80> line{};
  const std::size_t length = vek_steam_text(&refusal, sizeof refusal, line.data(), line.size());
  EXPECT_STREQ(line.data(), "pressure 2000 is outside 0.006112444 to 1000 bar");
  EXPECT_EQ(length, std::strlen(line.data()));
  EXPECT_EQ(vek_steam_text(&refusal, sizeof refusal, line.data(), 9), length);
  EXPECT_STREQ(line.data(), "pressure");
  EXPECT_EQ(vek_steam_text(&refusal, sizeof refusal, nullptr, 0), length);
  EXPECT_EQ(vek_steam_text(nullptr, 0, line.data(), 9), 0U);
}

/// A module that answers with known values: the engine's tests do not link the classic one.
struct Module {
  static int place(double*, double*, double*) {
    std::feraiseexcept(FE_INVALID);
    return region;
  }
  static int request(vek_steam_finder, const double* x, const double* y, const char* list,
                     double* result) {
    const std::array<double, 9> said{*x, *y, 0.5, 3000, -1, 0, 0, 3e-5, 0.08e-3};
    for (std::size_t i = 0; i < (std::strlen(list) > 15 ? said.size() : 6); ++i) {
      result[i] = i == 5 ? result[i] : said[i];  // no quality
    }
    return 0;
  }
  static int flag() { return 2; }
  static inline int region = VEK_STEAM_STEAM;
  vek_steam_module all{request, flag, {}};
  Module() { std::fill_n(all.finders, std::size(all.finders), place); }
};

TEST(CInterface, PutsTheEngineBesideTheModuleThatTheHostPasses) {
  Module module;
  vek_steam_comparison both;
  const auto compare = [&](double p, std::size_t number) {
    return vek_steam_compare(&module.all, sizeof module.all, VEK_STEAM_PT, p, 400, number, &both,
                             sizeof both);
  };
  Module::region = VEK_STEAM_STEAM;
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_EQ(compare(10, 0), VEK_STEAM_OK);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
  EXPECT_EQ(both.region + 10 * both.flag, 22);
  EXPECT_EQ(both.states + 10 * both.number, 11U);
  const std::array<double, 9> module_says{10, 400, 0.5, 3000, -1, NAN, NAN, 3e-5, 0.08};
  const std::array<int, 9> differs{0, 0, 1, 1, 1, 0, 0, 1, 1};
  for (std::size_t i = 0; i < differs.size(); ++i) {
    EXPECT_EQ(both.differs[i], differs[i]) << i;
    EXPECT_TRUE(std::isnan(module_says[i]) ? std::isnan(both.module[i])
                                           : std::abs(both.module[i] - module_says[i]) < 1e-12);
    EXPECT_TRUE(answers::same_bits(both.difference[i], both.module[i] - both.engine[i]));
  }
  const int conductivity = VEK_STEAM_CONDUCTIVITY;
  EXPECT_EQ(both.engine[8], vek_steam_value(VEK_STEAM_PT, 10, 400, conductivity));
  // Wet states are asked for nothing that one phase has; a state of no number and one beyond the
  // range are missing, the module's values are not.
  Module::region = VEK_STEAM_WET;
  EXPECT_EQ(compare(10, 2), VEK_STEAM_OK);
  EXPECT_EQ(both.number, 0U);
  EXPECT_EQ(compare(2000, 0), VEK_STEAM_PRESSURE);
  EXPECT_EQ(both.module[0], 2000);
  EXPECT_TRUE(std::isnan(both.module[7]) && std::isnan(both.engine[0]) && both.differs[0] == 1);
}

TEST(CInterface, MisuseOfTheComparisonIsACode) {
  Module module;
  vek_steam_comparison both;
  const auto compare = [&](const vek_steam_module* of, std::size_t size, int pair,
                           std::size_t place) {
    return vek_steam_compare(of, size, pair, 10, 400, 0, &both, place);
  };
  const std::size_t size = sizeof module.all, place = sizeof both;
  EXPECT_EQ(compare(nullptr, size, VEK_STEAM_PT, place), VEK_STEAM_NULL);
  EXPECT_EQ(compare(&module.all, size - 1, VEK_STEAM_PT, place), VEK_STEAM_SHORT);
  EXPECT_EQ(compare(&module.all, size, VEK_STEAM_PT, place - 1), VEK_STEAM_SHORT);
  EXPECT_EQ(compare(&module.all, size, VEK_STEAM_HX, place), VEK_STEAM_NO_SUCH_PAIR);
  EXPECT_EQ(compare(&module.all, size, -1, place), VEK_STEAM_NO_SUCH_PAIR);
  module.all.finders[VEK_STEAM_PT] = nullptr;
  EXPECT_EQ(compare(&module.all, size, VEK_STEAM_PT, place), VEK_STEAM_NULL);
  EXPECT_EQ(compare(&module.all, size, VEK_STEAM_PH, place), VEK_STEAM_OK);
}

struct Work {
  std::vector<double> p, h, t, s;
  explicit Work(std::size_t rows) : p(rows, 30), h(rows), t(rows), s(rows) {
    for (std::size_t row = 0; row < rows; ++row) {
      h[row] = 10 + 3 * static_cast<double>(row % 1000);
    }
  }
  int run(vek_steam_pool* pool) {
    vek_steam_options options{};
    options.chunk = 16;
    options.pool = pool;
    const std::array<vek_steam_output, 2> outputs{{{t.data(), 8}, {s.data(), 8}}};
    return vek_steam_evaluate(VEK_STEAM_PH, p.size(), {p.data(), 8}, {h.data(), 8}, 2,
                              wanted.data(), outputs.data(), nullptr, &options, sizeof options,
                              nullptr);
  }
};

TEST(CInterface, APoolServesManyThreadsAndLivesOnAfterFork) {
  vek_steam_pool* const pool = vek_steam_pool_create(3);
  Work alone(2000);
  alone.run(nullptr);
  std::vector<std::thread> hosts;
  hosts.reserve(4);
  for (int i = 0; i < 4; ++i) {
    hosts.emplace_back([&] {
      for (int k = 0; k < 20; ++k) {
        Work work(2000);
        EXPECT_EQ(work.run(pool), VEK_STEAM_OK);
        EXPECT_EQ(work.t, alone.t);
        EXPECT_EQ(work.s, alone.s);
      }
    });
  }
  for (std::thread& host : hosts) {
    host.join();
  }
  const pid_t child = fork();
  if (child == 0) {
    Work work(2000);
    const bool same = work.run(pool) == VEK_STEAM_OK && work.t == alone.t;
    vek_steam_pool_destroy(pool);
    _exit(same ? 0 : 1);
  }
  int status = 1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  Work after(2000);
  EXPECT_EQ(after.run(pool), VEK_STEAM_OK);
  EXPECT_EQ(after.t, alone.t);
  vek_steam_pool_destroy(pool);
}

TEST(CInterface, TellsOfItsPropertiesAndPairs) {
  for (int i = 0; i < vek_steam_property_count(); ++i) {
    vek_steam_property_info info;
    ASSERT_EQ(vek_steam_property_info_of(i, &info, sizeof info), VEK_STEAM_OK);
    EXPECT_TRUE(info.in_one_phase || info.in_wet_states) << info.name;
  }
  for (int i = 0; i < vek_steam_pair_count(); ++i) {
    vek_steam_pair_info info;
    ASSERT_EQ(vek_steam_pair_info_of(i, &info, sizeof info), VEK_STEAM_OK);
    for (const int k : {0, 1}) {
      vek_steam_property_info of;
      vek_steam_property_info_of(k == 0 ? info.first : info.second, &of, sizeof of);
      EXPECT_EQ(of.letter[0], info.letters[k]);
    }
    EXPECT_EQ(
        vek_steam_values(i, info.first_highest * 2, info.second_lowest, 0, nullptr, nullptr) > 0,
        true)
        << info.letters;
  }
  vek_steam_limits limits;
  ASSERT_EQ(vek_steam_limits_of(&limits, sizeof limits), VEK_STEAM_OK);
  EXPECT_EQ(limits.p_critical, 221.2);
}

}  // namespace

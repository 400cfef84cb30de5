#include <gtest/gtest.h>

#include <cmath>

#include "classic/equations/routines.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

struct Row {
  double v, t, value;
};

/// The expected values were computed in 40 digits.
void expect_rows(double (*property)(const double*, const double*), const auto& rows) {
  for (const Row& row : rows) {
    EXPECT_NEAR(property(&row.v, &row.t) / row.value, 1, 4e-15) << "v " << row.v << " t " << row.t;
  }
}

}  // namespace

TEST(Viscosity, AgreesWithTheCorrelation) {
  constexpr Row rows[] = {
      {0.001, 20, 0.001001253438960371},
      {0.001043708161, 100, 0.0002821642382692461},
      {1.672996851, 100, 0.00001227550578771587},
      {0.00217, 360, 0.00005234084548459931},
      {0.03275978144, 500, 0.00002889574604516602},
      {0.4942962015, 800, 0.00004041870549483101},
      {206.1628753, 0.01, 0.000009215895964918273},
  };
  expect_rows(VISCOS, rows);
}

// Each correction applies up to and including its temperature.
TEST(Conductivity, AgreesWithTheCorrelationOnBothSidesOfEachThreshold) {
  constexpr Row rows[] = {
      {0.001000223493, 0.01, 0.5736821371559885},
      {0.00105, 100, 0.6754856120374604},
      {1.7, 100, 0.02467056390150958},
      {0.001090, 150, 0.6897712230004274},
      {0.001090, 150.00000000000003, 0.6898823957493255},
      {0.0014, 300, 0.5494611674331156},
      {0.0014, 300.00000000000006, 0.5497328337771202},
      {0.02, 450, 0.08119985424075684},
      {0.02, 450.00000000000006, 0.08122189560197547},
      {0.0015, 450, 0.5386838227295683},
      {0.0015, 450.00000000000006, 0.5389777075458165},
      {0.03275978144, 500, 0.07869070745002901},
      {0.4942962015, 800, 0.1085463297280968},
  };
  expect_rows(THCOND, rows);
}

TEST(Viscosity, VanishesAtAbsoluteZero) {
  const double v = 0.001;
  const double t = -273.15;
  EXPECT_EQ(VISCOS(&v, &t), 0);  // and is not 0 times infinity
}

TEST(Transport, NeitherChecksNorReports) {
  DiagnosticLines lines;
  const double v = 0.001;
  const double below_zero = -300;
  VISCOS(&v, &below_zero);
  EXPECT_EQ(VEKHasError(), 1);  // from the guarded root of a negative temperature
  EXPECT_EQ(lines.take(), "");
  EXPECT_TRUE(std::isnan(THCOND(&v, &not_a_number)));
}

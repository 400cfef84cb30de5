#include <gtest/gtest.h>

#include <array>

#include "formulation/subregion2.hpp"
#include "formulation/subregion3.hpp"

using namespace formulation;

namespace {

/// Products stored with decimal digits of their own equal first·c[from], (first + 1)·c[from + 1], …
template <class Products, class Coefficients>
void expect_products(const Products& products, const Coefficients& c, std::size_t from,
                     double first) {
  for (std::size_t i = 0; i < products.size(); ++i) {
    const double factor = first + static_cast<double>(i);
    EXPECT_DOUBLE_EQ(products[i], factor * c[from + i]) << "product " << i;
  }
}

}  // namespace

TEST(StoredProducts, AreMultiplesOfThePublishedCoefficients) {
  using namespace subregion3;
  expect_products(P_A, C0, 2, 1);
  expect_products(P_D, C1, 2, 1);
  expect_products(P_B, C2, 2, 1);
  expect_products(P_C, C3, 2, 1);
  expect_products(subregion3::P0d, D3, 1, 1);
  expect_products(subregion3::Q0d, D4, 1, 1);
  expect_products(subregion3::R0d, D5, 1, 1);
  EXPECT_DOUBLE_EQ(five_C41, 5 * C41);
  EXPECT_DOUBLE_EQ(subregion2::two_L2, 2 * subregion2::L2);
}

#pragma once

#include <string>
#include <string_view>

namespace command {

/// A number and what follows it.
struct Amount {
  double number;
  std::string unit;  ///< empty: none
};

/// @param text  such as "10", "-1.5e3", "145psi", "1400 Btu/lb"
/// @outside     throws Failure, with a hint where a decimal comma was written
Amount parse_amount(std::string_view text);

}  // namespace command

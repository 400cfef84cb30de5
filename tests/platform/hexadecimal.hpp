#pragma once

#include <array>
#include <charconv>
#include <string>

namespace host {

/// A number to its last bit, written the same way on every platform.
inline std::string hexadecimal(double x) {
  std::array<char, 40> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), x, std::chars_format::hex).ptr;
  return {text.data(), end};
}

}  // namespace host

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "vek/steam.hpp"

namespace steam {

// What a caller of the C interface may pass.

inline bool is_pair(int number) { return number >= 0 && number < static_cast<int>(pair_count); }
inline bool is_property(int number) {
  return number >= 0 && number < static_cast<int>(property_count);
}
/// Of a state or of one of its saturated phases.
inline bool can_be_asked(int number) {
  return number < VEK_STEAM_OF_VAPOUR + VEK_STEAM_OF_LIQUID &&
         is_property(number % VEK_STEAM_OF_LIQUID);
}

/// What is wrong with a list of properties, VEK_STEAM_OK when nothing is.
inline int check_properties(std::size_t count, const int* properties) {
  if (count > 0 && !properties) {
    return VEK_STEAM_NULL;
  }
  return std::all_of(properties, properties + count, can_be_asked) ? VEK_STEAM_OK
                                                                   : VEK_STEAM_NO_SUCH_PROPERTY;
}

/// What is wrong with the place of a structure that is written, VEK_STEAM_OK when nothing is.
template <class Record>
int check_record(const Record* place, std::size_t size) {
  return !place ? VEK_STEAM_NULL : size < sizeof(Record) ? VEK_STEAM_SHORT : VEK_STEAM_OK;
}

/// Element i of a caller's array of structures, which may be longer than the library knows them.
template <class Record>
Record* element(Record* array, std::size_t size, std::size_t i) {
  return array ? reinterpret_cast<Record*>(reinterpret_cast<char*>(array) + i * size) : nullptr;
}

/// The first of some checks that failed.
inline int first_wrong(std::initializer_list<int> codes) {
  const auto* wrong = std::find_if(codes.begin(), codes.end(), [](int c) { return c != 0; });
  return wrong == codes.end() ? VEK_STEAM_OK : *wrong;
}

}  // namespace steam

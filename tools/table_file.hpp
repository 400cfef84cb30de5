#pragma once

#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

/// Numbers that a table gives, rounded as it suits the largest that they are made of.
struct Group {
  double largest = 0;
  std::vector<double> values{};
  void add(double value) {
    largest = std::fmax(largest, std::abs(value));
    values.push_back(value);
  }
};
using Groups = std::vector<Group>;

/// One data file of the engine, as generated.
struct TableFile {
  std::string name;
  std::string bytes;
  std::size_t exact;  // bytes at the beginning that hold no rounded numbers
  /// Of another table's bytes too.
  std::function<Groups(const std::string& bytes)> groups;
  /// Difference in a group, as a share of its largest, that another machine's elementary functions
  /// may make.
  double tolerance;
};

/// A table of plain numbers as a file, and back.
template <class Table>
std::string bytes_of(const Table& table) {
  std::string bytes(sizeof table, '\0');
  std::memcpy(bytes.data(), &table, sizeof table);
  return bytes;
}
template <class Table>
Table table_of(const std::string& bytes) {
  Table table;
  std::memcpy(&table, bytes.data(), sizeof table);
  return table;
}

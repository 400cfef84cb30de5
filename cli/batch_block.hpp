#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch_columns.hpp"

namespace command {

/// What became of rows.
struct BatchCounts {
  std::size_t rows = 0, failed = 0;
  std::size_t first_failed_line = 0;  ///< 0: none
  std::string first_reason{};
};

/// Answers records of a file. Keeps its memory from block to block; each thread has one.
class BatchBlock {
 public:
  BatchBlock(const BatchColumns& columns, const Units& units, std::optional<int> digits)
      : columns_(columns), units_(units), digits_(digits), values_(columns.wanted.size()) {}

  /// @param text  whole records
  /// @param line  number of the first
  void work(std::string_view text, std::size_t line);

  /// The records with what is appended; comments and empty lines as they are.
  [[nodiscard]] std::string_view output() const { return output_; }
  [[nodiscard]] const BatchCounts& counts() const { return counts_; }

 private:
  struct Row {
    std::string_view record;
    std::size_t line;
    std::size_t fields;    ///< 0: no row, passed on as it is
    std::string reason{};  ///< why it has no values; empty: they are to be computed
  };
  void read(std::string_view text, std::size_t line);
  void read_row(std::string_view record, std::size_t line);
  double value_of(const KnownColumn& column, std::string_view field);
  void evaluate();
  void write();
  void write_row(const Row& row, std::size_t index);
  void write_values(std::size_t index);
  [[nodiscard]] std::string reason_of(const Row& row, std::size_t index) const;

  const BatchColumns& columns_;
  const Units& units_;
  std::optional<int> digits_;
  std::vector<std::string_view> fields_;
  std::string buffer_;
  std::vector<Row> rows_;
  std::vector<double> first_, second_;  ///< of all rows, missing where they cannot be read
  std::vector<std::vector<double>> values_;
  std::vector<steam::Reason> status_;
  std::string output_;
  BatchCounts counts_;
};

/// Whether a record is a comment or empty.
bool is_passed_on(std::string_view record);

}  // namespace command

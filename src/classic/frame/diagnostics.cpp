#include "classic/frame/diagnostics.hpp"

#include <array>
#include <cstdlib>
#include <ostream>

#include "classic/frame/error_flag.hpp"

namespace classic {
namespace {

constexpr int print_limit = 32000;
constexpr int inhibit_limit = 32000;

// Kind words, then the value labels: digit d of a code is labelled by entry d + 1. Entry 1 is both.
constexpr std::array<const char*, 7> labels{
    " OUT OF RANGE IN ", " NON CONVERGENT IN ", ",P= ", ",T= ", ",H= ", ",V= ", ",S= "};

const char* label_of(int digit) { return labels.at(static_cast<std::size_t>(digit) + 1); }

void write_report(const char* routine, int code, const double* value1, const double* value2) {
  const int tens = std::abs(code) / 10;
  const int ones = std::abs(code) % 10;
  WriteDiagnostic(ErrorStream, "** VEK-ERROR: ")
      << ErrorCount << " " << labels[code < 0 ? 1 : 0] << routine
      << label_of(tens >= 1 ? tens : ones) << *value1;
  if (tens != 0) {
    WriteDiagnostic(ErrorStream, label_of(ones)) << *value2;
  }
  ErrorStream << std::endl;
}

}  // namespace

int ErrorCount = 0;

VEKErrorStream::~VEKErrorStream() = default;
VEKErrorStream ErrorStream;
std::ofstream second_stream;  // intended: constructed after ErrorStream, used by nothing

std::ostream& WriteDiagnostic(VEKErrorStream& stream, const char* text) {
  set_error_flag(2);
  return stream << text;
}

int ReportError(const char* routine, const int* code, const double* value1, const double* value2) {
  ErrorCount = static_cast<int>(static_cast<unsigned>(ErrorCount) + 1);  // may wrap, never stops
  if (ErrorCount <= print_limit) {
    write_report(routine, *code, value1, value2);
  }
  if (ErrorCount > inhibit_limit) {
    // Plain insertion, so this block alone leaves the error flag as it is: intended.
    ErrorStream << std::endl;
    ErrorStream << " EXECUTION INHIBITED DUE TO VEK-ERROR COUNT" << std::endl;
    ErrorStream << " NUMBER OF DIAGNOSED ERRORS = " << ErrorCount
                << " ******************************************" << std::endl;
    return -1;
  }
  return 0;
}

}  // namespace classic

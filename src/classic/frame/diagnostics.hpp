#pragma once

#include <fstream>

namespace classic {

/// The stream of the diagnostic lines. It is never opened: a host learns of trouble from the error
/// flag only. Tests and the command give `ErrorStream` a buffer and read exactly the lines.
class VEKErrorStream : public std::ofstream {
 public:
  VEKErrorStream() = default;
  VEKErrorStream(const VEKErrorStream&) = delete;
  VEKErrorStream& operator=(const VEKErrorStream&) = delete;
  ~VEKErrorStream() override;
};
extern VEKErrorStream ErrorStream;

/// Number of reports made since load, written or not. Never reset.
extern int ErrorCount;

/// Begins a diagnostic line: sets the error flag to 2 and writes `text`.
/// @return the stream, for the rest of the line
std::ostream& WriteDiagnostic(VEKErrorStream& stream, const char* text);

/// Writes one numbered report and counts it; from number 32001 on only a closing block.
/// @param routine  the reporting routine, as printed
/// @param code     sign: out of range (>= 0) or non-convergent (< 0); its one or two digits, each
///                 1 pressure, 2 temperature, 3 enthalpy, 4 specific volume, 5 entropy, label the
///                 values (a ones digit of 0 after a tens digit labels like 1 NON CONVERGENT)
/// @param value1   belongs to the first digit
/// @param value2   belongs to the second digit; not read when there is none
/// @return         0, or -1 from number 32001 on
/// @outside        a code of 0 is not allowed
int ReportError(const char* routine, const int* code, const double* value1, const double* value2);

}  // namespace classic

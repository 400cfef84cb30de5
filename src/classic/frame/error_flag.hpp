#pragma once

namespace classic {

/// What happened last: 0 nothing, 1 a floating-point fault or a guarded function given a bad
/// argument, 2 a diagnostic line was written. A later event overwrites an earlier one.
extern int LibraryErrorFlag;

/// Every change of the flag goes through here: faults that came before it are overwritten by it.
void set_error_flag(int value);

/// Raises the flag for a fault that would have trapped, if there was one since the flag's last
/// change.
void notice_faults();

}  // namespace classic

#pragma once

namespace classic {

/// Shows a message box and sets the error flag to 1. Nothing calls it; Windows only.
/// @return 1, always
int MathErrorNotice();

}  // namespace classic

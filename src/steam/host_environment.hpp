#pragma once

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif
#if !defined(__x86_64__)
#include <cfenv>
#endif

namespace steam {

/// Round to nearest, no traps, nothing flushed to zero while the engine computes, so that its bits
/// are the same in every host; then the host has its own again, its sticky flags too. Where
/// arithmetic is SSE alone that is one register.
class HostEnvironment {
 public:
  HostEnvironment() {
#if defined(__SSE2__)
    control_ = _mm_getcsr();
#endif
#if !defined(__x86_64__)
    std::fegetenv(&others_);
    std::fesetenv(FE_DFL_ENV);
#endif
#if defined(__SSE2__)
    constexpr unsigned all_masked = 0x1f80, flags = 0x3f;
    if ((control_ & ~flags) != all_masked) {  // writing takes longer than reading
      _mm_setcsr(all_masked);
    }
#endif
  }
  ~HostEnvironment() {
#if !defined(__x86_64__)
    std::fesetenv(&others_);
#endif
#if defined(__SSE2__)
    if (_mm_getcsr() != control_) {
      _mm_setcsr(control_);
    }
#endif
  }
  HostEnvironment(const HostEnvironment&) = delete;
  HostEnvironment& operator=(const HostEnvironment&) = delete;

 private:
#if defined(__SSE2__)
  unsigned control_;
#endif
#if !defined(__x86_64__)
  std::fenv_t others_{};
#endif
};

}  // namespace steam

#pragma once

/// The module object, created at load.
struct TModule {
  const char* name;
  void* instance;
};

namespace classic {

/// Entry routine of the module: creates the module object "VEK.DLL" whatever the reason.
/// @return 1, always
int module_entry(void* instance, unsigned long reason, void* reserved);

}  // namespace classic

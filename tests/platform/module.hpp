#pragma once

#include "vek/vek.h"

namespace host {

/// A module as a host loads it at run time: from a file, every function asked for by name.
class Module {
 public:
  explicit Module(const char* file);

  /// The exported function of that name; ends the program when there is none.
  template <class Function>
  Function* function(const char* name) const {
    return reinterpret_cast<Function*>(address(name));
  }

  /// What the system knows it by.
  void* handle() const { return handle_; }

  /// Unloads it, once per load.
  void close();

 private:
  void* address(const char* name) const;

  void* handle_;
};

}  // namespace host

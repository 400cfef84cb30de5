#include <windows.h>

#include "steam/batch/process.hpp"

namespace steam {

long process_number() { return 0; }  // no process is made of another one's memory

void keep_library() {
  HMODULE self;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCSTR>(&keep_library), &self);
}

}  // namespace steam

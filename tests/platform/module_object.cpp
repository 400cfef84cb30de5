// Windows calls the module's entry routine when the module is loaded and for every thread that
// starts or ends; each call makes a further module object.

#include <windows.h>

#include <cstdio>
#include <string>

#include "classic/frame/module.hpp"
#include "module.hpp"

namespace {

DWORD WINAPI do_nothing(void* /*unused*/) { return 0; }

void run_a_thread() {
  const HANDLE thread = CreateThread(nullptr, 0, do_nothing, nullptr, 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
}

}  // namespace

int main(int /*argc*/, char** argv) {
  const host::Module module(argv[1]);
  auto* const object = module.function<decltype(GetVekModule)>("GetVekModule");
  const TModule* const at_load = object();
  const bool describes_itself =
      std::string(at_load->name) == "VEK.DLL" && at_load->instance == GetModuleHandleA("Vek.Dll");
  const bool stays = object() == at_load;
  run_a_thread();
  const bool is_newest = object() != at_load && object()->instance == at_load->instance;
  std::printf("describes itself %d, stays %d, newest %d\n", describes_itself, stays, is_newest);
  return describes_itself && stays && is_newest ? 0 : 1;
}

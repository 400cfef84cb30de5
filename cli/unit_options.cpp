#include "unit_options.hpp"

namespace command {

void add_unit_options(CLI::App& app, UnitOptions& options) {
  const char* const group = "Units";
  app.add_option("--units", options.set, "of all values")
      ->check(CLI::IsMember(unit_sets()))
      ->capture_default_str()
      ->group(group);
  app.add_option("--unit", options.single, "of single properties: p=psi,t=degF")
      ->delimiter(',')
      ->type_name("P=UNIT,...")
      ->allow_extra_args(false)
      ->group(group);
  app.add_flag("--gauge", options.gauge, "pressures are above ambient, unless in bara or psia")
      ->group(group);
  app.add_option("--ambient", options.ambient, "ambient pressure")
      ->type_name("P")
      ->capture_default_str()
      ->group(group);
}

}  // namespace command

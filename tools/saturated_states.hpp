#pragma once

#include "table_file.hpp"

/// The table of saturated states: `steam::SaturatedTables`.
TableFile saturated_states_file();

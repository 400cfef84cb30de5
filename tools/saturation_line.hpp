#pragma once

#include "table_file.hpp"

/// The table of the saturation line: `steam::SaturationLineTable`.
TableFile saturation_line_file();

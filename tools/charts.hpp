#pragma once

#include "patches.hpp"
#include "steam/tables/chart_layout.hpp"
#include "table_file.hpp"

/// A pair's chart: a word for each cell, as `steam::place` reads it, and what the words point to.
TableFile chart_file(const steam::ChartLayout& layout, const Samples& samples);

#pragma once

#include <map>

#include "samples.hpp"
#include "steam/tables/chart_layout.hpp"
#include "table_file.hpp"

/// States of the regions that have polynomials.
using Samples = std::map<steam::Region, std::vector<Sample>>;

/// A pair's chart: a word for each cell, as class `steam::Patches` reads it, and the polynomials.
TableFile chart_file(const steam::ChartLayout& layout, const Samples& samples);

#pragma once

#include "patches.hpp"

/// A cell or a part of one with the polynomials of its regions.
struct Fitted {
  Patches patches;
  std::map<steam::Region, std::vector<Polynomial>> polynomials;
};

/// A cell, divided where that brings more starts to what one evaluation needs.
struct Cell {
  Fitted fit;
  int divisions = 1;        ///< along each side
  std::vector<Cell> parts;  ///< row by row; empty if it is not divided
};
Cell cell_of(const Patches& patches);

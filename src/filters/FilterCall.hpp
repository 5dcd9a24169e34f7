// SPDX-License-Identifier: MIT
// Calls an operation by its slot, for programs that know it only from the catalogue.
#pragma once

#include <array>

#include "filters/FilterCatalogue.hpp"
#include "filters/cDIBFilter.hpp"
#include "imaging/cDIB.hpp"

namespace mobrel {

/// The values of an operation's arguments, in the catalogue's order. Colours are 0x00BBGGRR, booleans
/// 0 or 1.
struct FilterValues {
    std::array<double, 5> values = {};
    const cDIB* texture = nullptr;
};

/// Runs operation `slot`, 1 to 27. Error 5 for any other, and for a texture that is not there.
void callFilter(int slot, cDIBFilter& filter, cDIB& DIB, const FilterValues& values);

}  // namespace mobrel

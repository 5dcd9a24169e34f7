// SPDX-License-Identifier: MIT
// The sample picture: a lake at dusk.
#pragma once

#include "imaging/cDIB.hpp"

namespace sample {

/// Paints the whole surface, whatever its size. The same pixels on every run and every machine.
void paintLake(mobrel::cDIB& picture);

}  // namespace sample

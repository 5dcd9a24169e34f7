// SPDX-License-Identifier: MIT
#include "platform/base/VectorKernel.hpp"

#include "platform/base/Processor.hpp"

namespace mobrel {

std::size_t chosenPlace() {
    return chosenTargets().GetIndex();
}

}  // namespace mobrel

// SPDX-License-Identifier: MIT
// Functions that are compiled once for each set of instructions, of which the processor's best is called.
//
// A kernel's header declares it: extern const VectorKernel<Signature> name. Its source has a function of the
// same name in HWY_NAMESPACE for each set but HWY_SCALAR, where one lane is no vector, and defines it under
// HWY_ONCE: MOBREL_VECTOR_KERNEL(name).
#pragma once

#include <array>
#include <cstddef>
#include <utility>

namespace mobrel {

/// The place of the best set of chosenTargets() in a kernel's table.
std::size_t chosenPlace();

template <typename Signature>
class VectorKernel;

/// Is called like the function. Where there are no vectors it does nothing and returns 0, or false.
template <typename Result, typename... Arguments>
class VectorKernel<Result(Arguments...)> {
 public:
    /// The functions in the order of Highway's sets, null where a set has none.
    template <typename... Functions>
    explicit constexpr VectorKernel(Functions... functions) : m_functions{nullptr, functions...} {
        for (Function& function : m_functions) {
            if (function == nullptr) function = doNothing;
        }
    }

    Result operator()(Arguments... arguments) const {
        return m_functions[chosenPlace()](std::forward<Arguments>(arguments)...);
    }

 private:
    using Function = Result (*)(Arguments...);
    static Result doNothing(Arguments...) { return Result(); }

    static constexpr std::size_t kPlaces =
        17;  // Highway's sets, one empty place before and HWY_SCALAR behind
    std::array<Function, kPlaces> m_functions;
};

}  // namespace mobrel

/// Defines the kernel that is declared by this name.
#define MOBREL_VECTOR_KERNEL(name) constinit decltype(name) name(HWY_CHOOSE_TARGET_LIST(name))

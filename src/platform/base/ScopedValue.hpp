// SPDX-License-Identifier: MIT
// A value for the length of a block.
#pragma once

#include <utility>

namespace mobrel {

/// Sets a variable, and sets it back at the end of the block, also by way of an error.
template <typename Value>
class ScopedValue {
 public:
    ScopedValue(Value& variable, Value value)
        : m_variable(variable), m_before(std::exchange(variable, std::move(value))) {}
    ~ScopedValue() { m_variable = std::move(m_before); }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

 private:
    Value& m_variable;
    Value m_before;
};

}  // namespace mobrel

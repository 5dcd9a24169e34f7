// SPDX-License-Identifier: MIT
// Small tables of keys and values.
#pragma once

namespace mobrel {

/// The value beside a key in an array of pairs; `otherwise` for a key that is not there.
template <typename Table, typename Key, typename Value>
constexpr Value valueIn(const Table& table, const Key& key, Value otherwise) {
    for (const auto& [known, value] : table) {
        if (known == key) return value;
    }
    return otherwise;
}

}  // namespace mobrel

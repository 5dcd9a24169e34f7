// SPDX-License-Identifier: MIT
// What can go wrong, by what it costs.
#pragma once

#include <stdexcept>

namespace mobrel::batch {

/// One picture cannot be done. what() is the reason, in words for a person.
class Failure : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The command line cannot be carried out at all. what() is one line.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

}  // namespace mobrel::batch

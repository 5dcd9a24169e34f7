// SPDX-License-Identifier: MIT
#include "platform/RandomSource.hpp"

namespace mobrel {

RandomSource& processRandomSource() {
    static RandomSource source;
    return source;
}

}  // namespace mobrel

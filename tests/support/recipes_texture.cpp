// SPDX-License-Identifier: MIT
// The filter that lays a texture over the picture.
#include <cstddef>

#include "support/FilterRecipes.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {

using test::kBlue;
using test::kChannels;

void texturize(Picture& D, const Picture& texture, EventLog& log) {
    if (D.isEmpty()) return;
    for (int ty0 = 0; ty0 <= D.height - 1; ty0 += texture.height) {
        for (int tx0 = 0; tx0 <= D.width - 1; tx0 += texture.width) {
            for (int j = 0; j <= texture.height - 1; ++j) {
                for (int i = 0; i <= texture.width - 1; ++i) {
                    const int x = tx0 + i;
                    const int y = ty0 + j;
                    if (x > D.width - 1 || y > D.height - 1) continue;
                    const int t = texture.sample(i, j, kBlue);
                    const float a = static_cast<float>(t / 128.0);
                    const int s = t - 128;
                    for (const std::size_t c : kChannels) {
                        const float old = D.at(x, y)[c];
                        D.at(x, y)[c] = clamped(rounded(double{old} * a + s));
                    }
                }
            }
        }
        log.progress(ty0);
    }
    log.progressEnd();
}

}  // namespace mobrel::recipes

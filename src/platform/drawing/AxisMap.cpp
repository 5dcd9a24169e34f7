// SPDX-License-Identifier: MIT
#include "platform/drawing/AxisMap.hpp"

namespace mobrel {

namespace {

/// Walks ((2d + 1) s - 1) div (2w) from some d on without dividing: the quotient grows by s div w, and by
/// one more where the remainders make up a whole.
class PixelSteps {
 public:
    PixelSteps(std::int64_t source, std::int64_t target, std::int64_t d)
        : m_divisor(2 * target),
          m_step(source / target),
          m_remainderStep(2 * (source % target)),
          m_quotient(((2 * d + 1) * source - 1) / m_divisor),
          m_remainder(((2 * d + 1) * source - 1) % m_divisor) {}

    std::int64_t source() const { return m_quotient; }

    void advance() {
        m_quotient += m_step;
        m_remainder += m_remainderStep;
        if (m_remainder < m_divisor) return;
        m_remainder -= m_divisor;
        ++m_quotient;
    }

 private:
    std::int64_t m_divisor;
    std::int64_t m_step;
    std::int64_t m_remainderStep;
    std::int64_t m_quotient;
    std::int64_t m_remainder;
};

}  // namespace

AxisMap mapAxis(const Side& target, const Side& source) {
    AxisMap map;
    if (target.size == 0 || source.size == 0) return map;
    const std::int64_t begin = std::max<std::int64_t>(target.lowest(), 0);
    const std::int64_t end = std::min<std::int64_t>(target.lowest() + target.length(), target.extent);
    if (begin >= end) return map;
    map.sources.reserve(static_cast<std::size_t>(end - begin));
    const bool isBackwards = target.size < 0;
    std::int64_t d = isBackwards ? target.origin - (end - 1) : begin - target.origin;
    PixelSteps steps(source.length(), target.length(), d);
    for (std::int64_t i = begin; i < end; ++i, ++d, steps.advance()) {
        const std::int64_t taken = source.place(steps.source());
        if (taken < 0 || taken >= source.extent) continue;
        if (map.empty() || isBackwards) map.first = static_cast<int>(target.place(d));
        map.sources.push_back(static_cast<int>(taken));
    }
    if (isBackwards) std::ranges::reverse(map.sources);
    return map;
}

bool hasStep(const AxisMap& map, int step) {
    const auto breaks = [step](int a, int b) { return b - a != step; };
    return std::ranges::adjacent_find(map.sources, breaks) == map.sources.end();
}

std::optional<Repetition> repetitionOf(const AxisMap& map) {
    const auto runBehind = [&map](std::size_t from) {
        const auto begin = map.sources.begin() + static_cast<std::ptrdiff_t>(from);
        const auto end =
            std::find_if(begin, map.sources.end(), [begin](int source) { return source != *begin; });
        return static_cast<std::size_t>(end - begin);
    };
    const std::size_t before = runBehind(0);
    if (before == map.sources.size()) return std::nullopt;
    const std::size_t times = runBehind(before);
    if (times < 2 || before > times) return std::nullopt;
    int source = map.sources[before];
    std::size_t inRun = 0;
    for (std::size_t i = before; i < map.sources.size(); ++i) {
        if (map.sources[i] != source) return std::nullopt;
        if (++inRun < times) continue;
        inRun = 0;
        ++source;
    }
    return Repetition{before, times, (map.sources.size() - before) / times};
}

}  // namespace mobrel

// SPDX-License-Identifier: MIT
#include "support/PictureBench.hpp"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "peers/Peer.hpp"
#include "support/PhotoPicture.hpp"

namespace mobrel::bench {
namespace {

constexpr std::int64_t kMostPlainPixels = 512 * 512;

/// Enough rounds that one of them is not disturbed.
int roundsFor(const Size& size) {
    constexpr std::int64_t kPixelsPerRow = 40'000'000;
    return static_cast<int>(std::clamp<std::int64_t>(kPixelsPerRow / size.pixels(), 7, 200));
}

std::unique_ptr<cDIB> newPicture(const Size& size) {
    auto picture = std::make_unique<cDIB>();
    if (!picture->Create(size.width, size.height, 0)) throw std::runtime_error("no memory for a picture");
    return picture;
}

/// Painted once for all rows of its size.
const cDIB& photo(const Size& size) {
    static std::map<std::pair<int, int>, std::unique_ptr<cDIB>> painted;
    auto& picture = painted[{size.width, size.height}];
    if (!picture) {
        picture = newPicture(size);
        paintPhoto(*picture);
    }
    return *picture;
}

std::size_t bytesOf(const cDIB& picture) {
    return static_cast<std::size_t>(picture.Size());
}

void copyPixels(const cDIB& from, cDIB& to) {
    std::memcpy(to.DIBitsPtr(), from.DIBitsPtr(), bytesOf(from));
}

bool hasSameSize(const cDIB& a, const cDIB& b) {
    return a.Width() == b.Width() && a.Height() == b.Height();
}

bool hasSamePixels(const cDIB& a, const cDIB& b) {
    return hasSameSize(a, b) && std::memcmp(a.DIBitsPtr(), b.DIBitsPtr(), bytesOf(a)) == 0;
}

/// Makes the picture anew when an operation has changed its size. All of it is written, since the first
/// touch of memory takes longer than a copy.
void restoreSize(const cDIB& source, cDIB& picture) {
    if (hasSameSize(source, picture)) return;
    if (!picture.Create(source.Width(), source.Height(), 0)) throw std::runtime_error("no memory");
    copyPixels(source, picture);
}

void runIfAny(const std::function<void(cDIB&)>& step, cDIB& picture) {
    if (step) step(picture);
}

template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// What another library takes for its nearest operation.
class PeerTime {
 public:
    PeerTime(std::string name, PeerRun run) : m_name(std::move(name)), m_run(std::move(run)) {}

    void measureRound() {
        m_run.prepare();
        m_least = std::min(m_least, secondsOf(m_run.run));
    }
    const std::string& name() const { return m_name; }
    double least() const { return m_least; }

 private:
    std::string m_name;
    PeerRun m_run;
    double m_least = std::numeric_limits<double>::max();
};

std::vector<PeerTime> peerTimes(const std::string& operation, const cDIB& picture) {
    std::vector<PeerTime> times;
    for (const Peer& peer : peers()) {
        for (const PeerOperation& nearest : peer.operations) {
            if (nearest.operation == operation) times.emplace_back(peer.name, nearest.open(picture));
        }
    }
    return times;
}

/// The seconds of the operation alone.
double runTimed(const PictureOperation& operation, cDIB& picture) {
    runIfAny(operation.prepare, picture);
    const double seconds = secondsOf([&] { operation.run(picture); });
    runIfAny(operation.conclude, picture);
    return seconds;
}

void measure(benchmark::State& state, const PictureOperation& operation, const Size& size) {
    const cDIB& source = photo(size);
    const auto expected = newPicture(size);
    copyPixels(source, *expected);
    if (size.pixels() <= kMostPlainPixels) {
        operation.runPlainly(*expected);
    } else {
        runTimed(operation, *expected);
    }

    const auto work = newPicture(size);
    std::vector<PeerTime> others = peerTimes(operation.name, source);
    double leastCopy = std::numeric_limits<double>::max();
    double leastRun = leastCopy;
    for ([[maybe_unused]] auto round : state) {
        restoreSize(source, *work);
        const double copy = secondsOf([&] { copyPixels(source, *work); });
        const double run = runTimed(operation, *work);
        state.SetIterationTime(run);
        leastCopy = std::min(leastCopy, copy);
        leastRun = std::min(leastRun, run);
        for (PeerTime& other : others) other.measureRound();
        if (hasSamePixels(*work, *expected)) continue;
        state.SkipWithError("the bytes are wrong");
        return;
    }
    const double nanosecondsPerPixel = 1e9 / static_cast<double>(size.pixels());
    state.counters[kPerPixel] = leastRun * nanosecondsPerPixel;
    state.counters[kPerCopy] = leastRun / leastCopy;
    for (const PeerTime& other : others) state.counters[other.name()] = other.least() * nanosecondsPerPixel;
}

}  // namespace

void addPictureBench(const PictureOperation& operation, const Size& size, int rounds) {
    const std::string row = operation.group + '/' + operation.name + '/' + size.toString();
    const auto run = [operation, size](benchmark::State& state) {
        try {
            measure(state, operation, size);
        } catch (const std::exception& error) {
            state.SkipWithError(error.what());
        }
    };
    benchmark::RegisterBenchmark(row.c_str(), run)  // NOLINT(clang-analyzer-cplusplus*): the library owns it
        ->Iterations(rounds > 0 ? rounds : roundsFor(size))
        ->UseManualTime();
}

}  // namespace mobrel::bench

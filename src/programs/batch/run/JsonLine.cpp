// SPDX-License-Identifier: MIT
#include "programs/batch/run/JsonLine.hpp"

#include <array>
#include <charconv>
#include <string_view>

#include "platform/base/JsonText.hpp"

namespace mobrel::batch {

namespace {

// Three decimals, whatever the locale.
std::string secondsText(double seconds) {
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), seconds, std::chars_format::fixed, 3).ptr;
    return {buffer.data(), end};
}

std::string_view statusText(Status status) {
    switch (status) {
        case Status::Done:
            return "done";
        case Status::Failed:
            return "failed";
        case Status::NotDone:
            break;
    }
    return "not done";
}

std::string infoFields(const PictureInfo& info) {
    return ",\"palette\":" + jsonString(info.palette) +
           ",\"colors_used\":" + std::to_string(info.colorsUsed) +
           ",\"bitmap_bytes\":" + std::to_string(info.bitmapBytes);
}

std::string numberOrNull(int number) {
    return number > 0 ? std::to_string(number) : "null";
}

}  // namespace

std::string jsonLine(const Task& task, const Outcome& outcome) {
    std::string line = "{\"file\":" + jsonString(task.picture);
    if (!task.target.empty()) line += ",\"target\":" + jsonString(task.target);
    line += ",\"width\":" + numberOrNull(outcome.width);
    line += ",\"height\":" + numberOrNull(outcome.height);
    line += ",\"depth\":" + numberOrNull(outcome.depth);
    if (outcome.info) line += infoFields(*outcome.info);
    line += ",\"status\":" + jsonString(statusText(outcome.status));
    line += ",\"error\":" + (outcome.error.empty() ? std::string("null") : jsonString(outcome.error));
    line += ",\"seconds\":" + secondsText(outcome.seconds) + "}";
    return line;
}

}  // namespace mobrel::batch

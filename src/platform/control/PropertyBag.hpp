// SPDX-License-Identifier: MIT
// Where a control keeps its design-time properties, each under its own name.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/control/ControlPicture.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/TextService.hpp"

namespace mobrel {

/// Reading gives the fallback for a key that is not there or holds something else; a picture, null. A colour
/// is a property value, as OleTranslateColor takes it.
class PropertyBag {
 public:
    virtual ~PropertyBag() = default;

    virtual std::int32_t readNumber(std::string_view key, std::int32_t fallback) const = 0;
    virtual bool readBool(std::string_view key, bool fallback) const = 0;
    virtual std::uint32_t readColor(std::string_view key, std::uint32_t fallback) const = 0;
    virtual std::string readText(std::string_view key, std::string_view fallback) const = 0;
    virtual TextFont readFont(std::string_view key, const TextFont& fallback) const = 0;
    virtual std::shared_ptr<const ControlPicture> readPicture(std::string_view key) const = 0;

    virtual void writeNumber(std::string_view key, std::int32_t value) = 0;
    virtual void writeBool(std::string_view key, bool value) = 0;
    virtual void writeColor(std::string_view key, std::uint32_t value) = 0;
    virtual void writeText(std::string_view key, std::string_view value) = 0;
    virtual void writeFont(std::string_view key, const TextFont& value) = 0;
    virtual void writePicture(std::string_view key, std::shared_ptr<const ControlPicture> value) = 0;
};

}  // namespace mobrel

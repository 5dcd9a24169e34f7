// SPDX-License-Identifier: MIT
// A property bag in memory that notes the order of the keys.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/control/PropertyBag.hpp"

namespace mobrel::test {

class FakePropertyBag : public PropertyBag {
 public:
    std::int32_t readNumber(std::string_view key, std::int32_t fallback) const override {
        return read(key, fallback);
    }
    bool readBool(std::string_view key, bool fallback) const override { return read(key, fallback); }
    std::uint32_t readColor(std::string_view key, std::uint32_t fallback) const override {
        return read(key, fallback);
    }
    std::string readText(std::string_view key, std::string_view fallback) const override {
        return read(key, std::string(fallback));
    }
    TextFont readFont(std::string_view key, const TextFont& fallback) const override {
        return read(key, fallback);
    }
    std::shared_ptr<const ControlPicture> readPicture(std::string_view key) const override {
        return read(key, std::shared_ptr<const ControlPicture>());
    }

    void writeNumber(std::string_view key, std::int32_t value) override { write(key, value); }
    void writeBool(std::string_view key, bool value) override { write(key, value); }
    void writeColor(std::string_view key, std::uint32_t value) override { write(key, value); }
    void writeText(std::string_view key, std::string_view value) override { write(key, std::string(value)); }
    void writeFont(std::string_view key, const TextFont& value) override { write(key, value); }
    void writePicture(std::string_view key, std::shared_ptr<const ControlPicture> value) override {
        write(key, std::move(value));
    }

    /// The keys in the order they were asked for, and written.
    mutable std::vector<std::string> keysRead;
    std::vector<std::string> keysWritten;

    /// Two bags with equal values hold the same under the same keys.
    using Value = std::variant<std::int32_t, bool, std::uint32_t, std::string, TextFont,
                               std::shared_ptr<const ControlPicture>>;
    std::map<std::string, Value> values;

 private:
    template <typename T>
    T read(std::string_view key, T fallback) const {
        keysRead.emplace_back(key);
        const auto found = values.find(std::string(key));
        const T* value = found == values.end() ? nullptr : std::get_if<T>(&found->second);
        return value != nullptr ? *value : std::move(fallback);
    }
    template <typename T>
    void write(std::string_view key, T value) {
        keysWritten.emplace_back(key);
        values[std::string(key)] = std::move(value);
    }
};

}  // namespace mobrel::test

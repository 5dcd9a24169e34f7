// SPDX-License-Identifier: MIT
// Searching and sorting.
#include <utility>

#include "controls/ucCoolList.hpp"
#include "platform/base/AsciiText.hpp"

namespace mobrel {

namespace {

/// The small letter of a capital that UTF-8 writes in two bytes, where that is two bytes as well: Latin,
/// Greek and Cyrillic, the same in every locale.
char32_t lowerOf(char32_t letter) {
    const auto isIn = [letter](char32_t first, char32_t last) { return letter >= first && letter <= last; };
    if (isIn(0xC0, 0xDE) && letter != 0xD7) return letter + 0x20;
    if (isIn(0x100, 0x12F) || isIn(0x132, 0x137) || isIn(0x14A, 0x177)) return letter | 1;
    if (isIn(0x139, 0x148) || isIn(0x179, 0x17E)) return letter + (letter & 1);
    if (letter == 0x178) return 0xFF;
    if (isIn(0x391, 0x3AB) && letter != 0x3A2) return letter + 0x20;
    if (isIn(0x400, 0x40F)) return letter + 0x50;
    if (isIn(0x410, 0x42F)) return letter + 0x20;
    return letter;
}

/// UTF-8 in small letters; the result has as many bytes.
std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const auto first = static_cast<unsigned char>(lower[i]);
        lower[i] = asciiLower(lower[i]);
        if (first < 0xC2 || first > 0xDF || i + 1 == lower.size()) continue;
        const auto second = static_cast<unsigned char>(lower[i + 1]);
        const char32_t letter = lowerOf((first & 0x1FU) << 6 | (second & 0x3FU));
        lower[i] = static_cast<char>(0xC0 | letter >> 6);
        lower[++i] = static_cast<char>(0x80 | (letter & 0x3F));
    }
    return lower;
}

}  // namespace

int ucCoolList::FindFirst(std::string_view Find, int Start, bool Exact) const {
    if (ListCount() == 0 || Start < 0) throw RuntimeError(ErrorNumber::InvalidPropertyIndex);
    const std::string wanted = lowerCase(Find);
    for (int i = Start; i <= ListCount(); ++i) {
        const std::string text = lowerCase(m_items[static_cast<std::size_t>(i)].Text);
        // nothing is found in an empty text, not even the empty text
        const std::size_t place = text.empty() ? std::string::npos : text.find(wanted);
        // kept: without Exact a text at the very start does not count
        if (place != std::string::npos && (place == 0) == Exact) return i;
    }
    return -1;
}

void ucCoolList::Order() {
    if (ListCount() < 2) return;
    change([this] {
        sortItems();
        for (Item& item : m_items) item.isSelected = false;
        if (m_listIndex >= 0) moveTo(-1);
        m_scroll.setValue(0);
        repaint();
        tellAccessible();
    });
}

/// A shell sort, whose order of equal texts is a part of the result.
void ucCoolList::sortItems() {
    const auto count = static_cast<std::size_t>(ListCount());
    const bool isAscending = m_properties.OrderType == ListOrder::Ascending;
    // kept: in descending order equal texts move too
    const auto belongsBehind = [isAscending](const Item& a, const Item& b) {
        return isAscending ? a.Text > b.Text : a.Text <= b.Text;
    };
    std::size_t stride = 1;
    while (stride <= count) stride = 3 * stride + 1;
    do {
        stride /= 3;
        for (std::size_t i = stride; i < count; ++i) {
            Item item = std::move(m_items[i]);
            std::size_t place = i;
            for (; place >= stride && belongsBehind(m_items[place - stride], item); place -= stride) {
                m_items[place] = std::move(m_items[place - stride]);
            }
            m_items[place] = std::move(item);
        }
    } while (stride != 1);
}

}  // namespace mobrel

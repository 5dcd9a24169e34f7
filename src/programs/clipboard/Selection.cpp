// SPDX-License-Identifier: MIT
#include "programs/clipboard/Selection.hpp"

#include <algorithm>
#include <array>

#include "platform/base/RuntimeError.hpp"

namespace mobrel::clipboard {

namespace {

constexpr std::uint32_t kMostPairs = 256;  // of one request for several targets

template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

void send(const Display& display, const xcb_selection_request_event_t& request, xcb_atom_t property) {
    // The server reads the 32 bytes of an event, which are more than this one's fields.
    union {
        xcb_selection_notify_event_t event;
        std::array<char, 32> bytes;
    } message = {};
    message.event.response_type = XCB_SELECTION_NOTIFY;
    message.event.time = request.time;
    message.event.requestor = request.requestor;
    message.event.selection = request.selection;
    message.event.target = request.target;
    message.event.property = property;
    xcb_send_event(display.connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, message.bytes.data());
}

}  // namespace

// The order counts: some clipboard managers keep the first picture only. The empty target makes another
// keep pictures at all.
const Selection::TargetName Selection::kTargetNames[] = {
    {"image/png", Kind::Png},
    {"image/bmp", Kind::Bmp},
    {"image/x-bmp", Kind::Bmp},
    {"image/x-MS-bmp", Kind::Bmp},
    {"x-kde-force-image-copy", Kind::ForceImageCopy},
    {"TARGETS", Kind::Targets},
    {"MULTIPLE", Kind::Multiple},
    {"TIMESTAMP", Kind::Timestamp},
};

Selection::Selection(const Display& display, PictureForms& forms)
    : m_display(display),
      m_forms(forms),
      m_transfers(display),
      m_clipboard(display.atom("CLIPBOARD")),
      m_multiple(display.atom("MULTIPLE")),
      m_atomPair(display.atom("ATOM_PAIR")) {
    for (const TargetName& target : kTargetNames) {
        m_targets.push_back({display.atom(target.name), target.kind});
    }
}

bool Selection::take() {
    m_since = m_display.time();
    xcb_set_selection_owner(m_display.connection(), m_display.window(), m_clipboard, m_since);
    const auto cookie = xcb_get_selection_owner(m_display.connection(), m_clipboard);
    const Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_display.connection(), cookie, nullptr));
    m_isOwner = reply && reply->owner == m_display.window();
    return m_isOwner;
}

void Selection::serve() {
    while (m_isOwner || !m_transfers.empty()) {
        const auto event = m_display.nextEvent(m_transfers.timeLeft());
        if (!m_display.isConnected()) return;
        if (event) handle(*event);
        m_transfers.endLateOnes();
    }
    m_display.finishRequests();  // the end of the last transfer is one
}

void Selection::handle(const xcb_generic_event_t& event) {
    switch (event.response_type) {
        case 0:
            handleError(as<xcb_generic_error_t>(event));
            break;
        case XCB_SELECTION_REQUEST:
            answer(as<xcb_selection_request_event_t>(event));
            break;
        case XCB_SELECTION_CLEAR:
            m_isOwner = false;
            break;
        case XCB_PROPERTY_NOTIFY: {
            const auto& change = as<xcb_property_notify_event_t>(event);
            if (change.state == XCB_PROPERTY_DELETE) m_transfers.propertyDeleted(change.window, change.atom);
            break;
        }
        case XCB_DESTROY_NOTIFY:
            m_transfers.windowGone(as<xcb_destroy_notify_event_t>(event).window);
            break;
        default:
            break;
    }
}

// The windows are other programs' and may go at any time. Every other error leaves a transfer that comes to
// its time-out.
void Selection::handleError(const xcb_generic_error_t& error) {
    if (error.error_code == XCB_WINDOW) m_transfers.windowGone(error.resource_id);
}

void Selection::answer(const xcb_selection_request_event_t& request) {
    // Programs of an older convention name no property and expect the target's name for it.
    const xcb_atom_t property = request.property != XCB_ATOM_NONE ? request.property : request.target;
    const bool given = isInTime(request.time) &&
                       (request.target == m_multiple ? convertSeveral(request.requestor, property)
                                                     : convert(request.requestor, request.target, property));
    send(m_display, request, given ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE));
}

// What was asked for before the picture came was meant for another owner. The server's time wraps.
bool Selection::isInTime(xcb_timestamp_t time) const {
    return time == XCB_CURRENT_TIME || static_cast<std::int32_t>(time - m_since) >= 0;
}

bool Selection::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
    const auto known = std::ranges::find(m_targets, target, &Target::atom);
    bool given = false;
    if (known != m_targets.end() && property != XCB_ATOM_NONE) {
        skipErrors([&] { given = give(requestor, *known, property); });
    }
    return given;
}

bool Selection::convertSeveral(xcb_window_t requestor, xcb_atom_t property) {
    const auto cookie = xcb_get_property(m_display.connection(), 0, requestor, property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, 2 * kMostPairs);
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_display.connection(), cookie, nullptr));
    if (!reply || reply->format != 32 || reply->bytes_after > 0) return false;
    const std::span pairs(static_cast<xcb_atom_t*>(xcb_get_property_value(reply.get())), reply->value_len);
    if (pairs.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        if (!convert(requestor, pairs[i], pairs[i + 1])) pairs[i + 1] = XCB_ATOM_NONE;
    }
    giveWords(requestor, property, m_atomPair, pairs);
    return true;
}

bool Selection::give(xcb_window_t requestor, const Target& target, xcb_atom_t property) {
    switch (target.kind) {
        case Kind::Png:
            m_transfers.give(requestor, property, target.atom, m_forms.png());
            return true;
        case Kind::Bmp:
            m_transfers.give(requestor, property, target.atom, m_forms.bmp());
            return true;
        case Kind::ForceImageCopy:
            m_transfers.give(requestor, property, target.atom, {});
            return true;
        case Kind::Targets: {
            std::vector<std::uint32_t> atoms;
            for (const Target& one : m_targets) atoms.push_back(one.atom);
            giveWords(requestor, property, XCB_ATOM_ATOM, atoms);
            return true;
        }
        case Kind::Timestamp:
            giveWords(requestor, property, XCB_ATOM_INTEGER, std::span(&m_since, 1));
            return true;
        case Kind::Multiple:  // within itself
            return false;
    }
    return false;
}

void Selection::giveWords(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                          std::span<const std::uint32_t> words) const {
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, requestor, property, type, 32,
                        static_cast<std::uint32_t>(words.size()), words.data());
}

}  // namespace mobrel::clipboard

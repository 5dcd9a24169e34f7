// SPDX-License-Identifier: MIT
// The ownership of the clipboard, and the answers to those who ask for what is on it.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <span>
#include <vector>

#include "programs/clipboard/Display.hpp"
#include "programs/clipboard/PictureForms.hpp"
#include "programs/clipboard/Transfers.hpp"

namespace mobrel::clipboard {

/// The selection CLIPBOARD with one picture.
///
/// Sources: ICCCM 2.1 to 2.2 (ownership, responsibilities of the owner), 2.6.2 (the targets TARGETS,
/// MULTIPLE, TIMESTAMP).
class Selection {
 public:
    Selection(const Display& display, PictureForms& forms);

    /// Takes the selection from whoever has it. False when the server did not give it.
    bool take();

    /// Answers until another program has taken the selection and the transfers that run then have come to
    /// an end, or until the server goes away.
    void serve();

 private:
    enum class Kind { Png, Bmp, ForceImageCopy, Targets, Multiple, Timestamp };
    struct Target {
        xcb_atom_t atom;
        Kind kind;
    };
    struct TargetName {
        const char* name;
        Kind kind;
    };
    static const TargetName kTargetNames[];

    void handle(const xcb_generic_event_t& event);
    void handleError(const xcb_generic_error_t& error);
    void answer(const xcb_selection_request_event_t& request);
    bool isInTime(xcb_timestamp_t time) const;
    bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool convertSeveral(xcb_window_t requestor, xcb_atom_t property);
    bool give(xcb_window_t requestor, const Target& target, xcb_atom_t property);
    void giveWords(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                   std::span<const std::uint32_t> words) const;

    const Display& m_display;
    PictureForms& m_forms;
    Transfers m_transfers;
    xcb_atom_t m_clipboard;
    xcb_atom_t m_multiple;
    xcb_atom_t m_atomPair;
    std::vector<Target> m_targets;
    xcb_timestamp_t m_since = XCB_CURRENT_TIME;
    bool m_isOwner = false;
};

}  // namespace mobrel::clipboard

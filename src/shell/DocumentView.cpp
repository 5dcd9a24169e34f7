// SPDX-License-Identifier: MIT
#include "shell/DocumentView.hpp"

#include <algorithm>

namespace mobrel {

bool DocumentViews::isPreviewing() const {
    return std::ranges::any_of(m_views, &DocumentView::Previewing);
}

bool DocumentViews::isThere(const DocumentView* view) const {
    return std::ranges::find(m_views, view) != m_views.end();
}

}  // namespace mobrel

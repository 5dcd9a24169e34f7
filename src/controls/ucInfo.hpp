// SPDX-License-Identifier: MIT
// The status bar of the main window: three texts.
#pragma once

#include <string>
#include <utility>

namespace mobrel {

class ucInfo {
 public:
    const std::string& TextFile() const noexcept { return m_textFile; }
    void setTextFile(std::string text) { m_textFile = std::move(text); }

    const std::string& TextInfo() const noexcept { return m_textInfo; }
    void setTextInfo(std::string text) { m_textInfo = std::move(text); }

    const std::string& TextZoom() const noexcept { return m_textZoom; }
    void setTextZoom(std::string text) { m_textZoom = std::move(text); }

 private:
    std::string m_textFile;
    std::string m_textInfo;
    std::string m_textZoom;
};

}  // namespace mobrel

// XmlText: a name, label, type or value handed to the writer, wide or narrow.
#pragma once

#include <string>
#include <string_view>

#include "archive/text_conversion.h"

namespace TalvexCore {

// The writer takes every text in either width: wide text as it stands, narrow text converted as
// narrowToWide converts it. Both stop at their first zero character.
class XmlText {
public:
    XmlText() = default;
    XmlText(const char* text) : narrow(text) {}
    XmlText(std::string_view text) : narrow(text) {}
    XmlText(const std::string& text) : narrow(text) {}
    XmlText(const char16_t* text) : wide(text), isWide(true) {}
    XmlText(std::u16string_view text) : wide(text), isWide(true) {}
    XmlText(const std::u16string& text) : wide(text), isWide(true) {}

    bool empty() const { return isWide ? wide.empty() || wide[0] == 0 : narrow.empty() || narrow[0] == 0; }
    void appendTo(std::u16string& out) const;
    // The same text as UTF-8.
    void appendUtf8To(std::string& out, LoneSurrogates loneSurrogates = LoneSurrogates::Replaced) const;
    std::u16string toWide() const;
    // The wide text as a view: wide text as it stands, narrow text converted into `scratch`.
    std::u16string_view wideView(std::u16string& scratch) const;
    // The text as handed in, for a writer that turns it into UTF-8 itself; not yet cut at a zero.
    bool isWideText() const { return isWide; }
    std::string_view narrowText() const { return narrow; }
    std::u16string_view wideText() const { return wide; }

private:
    std::string_view narrow;
    std::u16string_view wide;
    bool isWide = false;
};

}  // namespace TalvexCore

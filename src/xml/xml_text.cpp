#include "xml/xml_text.h"

#include <algorithm>

#include "archive/text_conversion.h"

namespace TalvexCore {

void XmlText::appendTo(std::u16string& out) const
{
    if (!isWide) {
        appendNarrowAsWide(out, narrow);
        return;
    }
    const auto zero = wide.find(u'\0');
    out.append(zero == std::u16string_view::npos ? wide : wide.substr(0, zero));
}

void XmlText::appendUtf8To(std::string& out) const
{
    if (isWide) {
        const auto zero = wide.find(u'\0');
        appendWideAsNarrow(out, zero == std::u16string_view::npos ? wide : wide.substr(0, zero));
        return;
    }
    const std::string_view text = narrow.substr(0, narrow.find('\0'));
    // Names and types are ASCII and go as they stand; other text takes the wide form's way, so that
    // text that is not UTF-8 comes out as the wide writer would give it.
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        out.append(text);
        return;
    }
    appendWideAsNarrow(out, narrowToWide(text));
}

std::u16string_view XmlText::wideView(std::u16string& scratch) const
{
    if (!isWide) {
        appendNarrowAsWide(scratch, narrow);
        return scratch;
    }
    const auto zero = wide.find(u'\0');
    return zero == std::u16string_view::npos ? wide : wide.substr(0, zero);
}

std::u16string XmlText::toWide() const
{
    std::u16string out;
    appendTo(out);
    return out;
}

}  // namespace TalvexCore

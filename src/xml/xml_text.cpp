#include "xml/xml_text.h"

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

void XmlText::appendUtf8To(std::string& out, LoneSurrogates loneSurrogates) const
{
    if (isWide) {
        const auto zero = wide.find(u'\0');
        appendWideAsNarrow(out, zero == std::u16string_view::npos ? wide : wide.substr(0, zero), loneSurrogates);
        return;
    }
    // Text that is not UTF-8 comes out as the wide writer would give it.
    appendNarrowAsUtf8(out, narrow);
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

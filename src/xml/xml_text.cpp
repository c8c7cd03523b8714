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

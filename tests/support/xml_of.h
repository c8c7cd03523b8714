// The XML an object writes, as UTF-8, so that a failure prints the text as it stands, non-ASCII too;
// and what a test looks for in such text.
#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include "archive/text_conversion.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {

template <class T>
std::string xmlOf(const T& object, std::u16string url = {})
{
    std::u16string text;
    TalvexCore::AssetXmlWriter writer(text);
    object.writeXml(writer, std::move(url));
    return TalvexCore::wideToNarrow(text);
}

// The text that some calls make on one writer at depth 0.
inline std::string textOf(const std::function<void(TalvexCore::AssetXmlWriter&)>& write)
{
    std::u16string text;
    TalvexCore::AssetXmlWriter writer(text);
    write(writer);
    return TalvexCore::wideToNarrow(text);
}

inline bool has(const std::string& text, const std::string& piece) { return text.find(piece) != std::string::npos; }

// The number of times `piece` stands in `text`.
inline std::size_t countOf(const std::string& text, const std::string& piece)
{
    std::size_t n = 0;
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++n;
    return n;
}

// What the first parameter labelled `label` holds between <value> and </value>, without blanks and
// line ends; "no value" for a parameter without one, "missing" for no such parameter.
inline std::string valueOf(const std::string& xml, const std::string& label)
{
    const auto at = xml.find("label=\"" + label + "\">");
    if (at == std::string::npos) return "missing";
    const auto open = xml.find("<value>", at);
    if (open > xml.find("</parameter>", at)) return "no value";
    std::string value = xml.substr(open + 7, xml.find("</value>", open) - open - 7);
    std::erase_if(value, [](char c) { return c == ' ' || c == '\n'; });
    return value;
}

}  // namespace TalvexTest

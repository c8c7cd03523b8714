// The XML an object writes, as UTF-8, so that a failure prints the text as it stands, non-ASCII too.
#pragma once

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

}  // namespace TalvexTest

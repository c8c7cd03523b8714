// Helpers of the texture tests: an object's XML text and its record written and read back.
#pragma once

#include <memory>
#include <string>

#include "archive/quick_archive.h"
#include "support/byte_builder.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {

// The XML an object writes under the url `url`, as UTF-8 for readable comparison.
template <class T>
std::string xmlOf(const T& object, std::u16string url = {})
{
    std::u16string text;
    TalvexCore::AssetXmlWriter writer(text);
    object.writeXml(writer, std::move(url));
    std::string narrow;
    for (char16_t c : text) narrow.push_back(static_cast<char>(c));
    return narrow;
}

// A new object of the same class that has read what `source` wrote; null if either step failed.
template <class T>
std::shared_ptr<T> writtenAndRead(const T& source)
{
    TalvexCore::QuickArchive archive(1);
    if (!source.writeBinary(archive)) return nullptr;
    auto copy = std::make_shared<T>();
    if (!copy->readBinary(archive)) return nullptr;
    return copy;
}

template <class T>
std::shared_ptr<T> readFrom(const ByteBuilder& bytes)
{
    auto archive = bytes.archive();
    auto object = std::make_shared<T>();
    return object->readBinary(archive) ? object : nullptr;
}

}  // namespace TalvexTest

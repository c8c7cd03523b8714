// The two contracts of every object: a versioned binary record, and an XML asset.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace TalvexCore {
class QuickArchive;
class AssetXmlWriter;
}  // namespace TalvexCore

namespace TalvexCore {

// A plug-in or asset type as fixed text of the program, for `typeName`.
template <std::size_t N>
struct FixedTypeName {
    constexpr FixedTypeName(const char16_t (&text)[N])
    {
        for (std::size_t i = 0; i < N; ++i) this->text[i] = text[i];
    }
    char16_t text[N];
};

// The type name kept for the whole run, so that naming a type copies no text.
template <FixedTypeName name>
const std::u16string& typeName()
{
    static const std::u16string kept(name.text, sizeof(name.text) / sizeof(char16_t) - 1);
    return kept;
}

}  // namespace TalvexCore

namespace NuvaUtils {

// An object that emits itself as an XML asset under a url.
class TalvexXMLSerializable {
public:
    virtual ~TalvexXMLSerializable() = default;
    // `url` is the owner's url, which the object's own asset extends.
    virtual void writeXml(TalvexCore::AssetXmlWriter& writer, const std::u16string& url) const = 0;
    // Both are constants of the class, kept for the whole run.
    virtual const std::u16string& pluginType() const = 0;
    virtual const std::u16string& assetType() const = 0;
    // What a plugin parameter naming this object's asset puts behind the asset url and "/": the
    // plug-in type, unless a family says otherwise. None means the url alone, with no "/".
    virtual const std::u16string* referenceName() const { return &pluginType(); }
};

}  // namespace NuvaUtils

namespace TalvexCore {

using NuvaUtils::TalvexXMLSerializable;

// An object that writes and reads itself as a versioned binary record.
class TalvexSerializable {
public:
    virtual ~TalvexSerializable() = default;
    // Writes the newest version of the record.
    virtual bool writeBinary(QuickArchive& out) const = 0;
    // Reads any known version; false for an unknown tag or a child that fails.
    virtual bool readBinary(QuickArchive& in) = 0;
};

// The version in a tag's high half.
constexpr uint32_t versionOf(uint32_t tag) { return tag >> 16; }
// The tag of a version: the version in the high half, zero in the low half.
constexpr uint32_t tagOf(uint32_t version) { return version << 16; }

// Removes every control character in place, keeping the others in order.
void stripControlCharacters(std::u16string& text);

}  // namespace TalvexCore

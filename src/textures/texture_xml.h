// The XML steps that every texture, generator and bitmap follows: children first, then its own asset.
#pragma once

#include <initializer_list>
#include <string>
#include <variant>
#include <vector>

#include "textures/base_bitmap.h"
#include "textures/base_texture.h"
#include "textures/base_uvw.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

// One child slot of a class: the parameter that names the child, what the child's url adds to the
// parent's, and the reference itself. Parameter and suffix are separate strings and may differ.
struct ChildSlot {
    ChildSlot(const char* parameter, const char* suffix, const TexturePtr& child)
        : parameter(parameter), suffix(suffix), child(&child) {}
    ChildSlot(const char* parameter, const char* suffix, const UVWPtr& child)
        : parameter(parameter), suffix(suffix), child(&child) {}
    ChildSlot(const char* parameter, const char* suffix, const BitmapPtr& child)
        : parameter(parameter), suffix(suffix), child(&child) {}

    const char* parameter;
    const char* suffix;
    std::variant<const TexturePtr*, const UVWPtr*, const BitmapPtr*> child;
};

// Construction extends the url by "/" and the plug-in type, writes each present child under its
// slot url (so the children's assets stand before the parent's, deepest first), and opens the
// asset, the plugin and the parameters. The class then writes its parameters, naming its children
// through writeChildParameters, and calls close.
class TextureXml {
public:
    TextureXml(AssetXmlWriter& writer, const TalvexXMLSerializable& self, std::u16string url,
               std::initializer_list<ChildSlot> slots = {});
    // A plugin parameter per slot, in slot order; an empty child gets its parameter with no value.
    void writeChildParameters() const;
    void close() const;

private:
    struct Child {
        ChildSlot slot;
        std::u16string url;  // the slot url, without the child's own type
    };
    AssetXmlWriter& writer;
    std::vector<Child> children;
};

}  // namespace TalvexCore

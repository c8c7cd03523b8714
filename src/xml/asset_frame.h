// AssetFrame: the steps of every asset, the child assets under their url words, then the asset,
// its plugin and its parameters.
#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "records/serializable.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

// One child of an asset: the plugin parameter that names it, the word its url adds to the
// asset's, and the child itself. A slot with no url word hands the child the asset's own url,
// which the child extends as it does (a material's layers add their names).
struct ChildSlot {
    ChildSlot(const char* parameter, const char* urlWord, const TalvexXMLSerializable* child)
        : parameter(parameter), urlWord(urlWord), child(child) {}
    template <class T>
        requires std::derived_from<T, TalvexXMLSerializable>
    ChildSlot(const char* parameter, const char* urlWord, const std::shared_ptr<T>& child)
        : ChildSlot(parameter, urlWord, static_cast<const TalvexXMLSerializable*>(child.get())) {}

    const char* parameter;
    const char* urlWord;
    const TalvexXMLSerializable* child;  // null: no child
};

// Construction writes each present child's asset under its slot url, in slot order, so that the
// children stand complete before their parent; then it opens the asset at `url`, the plugin with
// the object's plug-in and asset types, and the parameters. The caller writes the parameters and
// calls close.
class AssetFrame {
public:
    AssetFrame(AssetXmlWriter& writer, const TalvexXMLSerializable& self, std::u16string url, XmlText layout,
               std::span<const ChildSlot> slots);
    AssetFrame(AssetXmlWriter& writer, const TalvexXMLSerializable& self, std::u16string url, XmlText layout,
               std::initializer_list<ChildSlot> slots = {})
        : AssetFrame(writer, self, std::move(url), layout, std::span<const ChildSlot>(slots.begin(), slots.size())) {}
    AssetFrame(const AssetFrame&) = delete;
    AssetFrame& operator=(const AssetFrame&) = delete;

    const std::u16string& url() const { return assetUrl; }
    // The plugin parameter of slot `index`, naming the child's asset; an empty child gets its
    // parameter with no value.
    void writeChildParameter(std::size_t index) const;
    // The plugin parameter of every slot, in slot order.
    void writeChildParameters() const;
    void close() const;

private:
    struct Child {
        ChildSlot slot;
        std::u16string url;
    };
    AssetXmlWriter& writer;
    std::u16string assetUrl;
    std::vector<Child> children;
};

}  // namespace TalvexCore

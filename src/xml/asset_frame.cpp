#include "xml/asset_frame.h"

#include "archive/text_conversion.h"

namespace TalvexCore {

AssetFrame::AssetFrame(AssetXmlWriter& writer, const TalvexXMLSerializable& self, std::u16string url,
                       XmlText layout, std::span<const ChildSlot> slots)
    : writer(writer), assetUrl(std::move(url))
{
    // Every slot has its url, present or not: an empty child's parameter still names nothing there.
    children.reserve(slots.size());
    for (const ChildSlot& slot : slots) {
        std::u16string childUrl;
        const std::string_view word = slot.urlWord ? std::string_view(slot.urlWord) : std::string_view();
        childUrl.reserve(assetUrl.size() + 1 + word.size());
        childUrl = assetUrl;
        if (slot.urlWord) {
            childUrl += u'/';
            appendNarrowAsWide(childUrl, word);
        }
        children.push_back({slot, std::move(childUrl)});
    }
    for (const Child& child : children)
        if (child.slot.child) child.slot.child->writeXml(writer, child.url);
    const std::u16string assetType = self.assetType();
    writer.openAsset(assetUrl, assetType, layout);
    writer.openPlugin(self.pluginType(), assetType);
    writer.openParameters();
}

void AssetFrame::writeChildParameter(std::size_t index) const
{
    const Child& child = children.at(index);
    writer.writePlugin(child.slot.parameter, child.slot.child, child.url);
}

void AssetFrame::writeChildParameters() const
{
    for (std::size_t i = 0; i < children.size(); ++i) writeChildParameter(i);
}

void AssetFrame::close() const
{
    writer.closeParameters();
    writer.closePlugin();
    writer.closeAsset();
}

}  // namespace TalvexCore

#include "xml/asset_frame.h"

#include <stdexcept>

namespace TalvexCore {

void AssetFrame::setChild(std::size_t index, const ChildSlot& slot)
{
    FrameStore& store = writer.frames();
    FrameStore::Entry& child = store[first + 1 + index];
    child.slot = slot;
    if (!slot.child) return;  // its parameter names nothing, so it needs no url
    if (slot.hasUrlWord()) store.name(first + 1 + index, AssetUrl(store[first].url, slot.urlWord));
    else store.name(first + 1 + index, AssetUrl(store[first].url));
}

void AssetFrame::open(const TalvexXMLSerializable& self, XmlText layout)
{
    FrameStore& store = writer.frames();
    for (std::size_t i = 0; i < childCount; ++i) {
        const FrameStore::Entry& child = store[first + 1 + i];
        if (child.slot.child) child.slot.child->writeXml(writer, child.url);
    }
    const std::u16string& assetType = self.assetType();
    writer.beginAsset(AssetXmlWriter::UrlText{store[first].urlText}, assetType, layout, self.pluginType());
}

void AssetFrame::writeChildParameter(std::size_t index) const
{
    if (index >= childCount) throw std::out_of_range("AssetFrame::writeChildParameter");
    const FrameStore::Entry& child = writer.frames()[first + 1 + index];
    writer.writePlugin(child.slot.parameter, child.slot.child, AssetXmlWriter::UrlText{child.urlText});
}

void AssetFrame::writeChildParameters() const
{
    for (std::size_t i = 0; i < childCount; ++i) writeChildParameter(i);
}

void AssetFrame::close() const
{
    writer.endAsset();
}

KeptUrl::KeptUrl(AssetXmlWriter& writer, AssetUrl url) : writer(writer), index(writer.frames().take(1))
{
    writer.frames().name(index, url);
}

}  // namespace TalvexCore

// AssetFrame: the steps of every asset, the child assets under their url words, then the asset,
// its plugin and its parameters.
#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>

#include "records/serializable.h"
#include "xml/asset_xml_writer.h"
#include "xml/frame_store.h"

namespace TalvexCore {

// Construction writes each present child's asset under its slot url, in slot order, so that the
// children stand complete before their parent; then it opens the asset at `url`, the plugin with
// the object's plug-in and asset types, and the parameters. The caller writes the parameters and
// calls close. The urls are kept in the writer's frame store for as long as the frame lives.
class AssetFrame {
public:
    AssetFrame(AssetXmlWriter& writer, const TalvexXMLSerializable& self, AssetUrl url, XmlText layout,
               std::span<const ChildSlot> slots)
        : AssetFrame(writer, self, url, layout, slots.size(), [slots](std::size_t i) { return slots[i]; }) {}
    AssetFrame(AssetXmlWriter& writer, const TalvexXMLSerializable& self, AssetUrl url, XmlText layout,
               std::initializer_list<ChildSlot> slots = {})
        : AssetFrame(writer, self, url, layout, std::span<const ChildSlot>(slots.begin(), slots.size())) {}
    // `count` slots, slot `i` given by `slotAt(i)`, for an object whose children are a list.
    template <class SlotAt>
        requires std::invocable<const SlotAt&, std::size_t>
    AssetFrame(AssetXmlWriter& writer, const TalvexXMLSerializable& self, AssetUrl url, XmlText layout,
               std::size_t count, const SlotAt& slotAt)
        : writer(writer), first(writer.frames().take(1 + count)), childCount(count)
    {
        writer.frames().name(first, url);
        for (std::size_t i = 0; i < count; ++i) setChild(i, slotAt(i));
        open(self, layout);
    }
    AssetFrame(const AssetFrame&) = delete;
    AssetFrame& operator=(const AssetFrame&) = delete;
    ~AssetFrame() { writer.frames().giveBack(first); }

    const std::u16string& url() const { return writer.frames()[first].url; }
    // The plugin parameter of slot `index`, naming the child's asset; an empty child gets its
    // parameter with no value.
    void writeChildParameter(std::size_t index) const;
    // The plugin parameter of every slot, in slot order.
    void writeChildParameters() const;
    void close() const;

private:
    // A present child's url is made here; an empty child's parameter names nothing, so it gets none.
    void setChild(std::size_t index, const ChildSlot& slot);
    void open(const TalvexXMLSerializable& self, XmlText layout);

    AssetXmlWriter& writer;
    std::size_t first;  // the asset's url in the frame store, its children's behind it
    std::size_t childCount;
};

// A url built in the writer's frame store, for as long as this lives.
class KeptUrl {
public:
    KeptUrl(AssetXmlWriter& writer, AssetUrl url);
    KeptUrl(const KeptUrl&) = delete;
    KeptUrl& operator=(const KeptUrl&) = delete;
    ~KeptUrl() { writer.frames().giveBack(index); }

    const std::u16string& text() const { return writer.frames()[index].url; }
    operator const std::u16string&() const { return text(); }
    // The url as the XML gives it.
    AssetXmlWriter::UrlText xmlText() const { return {writer.frames()[index].urlText}; }

private:
    AssetXmlWriter& writer;
    std::size_t index;
};

}  // namespace TalvexCore

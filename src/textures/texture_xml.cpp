#include "textures/texture_xml.h"

namespace TalvexCore {

namespace {

void appendAscii(std::u16string& out, const char* text)
{
    for (; *text != 0; ++text) out.push_back(static_cast<char16_t>(static_cast<unsigned char>(*text)));
}

}  // namespace

TextureXml::TextureXml(AssetXmlWriter& writer, const TalvexXMLSerializable& self, std::u16string url,
                       std::initializer_list<ChildSlot> slots)
    : writer(writer)
{
    url += u'/';
    url += self.pluginType();
    // Every slot has its url, present or not.
    for (const ChildSlot& slot : slots) {
        std::u16string childUrl = url + u'/';
        appendAscii(childUrl, slot.suffix);
        children.push_back({slot, std::move(childUrl)});
    }
    for (const Child& child : children)
        std::visit([&](const auto* ref) { if (*ref) (*ref)->writeXml(writer, child.url); }, child.slot.child);
    writer.openAsset(url, self.assetType(), "");
    writer.openPlugin(self.pluginType(), self.assetType());
    writer.openParameters();
}

void TextureXml::writeChildParameters() const
{
    for (const Child& child : children)
        std::visit([&](const auto* ref) { writer.writePlugin(child.slot.parameter, *ref, child.url); },
                   child.slot.child);
}

void TextureXml::close() const
{
    writer.closeParameters();
    writer.closePlugin();
    writer.closeAsset();
}

}  // namespace TalvexCore

// BaseTexture: the root of the texture family, its factory, the path-to-texture rule and the name tables.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "archive/quick_archive.h"
#include "records/serializable.h"

namespace TalvexCore {

class BaseTexture : public TalvexSerializable, public TalvexXMLSerializable {
public:
    // Puts every field back to its default, children included.
    virtual void resetDefaults() = 0;
    virtual uint32_t typeId() const = 0;
    // Deep copy: the copy shares no child with its source.
    virtual std::shared_ptr<BaseTexture> clone() const = 0;
    // Deep comparison by value; false for an empty reference or another class.
    virtual bool isEqual(const std::shared_ptr<BaseTexture>& other) const = 0;
    const std::u16string& assetType() const override { return typeName<u"texture">(); }
};

using TexturePtr = std::shared_ptr<BaseTexture>;

// A new texture of the class with this type id, at its defaults; empty for an id above 12.
TexturePtr createTexture(uint32_t id);
inline void makeFromTypeId(TexturePtr& out, uint32_t id) { out = createTexture(id); }

// Old records store a file path where newer ones store a texture: an empty path gives no
// texture, any other a bitmap texture with a channel generator and a buffer of that file.
TexturePtr textureFromFile(const std::u16string& path);

// Legacy file-name children: one path per slot, all read before any texture is built.
template <class... Slots>
bool readFileChildren(QuickArchive& in, Slots&... slots)
{
    std::array<std::u16string, sizeof...(Slots)> paths;
    for (auto& path : paths) in.readWString(path);
    std::size_t i = 0;
    ((slots = textureFromFile(paths[i++])), ...);
    return true;
}

extern const std::array<std::u16string, 13> textureTypeNames;
extern const std::array<std::u16string, 3> bitmapFilterNames;
extern const std::array<std::u16string, 4> mappingTypeNames;
// The entry of textureTypeNames; meant for the ids 0 to 12 only.
const std::u16string& textureTypeName(uint32_t id);

}  // namespace TalvexCore

// The factories of the texture, generator and bitmap families, the path-to-texture rule and the
// family's name tables.
#include <memory>

#include "textures/acolor_texture.h"
#include "textures/base_bitmap.h"
#include "textures/base_texture.h"
#include "textures/base_uvw.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/blend_texture.h"
#include "textures/bulge_texture.h"
#include "textures/channel_uvw.h"
#include "textures/checker_texture.h"
#include "textures/cloth_texture.h"
#include "textures/environment_uvw.h"
#include "textures/fresnel_texture.h"
#include "textures/grid_texture.h"
#include "textures/invert_texture.h"
#include "textures/noise_texture.h"
#include "textures/ramp_texture.h"
#include "textures/space_uvw.h"
#include "textures/uvw_texture.h"

namespace TalvexCore {

TexturePtr createTexture(uint32_t id)
{
    switch (id) {
    case 0: return std::make_shared<BitmapTexture>();
    case 1: return std::make_shared<FresnelTexture>();
    case 2: return std::make_shared<UVWTexture>();
    case 3: return std::make_shared<NoiseTexture>();
    case 4: return std::make_shared<CheckerTexture>();
    case 5: return std::make_shared<AColorTexture>();
    case 6: return std::make_shared<GridTexture>();
    case 7: return std::make_shared<ClothTexture>();
    case 8: return std::make_shared<BulgeTexture>();
    case 9: return std::make_shared<InvertTexture>();
    case 10: return std::make_shared<BlendTexture>();
    case 11: return std::make_shared<RampTexture>();
    default: return nullptr;  // 12, the sky, has no class in this build
    }
}

UVWPtr createUVW(uint32_t id)
{
    switch (id) {
    case 0: return std::make_shared<GenPlanarWorldUVW>();
    case 1: return std::make_shared<GenObjectUVW>();
    case 3: return std::make_shared<GenEnvironmentUVW>();
    case 4: return std::make_shared<GenChannelUVW>();
    default: return nullptr;  // there is no id 2
    }
}

UVWPtr createDefaultUVW()
{
    return createUVW(0);
}

BitmapPtr createBitmap(uint32_t id)
{
    return id == 0 ? std::make_shared<BitmapBuffer>() : nullptr;
}

TexturePtr textureFromFile(const std::u16string& path)
{
    if (path.empty()) return nullptr;
    auto texture = std::make_shared<BitmapTexture>();
    texture->uvwgen = createUVW(4);
    auto buffer = std::dynamic_pointer_cast<BitmapBuffer>(createBitmap(0));
    if (!texture->uvwgen || !buffer) return nullptr;
    buffer->file = path;
    texture->bitmap = buffer;
    return texture;
}

const std::array<std::u16string, 13> textureTypeNames = {
    u"Bitmap", u"Fresnel", u"UVW",   u"Noise",  u"Checker", u"AColor", u"Grid",
    u"Cloth",  u"Bulge",   u"Invert", u"Blend", u"Ramp",    u"Sky"};
const std::array<std::u16string, 3> bitmapFilterNames = {u"No filter", u"Mip-map", u"Summed-area"};
const std::array<std::u16string, 4> mappingTypeNames = {u"angular", u"cubic", u"spherical", u"mirror_ball"};

const std::u16string& textureTypeName(uint32_t id)
{
    static const std::u16string none;
    return id < textureTypeNames.size() ? textureTypeNames[id] : none;
}

}  // namespace TalvexCore

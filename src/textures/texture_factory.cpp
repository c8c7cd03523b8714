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
#include "textures/sky_texture.h"
#include "textures/space_uvw.h"
#include "textures/uvw_texture.h"
#include "records/object_runs.h"

namespace TalvexCore {

TexturePtr createTexture(uint32_t id)
{
    switch (id) {
    case 0: return makeObject<BitmapTexture>();
    case 1: return makeObject<FresnelTexture>();
    case 2: return makeObject<UVWTexture>();
    case 3: return makeObject<NoiseTexture>();
    case 4: return makeObject<CheckerTexture>();
    case 5: return makeObject<AColorTexture>();
    case 6: return makeObject<GridTexture>();
    case 7: return makeObject<ClothTexture>();
    case 8: return makeObject<BulgeTexture>();
    case 9: return makeObject<InvertTexture>();
    case 10: return makeObject<BlendTexture>();
    case 11: return makeObject<RampTexture>();
    case 12: return makeObject<SkyTexture>();
    default: return nullptr;
    }
}

UVWPtr createUVW(uint32_t id)
{
    switch (id) {
    case 0: return makeObject<GenPlanarWorldUVW>();
    case 1: return makeObject<GenObjectUVW>();
    case 3: return makeObject<GenEnvironmentUVW>();
    case 4: return makeObject<GenChannelUVW>();
    default: return nullptr;  // there is no id 2
    }
}

UVWPtr createDefaultUVW()
{
    return createUVW(0);
}

BitmapPtr createBitmap(uint32_t id)
{
    return id == 0 ? makeObject<BitmapBuffer>() : nullptr;
}

TexturePtr textureFromFile(const std::u16string& path)
{
    if (path.empty()) return nullptr;
    auto texture = makeObject<BitmapTexture>();
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

#include "textures/blend_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

namespace {

// An optional child whose multiplier stands inside the same presence: an absent child stores no
// multiplier either.
bool writeChildWithMultiplier(QuickArchive& out, const TexturePtr& child, float multiplier)
{
    out.writeBool(child != nullptr);
    if (!child) return true;
    if (!writeRequiredChild(out, child)) return false;
    out.writeF32(multiplier);
    return true;
}

// Version 1 stores the presence and the child only.
bool readChildWithMultiplier(QuickArchive& in, uint32_t version, TexturePtr& child, float& multiplier)
{
    bool present = false;
    in.readBool(present);
    if (!present) return true;
    if (!readRequiredChild(in, child)) return false;
    if (version >= 2) in.readF32(multiplier);
    return true;
}

}  // namespace

void BlendTexture::resetDefaults()
{
    color_a = color_b = nullptr;
    color_a_mult = color_b_mult = 1.0f;
    blend_amount = 0.5f;
}

bool BlendTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    if (!writeChildWithMultiplier(out, color_a, color_a_mult) ||
        !writeChildWithMultiplier(out, color_b, color_b_mult))
        return false;
    out.writeF32(blend_amount);
    return true;
}

bool BlendTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    resetDefaults();
    if (!version) return false;
    if (!readChildWithMultiplier(in, *version, color_a, color_a_mult) ||
        !readChildWithMultiplier(in, *version, color_b, color_b_mult))
        return false;
    in.readF32(blend_amount);
    return true;
}

TexturePtr BlendTexture::clone() const
{
    auto copy = std::make_shared<BlendTexture>(*this);
    copy->color_a = cloneChild(color_a);
    copy->color_b = cloneChild(color_b);
    return copy;
}

bool BlendTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(color_a, o->color_a) && childEqual(color_b, o->color_b) &&
           color_a_mult == o->color_a_mult && color_b_mult == o->color_b_mult && blend_amount == o->blend_amount;
}

void BlendTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url,
                         {{"color_a", "color_a", color_a}, {"color_b", "color_b", color_b}});
    xml.writeChildParameters();
    writer.writeFloat("blend_amount", blend_amount);
    xml.close();
}

}  // namespace TalvexCore

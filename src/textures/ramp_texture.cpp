#include "textures/ramp_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void RampTexture::resetDefaults()
{
    uvwgen = nullptr;
    colors = nullptr;
    positions = 0.5f;
    u_wave = v_wave = 0;
    type = 0;
    interpolation = 1;
}

bool RampTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    if (!writeRequiredChild(out, uvwgen) || !writeRequiredChild(out, colors)) return false;
    out.writeF32(positions); out.writeF32(u_wave); out.writeF32(v_wave);
    out.writeI32(type); out.writeI32(interpolation);
    return true;
}

bool RampTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, uvwgen) || !readRequiredChild(in, colors)) return false;
    in.readF32(positions); in.readF32(u_wave); in.readF32(v_wave);
    in.readI32(type); in.readI32(interpolation);
    return true;
}

TexturePtr RampTexture::clone() const
{
    auto copy = std::make_shared<RampTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    copy->colors = cloneChild(colors);
    return copy;
}

bool RampTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && childEqual(colors, o->colors) && positions == o->positions &&
           u_wave == o->u_wave && v_wave == o->v_wave && type == o->type && interpolation == o->interpolation;
}

void RampTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url, {{"uvwgen", "uvwgen", uvwgen}, {"colors", "colors", colors}});
    xml.writeChildParameters();
    writer.writeFloat("positions", positions);
    writer.writeFloat("u_wave", u_wave);
    writer.writeFloat("v_wave", v_wave);
    writer.writeInt("type", type);
    writer.writeInt("interpolation", interpolation);
    xml.close();
}

}  // namespace TalvexCore

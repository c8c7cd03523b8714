#include "textures/channel_uvw.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void GenChannelUVW::resetDefaults()
{
    uvwMatrix = texMatrix = identityTransform;
    uvwComponents.resetDefaults();
    texComponents.resetDefaults();
    wrap_u = wrap_v = 0;
    uvw_channel = 1;
}

bool GenChannelUVW::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    out.writeTransform(uvwMatrix); out.writeTransform(texMatrix);
    out.writeI32(wrap_u); out.writeI32(wrap_v); out.writeI32(uvw_channel);
    return uvwComponents.writeBinary(out) && texComponents.writeBinary(out);
}

// Version 1 has no component records: it keeps two rotations and two mirrors of the texture
// transform between the matrices and the wrap values. Reading starts from what the object holds.
bool GenChannelUVW::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    if (!version) return false;
    in.readTransform(uvwMatrix); in.readTransform(texMatrix);
    if (*version == 1) {
        in.readF32(texComponents.x_rotation); in.readF32(texComponents.y_rotation);
        in.readI32(texComponents.x_mirror); in.readI32(texComponents.y_mirror);
    }
    in.readI32(wrap_u); in.readI32(wrap_v); in.readI32(uvw_channel);
    if (*version == 1) return true;
    return uvwComponents.readBinary(in) && texComponents.readBinary(in);
}

void GenChannelUVW::updateTransforms()
{
    uvwMatrix = uvwComponents.toTransform();
    texMatrix = texComponents.toTransform();
}

UVWPtr GenChannelUVW::clone() const
{
    return std::make_shared<GenChannelUVW>(*this);
}

bool GenChannelUVW::isEqual(const UVWPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && uvwMatrix == o->uvwMatrix && texMatrix == o->texMatrix && uvwComponents == o->uvwComponents &&
           texComponents == o->texComponents && wrap_u == o->wrap_u && wrap_v == o->wrap_v &&
           uvw_channel == o->uvw_channel;
}

// The coordinate transform goes out by its components, the texture transform by its matrix.
void GenChannelUVW::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url);
    writer.writeComponentTransform("uvw_transform", uvwComponents);
    writer.writeTransform("tex_transform", texMatrix);
    writer.writeInt("wrap_u", wrap_u);
    writer.writeInt("wrap_v", wrap_v);
    writer.writeInt("uvw_channel", uvw_channel);
    xml.close();
}

}  // namespace TalvexCore

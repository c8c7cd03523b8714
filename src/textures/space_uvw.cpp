#include "textures/space_uvw.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void SpaceUVW::resetDefaults()
{
    uvwMatrix = identityTransform;
    uvwComponents.resetDefaults();
}

bool SpaceUVW::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    out.writeTransform(uvwMatrix);
    return uvwComponents.writeBinary(out);
}

bool SpaceUVW::readRecord(QuickArchive& in)
{
    if (!readVersion(in, {1})) return false;
    in.readTransform(uvwMatrix);
    return uvwComponents.readBinary(in);
}

bool GenObjectUVW::readBinary(QuickArchive& in)
{
    resetDefaults();
    return readRecord(in);
}

void SpaceUVW::updateTransforms()
{
    uvwMatrix = uvwComponents.toTransform();
}

bool SpaceUVW::isEqual(const UVWPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && uvwMatrix == o->uvwMatrix && uvwComponents == o->uvwComponents;
}

void SpaceUVW::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url);
    writer.writeComponentTransform("uvw_transform", uvwComponents);
    xml.close();
}

}  // namespace TalvexCore

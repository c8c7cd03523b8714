#include "textures/environment_uvw.h"

#include <string>

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/base_texture.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

namespace {

bool knownMappingType(int32_t type)
{
    return type >= 0 && static_cast<std::size_t>(type) < mappingTypeNames.size();
}

}  // namespace

void GenEnvironmentUVW::resetDefaults()
{
    mapping_type = 2;  // "spherical"
    uvwMatrix = identityMatrix;
    uvwComponents.resetDefaults();
}

bool GenEnvironmentUVW::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    out.writeMatrix(uvwMatrix);
    out.writeI32(mapping_type);
    return uvwComponents.writeBinary(out);
}

// Version 1 has no component record, but two rotations and two mirrors: the z fields come first.
// Reading starts from what the object holds.
bool GenEnvironmentUVW::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    if (!version) return false;
    in.readMatrix(uvwMatrix);
    int32_t type = mapping_type;
    const uint64_t at = in.readPosition();
    in.readI32(type);
    if (!knownMappingType(type)) {
        in.noteFailure(at, "mapping type " + std::to_string(type) + " names no projection");
        return false;
    }
    mapping_type = type;
    if (*version == 2) return uvwComponents.readBinary(in);
    in.readF32(uvwComponents.z_rotation); in.readF32(uvwComponents.x_rotation);
    in.readI32(uvwComponents.z_mirror); in.readI32(uvwComponents.x_mirror);
    return true;
}

void GenEnvironmentUVW::updateTransforms()
{
    uvwMatrix = uvwComponents.toMatrix();
}

UVWPtr GenEnvironmentUVW::clone() const
{
    return std::make_shared<GenEnvironmentUVW>(*this);
}

bool GenEnvironmentUVW::isEqual(const UVWPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && mapping_type == o->mapping_type && uvwMatrix == o->uvwMatrix && uvwComponents == o->uvwComponents;
}

void GenEnvironmentUVW::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url);
    writer.writeComponentMatrix("uvw_matrix", uvwComponents);
    // A type set by hand outside the four projections names none.
    writer.writeString("mapping_type", knownMappingType(mapping_type) ? mappingTypeNames[mapping_type] : u"");
    xml.close();
}

}  // namespace TalvexCore

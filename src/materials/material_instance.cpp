#include "materials/material_instance.h"

#include "archive/quick_archive.h"
#include "records/record_io.h"

namespace TalvexCore {

void MaterialInstance::resetDefaults()
{
    resetBaseDefaults();
    instance_target = nullptr;
}

// Instance, version 1: the tag and the base record; the target is not stored.
bool MaterialInstance::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    return writeBaseRecord(out);
}

bool MaterialInstance::readBinary(QuickArchive& in)
{
    return readVersion(in, {1}) && readBaseRecord(in);
}

MaterialPtr MaterialInstance::clone() const { return std::make_shared<MaterialInstance>(*this); }

MaterialPtr MaterialInstance::cloneSameName() const { return std::make_shared<MaterialInstance>(*this); }

bool MaterialInstance::isEqual(const MaterialPtr& /*other*/) const { return false; }

}  // namespace TalvexCore

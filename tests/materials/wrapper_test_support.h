// Helpers of the wrapper, reference and layout tests: material records built by hand, and a
// material loaded from them through the factory.
#pragma once

#include <memory>
#include <string>

#include "materials/base_material.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_test_support.h"

namespace TalvexTest {

// The newest base material record.
inline ByteBuilder materialBase(const std::string& name, const std::string& uuid = "")
{
    return ByteBuilder().tag(2).str(name).str(uuid);
}

// A layered material with no layers, as a bare material: its type id, then its newest record.
inline ByteBuilder layeredEntry(const std::string& name)
{
    return ByteBuilder().u32(1).tag(4).u32(0).u32(1).u32(0).u32(1).u32(1).append(materialBase(name)).u32(0);
}

// A present material slot holding a layered material with no layers.
inline ByteBuilder layeredSlot(const std::string& name) { return ByteBuilder().boolean(true).append(layeredEntry(name)); }

// Loads a record into a new material of the type id; the result of readBinary goes to `ok`.
inline MaterialPtr loadMaterial(uint32_t id, const ByteBuilder& bytes, bool& ok)
{
    MaterialPtr material = createMaterial(id);
    QuickArchive in = bytes.archive();
    ok = material->readBinary(in);
    return material;
}

template <class T>
std::shared_ptr<T> loadAsClass(uint32_t id, const ByteBuilder& bytes)
{
    bool ok = false;
    auto material = std::dynamic_pointer_cast<T>(loadMaterial(id, bytes, ok));
    EXPECT_TRUE(ok);
    return material;
}

// A layered material with one diffuse layer of the given name.
inline std::shared_ptr<MaterialLayeredBRDF> layeredWith(const std::u16string& name, const std::u16string& layer)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = name;
    material->brdfs = {createBRDF(2)};
    material->brdfs[0]->name = layer;
    return material;
}

}  // namespace TalvexTest

// Helpers of the texture tests: hand-built child records, sample objects, an object's XML text and
// its record written and read back.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "archive/quick_archive.h"
#include "records/transform_components.h"
#include "support/byte_builder.h"
#include "support/xml_of.h"
#include "textures/acolor_texture.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {

using Floats = std::vector<float>;

inline std::shared_ptr<TalvexCore::AColorTexture> constant(float grey)
{
    return std::make_shared<TalvexCore::AColorTexture>(TalvexCore::AColor{grey, grey, grey, 1});
}

// Components with no field at its default.
inline TalvexCore::TransformComponents sampleComponents()
{
    TalvexCore::TransformComponents c;
    c.x_rotation = 10; c.y_rotation = 20; c.z_rotation = 30; c.x_scale = 2; c.y_scale = 3; c.z_scale = 0.5f;
    c.x_offset = 0.25f; c.y_offset = -1; c.z_offset = 4; c.x_mirror = 1; c.y_mirror = 1; c.z_mirror = 1;
    return c;
}

// A generator with the sample components (the channel generator's texture components differ from
// them), its matrices recomputed from them.
template <class T>
std::shared_ptr<T> generator()
{
    auto uvw = std::make_shared<T>();
    uvw->uvwComponents = sampleComponents();
    if constexpr (requires { uvw->texComponents; }) uvw->texComponents.z_offset = 2;
    uvw->updateTransforms();
    return uvw;
}

// The bytes of a transform: `s` on the diagonal, `o` in all three offsets.
inline ByteBuilder& transform(ByteBuilder& b, float s, float o)
{
    return b.floats({s, 0, 0, 0, s, 0, 0, 0, s, o, o, o});
}

// A required child holding a constant grey.
inline ByteBuilder& constantChild(ByteBuilder& b, float grey) { return b.u32(5).tag(1).floats({grey, grey, grey, 1}); }

// Whether assets of these urls all stand in the text, in this order.
inline bool assetsInOrder(const std::string& xml, std::initializer_list<std::string> urls)
{
    std::size_t from = 0;
    for (const auto& url : urls)
        if ((from = xml.find("url=\"" + url + "\" ", from)) == std::string::npos) return false;
    return true;
}

// How many bytes a write that must fail leaves in the archive.
template <class T>
std::size_t bytesLeftByFailedWrite(const T& object)
{
    TalvexCore::QuickArchive out(1);
    EXPECT_FALSE(object.writeBinary(out));
    return out.writePosition();
}

}  // namespace TalvexTest

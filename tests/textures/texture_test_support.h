// Helpers of the texture tests: hand-built child records, a constant texture, the order of assets in
// XML text, and what a failed write leaves.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "archive/quick_archive.h"
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

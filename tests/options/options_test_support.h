// Helpers of the options tests: options records of any version spelled out by hand.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "options/all_options.h"
#include "support/byte_builder.h"
#include "support/xml_of.h"

namespace TalvexTest {

// What an old options record holds beyond the defaults of its embedded records.
struct OldOptions {
    std::vector<uint32_t> channels;
    std::string imageFile;
};

inline OldOptions withChannels(std::vector<uint32_t> ids)
{
    OldOptions o;
    o.channels = std::move(ids);
    return o;
}

// An options record of `version` as that version stored it: embedded records written by the
// model unless given (they have versions of their own), everything else word by word.
inline ByteBuilder oldOptionsRecord(uint32_t version, const OldOptions& o, ByteBuilder camera = {})
{
    using namespace TalvexCore;
    if (camera.bytes.empty()) camera = recordOf(PhysicalCamera());
    ByteBuilder b;
    b.u32(version << 16 | 1);
    b.append(recordOf(TalvexParams())).append(recordOf(TalvexFrameData())).append(recordOf(TalvexNFBStampInfo()));
    if (version >= 5) b.append(camera);
    b.boolean(false).boolean(false).color(0.1f, 0.2f, 0.3f).color(0.4f, 0.5f, 0.6f);
    b.i32(1).i32(1).i32(5).i32(480).i32(640);
    for (int i = 0; i < 6; ++i) b.i32(0);
    if (version >= 2) b.i32(0);   // focal_dist_not_overridden
    if (version >= 3) b.i32(0);   // show_progress_window
    if (version >= 5) b.i32(1);   // on of the physical camera
    if (version >= 6) b.i32(1);   // override_focal_length
    b.floats({60, 2, 3, 4, 5, 2.5f, 1, 1.5f});
    if (version >= 4) b.floats({1, 500}).i32(0);
    b.u32(static_cast<uint32_t>(o.channels.size()));
    for (uint32_t id : o.channels) b.u32(id);
    b.str(o.imageFile);
    for (int i = 0; i < 9; ++i) b.str("");
    if (version >= 1) b.color(1, 0, 0).i32(0);
    if (version >= 7) b.i32(1).i32(1);
    if (version >= 8) b.i32(1).i32(25).f32(25);
    if (version >= 9) b.color(0, 1, 0).color(0, 0, 1).floats({2, 3, 4, 5}).i32(1).i32(1).boolean(false).boolean(false);
    if (version >= 0x10) b.i32(1);
    if (version >= 0x11) b.floats({7, 8});
    if (version >= 0x12) b.f32(1.8f);
    if (version >= 0x13) b.i32(9);
    if (version >= 0x14) b.i32(0).i32(2).str("//farm/share");
    if (version >= 0x16) b.i32(11);
    if (version >= 0x17) b.i32(1);
    return b;
}

}  // namespace TalvexTest

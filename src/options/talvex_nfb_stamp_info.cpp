#include "options/talvex_nfb_stamp_info.h"

#include "archive/text_conversion.h"
#include "records/record_io.h"

namespace TalvexCore {

void TalvexNFBStampInfo::resetDefaults()
{
    stamp_int_1 = stamp_int_2 = stamp_int_3 = 0;
    stampText = defaultStampText;
    fontBlock.fill(0);
}

bool TalvexNFBStampInfo::writeBinary(QuickArchive& out) const
{
    writeVersion(out, newestVersion);
    out.writeI32(stamp_int_1);
    out.writeI32(stamp_int_2);
    out.writeI32(stamp_int_3);
    out.writeWString(narrowToWide(stampText));
    out.writeBuffer(fontBlock.data(), fontBlock.size());
    return true;
}

// The text is stored ahead of the two integers that follow it in memory. Version 1 stores the
// font block bare, version 2 with its length in front.
bool TalvexNFBStampInfo::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    resetDefaults();
    if (!version) return false;
    in.readI32(stamp_int_1);
    in.readI32(stamp_int_2);
    in.readI32(stamp_int_3);
    std::u16string text;
    in.readWString(text);
    // An empty stored text replaces the default too.
    stampText = wideToNarrow(text);
    if (*version == 1)
        in.readRaw(fontBlock.data(), fontBlock.size());
    else
        in.readBuffer(fontBlock.data(), fontBlock.size(), false);
    return true;
}

bool TalvexNFBStampInfo::isEqual(const TalvexNFBStampInfo& other) const
{
    return stamp_int_1 == other.stamp_int_1 && stampText == other.stampText && stamp_int_2 == other.stamp_int_2 &&
           stamp_int_3 == other.stamp_int_3 && fontParams == other.fontParams && fontName == other.fontName &&
           fontBlock == other.fontBlock;
}

}  // namespace TalvexCore

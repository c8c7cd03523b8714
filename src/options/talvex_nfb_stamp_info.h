// TalvexNFBStampInfo: the line of text the frame buffer can stamp on an image, and its record.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "options/options_base.h"

namespace NuvaUtils {

struct NuvaNFBStampInfo {
    int32_t stamp_int_1 = 0;
    std::string stampText;
    int32_t stamp_int_2 = 0;
    int32_t stamp_int_3 = 0;
    // Set by the constructor only: neither the reset nor a load touches them.
    std::array<int32_t, 4> fontParams{8, 0, 0, 0};
    std::array<char, 100> fontName{"Helvetica"};
    std::array<uint8_t, 60> fontBlock{};
};

}  // namespace NuvaUtils

namespace TalvexCore {

class TalvexNFBStampInfo : public TalvexOptionsBase, public NuvaUtils::NuvaNFBStampInfo {
public:
    static constexpr uint32_t newestVersion = 2;
    // The placeholders stay as text; nothing here expands them.
    static constexpr const char* defaultStampText = "Nuva Core %nuvacore | Render Time %rendertime |";

    TalvexNFBStampInfo() { TalvexNFBStampInfo::resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    // The stamp has no asset.
    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return typeName<u"NFBStampInfo">(); }

    bool isEqual(const TalvexNFBStampInfo& other) const;
    bool operator==(const TalvexNFBStampInfo& other) const { return isEqual(other); }
};

}  // namespace TalvexCore

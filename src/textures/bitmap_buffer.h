// BitmapBuffer: the bitmap source of a bitmap texture, naming the image file and its filtering.
#pragma once

#include <string>

#include "textures/base_bitmap.h"

namespace TalvexCore {

class BitmapBuffer : public BaseBitmap {
public:
    std::u16string file;
    int32_t filter_type = 0;  // index into bitmapFilterNames
    float filter_blur = 0;
    float gamma = 0;

    BitmapBuffer() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 0; }
    BitmapPtr clone() const override;
    // The file compares without regard to case, the rest exactly.
    bool isEqual(const BitmapPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"BitmapBuffer">(); }
};

}  // namespace TalvexCore

#include "scene/render_view.h"

#include "records/record_io.h"
#include "xml/asset_frame.h"

namespace TalvexCore {

namespace {

constexpr uint32_t NewestVersion = 3;

Rect unsetRegion()
{
    Rect r;
    r.left = r.top = r.right = r.bottom = -1;
    return r;
}

// Older records store one value for time 0 where newer ones store the container.
void readSingle(QuickArchive& in, AnimatedReal& value)
{
    float v = value.valueAt(0.0);
    in.readF32(v);
    value.setKey(v, 0.0);
}

}  // namespace

void RenderView::resetDefaults()
{
    viewTransform.clear();
    regionA = regionB = unsetRegion();
    fieldOfView.setKey(0.7853982f, 0.0);
    viewRealA.setKey(1.0f, 0.0);
    viewRealB.setKey(1.0f, 0.0);
    img_width = 320;
    img_height = 240;
    viewFlag.setKey(0, 0.0);
}

bool RenderView::writeBinary(QuickArchive& out) const
{
    writeVersion(out, NewestVersion);
    out.writeRect(regionA);
    out.writeRect(regionB);
    out.writeI32(img_width);
    out.writeI32(img_height);
    return fieldOfView.writeBinary(out) && viewRealA.writeBinary(out) && viewRealB.writeBinary(out) &&
           viewFlag.writeBinary(out) && viewTransform.writeBinary(out);
}

bool RenderView::readBinary(QuickArchive& in)
{
    resetDefaults();
    const auto version = readVersion(in, {1, 2, 3});
    if (!version) return false;
    if (*version == 3) {
        in.readRect(regionA);
        in.readRect(regionB);
        in.readI32(img_width);
        in.readI32(img_height);
        return fieldOfView.readBinary(in) && viewRealA.readBinary(in) && viewRealB.readBinary(in) &&
               viewFlag.readBinary(in) && viewTransform.readBinary(in);
    }
    if (*version == 1) {
        Transform single = viewTransform.valueAt(0.0);
        in.readTransform(single);
        viewTransform.setKey(single, 0.0);
    }
    in.readRect(regionA);
    in.readRect(regionB);
    readSingle(in, fieldOfView);
    readSingle(in, viewRealA);
    readSingle(in, viewRealB);
    in.readI32(img_width);
    in.readI32(img_height);
    bool flag = viewFlag.valueAt(0.0) != 0;
    in.readBool(flag);
    viewFlag.setKey(flag ? 1 : 0, 0.0);
    return *version == 1 || viewTransform.readBinary(in);
}

bool RenderView::operator==(const RenderView& other) const
{
    return viewTransform == other.viewTransform && regionA == other.regionA && regionB == other.regionB &&
           fieldOfView == other.fieldOfView && viewRealA == other.viewRealA && viewRealB == other.viewRealB &&
           img_width == other.img_width && img_height == other.img_height && viewFlag == other.viewFlag;
}

void RenderView::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    // The containers take part in the steps and write nothing.
    fieldOfView.writeXml(writer, url);
    viewRealA.writeXml(writer, url);
    viewRealB.writeXml(writer, url);
    viewFlag.writeXml(writer, url);
    viewTransform.writeXml(writer, url);
    const AssetFrame frame(writer, *this, AssetUrl(url, pluginType()), "");
    writer.writeInt("img_width", img_width);
    writer.writeInt("img_height", img_height);
    frame.close();
}

}  // namespace TalvexCore

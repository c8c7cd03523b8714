#include "textures/bitmap_buffer.h"

#include "archive/name_compare.h"
#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void BitmapBuffer::resetDefaults()
{
    file.clear();
    filter_type = 1;  // "Mip-map"
    filter_blur = 0.15f;
    gamma = 1.0f;
}

bool BitmapBuffer::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    out.writeI32(filter_type);
    out.writeF32(filter_blur);
    out.writeF32(gamma);
    out.writeWString(file);
    return true;
}

// The buffer reads over what it holds: it does not go back to its defaults first.
bool BitmapBuffer::readBinary(QuickArchive& in)
{
    if (!readVersion(in, {1})) return false;
    in.readI32(filter_type);
    in.readF32(filter_blur);
    in.readF32(gamma);
    in.readWString(file);
    return true;
}

BitmapPtr BitmapBuffer::clone() const
{
    return std::make_shared<BitmapBuffer>(*this);
}

bool BitmapBuffer::isEqual(const BitmapPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && equalsNoCase(file, o->file) && filter_blur == o->filter_blur && filter_type == o->filter_type &&
           gamma == o->gamma;
}

void BitmapBuffer::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url);
    writer.writeInt("filter_type", filter_type);
    writer.writeFloat("filter_blur", filter_blur);
    writer.writeFloat("gamma", gamma);
    writer.writeFileString("file", file);
    xml.close();
}

}  // namespace TalvexCore

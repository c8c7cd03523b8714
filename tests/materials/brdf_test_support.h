// Helpers of the BRDF tests: records written and read back, XML text, textures to hang in slots.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "materials/base_brdf.h"
#include "support/byte_builder.h"
#include "textures/acolor_texture.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/fresnel_texture.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {

using namespace TalvexCore;

inline TexturePtr acolor(float r, float g, float b, float a = 1)
{
    return std::make_shared<AColorTexture>(AColor{r, g, b, a});
}

// The base record as the newest version writes it.
inline ByteBuilder baseRecord(const std::string& name, bool flag1 = true, bool flag2 = false, bool flag3 = false)
{
    ByteBuilder b;
    b.tag(4).str(name).boolean(flag1).boolean(flag2).boolean(flag3);
    return b;
}

// A present child slot holding a constant colour texture.
inline ByteBuilder& acolorChild(ByteBuilder& b, float r, float g, float b_, float a = 1)
{
    return b.boolean(true).u32(5).tag(1).floats({r, g, b_, a});
}

// Loads bytes into a new layer of the type id; the result of readBinary goes to `ok`.
inline BRDFPtr load(uint32_t id, const ByteBuilder& bytes, bool& ok)
{
    BRDFPtr layer = createBRDF(id);
    QuickArchive in = bytes.archive();
    ok = layer->readBinary(in);
    return layer;
}

template <class T>
std::shared_ptr<T> loadAs(uint32_t id, const ByteBuilder& bytes)
{
    bool ok = false;
    auto layer = std::dynamic_pointer_cast<T>(load(id, bytes, ok));
    EXPECT_TRUE(ok);
    return layer;
}

// Writes the layer and reads it back into a new layer of its class.
inline BRDFPtr roundTrip(const Base_BRDF& layer)
{
    QuickArchive archive(1);
    EXPECT_TRUE(layer.writeBinary(archive));
    BRDFPtr back = createBRDF(layer.typeId());
    EXPECT_TRUE(back->readBinary(archive));
    EXPECT_EQ(archive.readPosition(), archive.writePosition());
    return back;
}

// The XML of an object under a url, as UTF-8 so that failures print readably.
template <class T>
std::string xmlOf(const T& object, const std::u16string& url)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    object.writeXml(writer, url);
    return wideToNarrow(text);
}

// The path of a texture that an old record's file name became, or "-" when it is not such a texture.
inline std::string bitmapFile(const TexturePtr& texture)
{
    auto bitmap = std::dynamic_pointer_cast<BitmapTexture>(texture);
    if (!bitmap) return "-";
    auto buffer = std::dynamic_pointer_cast<BitmapBuffer>(bitmap->bitmap);
    return buffer ? wideToNarrow(buffer->file) : "-";
}

inline AColor acolorOf(const TexturePtr& texture)
{
    auto constant = std::dynamic_pointer_cast<AColorTexture>(texture);
    return constant ? constant->texture : AColor{-1, -1, -1, -1};
}

// The expected text of one layer asset, built line by line at the depths the format gives.
class ExpectedAsset {
public:
    ExpectedAsset(const std::string& url, const std::string& plugin)
    {
        line(1, "<Asset layout=\"\" renderer=\"nuva\" type=\"BRDF\" url=\"" + url + "\" >");
        line(2, "<plugin>");
        line(3, "<nuvaplugin name=\"" + plugin + "\" type=\"BRDF\">");
        line(4, "<parameters>");
    }
    ExpectedAsset& color(const std::string& name, const std::string& r, const std::string& g, const std::string& b)
    {
        head("color", name);
        line(6, "<value>");
        line(7, "<r>" + r + "</r>"), line(7, "<g>" + g + "</g>"), line(7, "<b>" + b + "</b>");
        line(6, "</value>");
        return end();
    }
    ExpectedAsset& number(const std::string& name, const std::string& v) { return inlined("float", name, v); }
    ExpectedAsset& integer(const std::string& name, const std::string& v) { return inlined("integer", name, v); }
    ExpectedAsset& flag(const std::string& name, bool v) { return inlined("bool", name, v ? "1" : "0"); }
    // An empty value stands for an empty reference: the parameter has no value element.
    ExpectedAsset& plugin(const std::string& name, const std::string& v) { return inlined("plugin", name, v); }
    std::string text()
    {
        line(4, "</parameters>"), line(3, "</nuvaplugin>"), line(2, "</plugin>"), line(1, "</Asset>");
        return out;
    }

private:
    void line(int depth, const std::string& text) { out += std::string(2 * depth, ' ') + text + "\n"; }
    void head(const std::string& type, const std::string& name)
    {
        line(5, "<parameter type=\"" + type + "\" name=\"" + name + "\" handler=\"default\" listType=\"none\" label=\"" +
                    name + "\">");
    }
    ExpectedAsset& inlined(const std::string& type, const std::string& name, const std::string& value)
    {
        head(type, name);
        if (!value.empty()) line(6, "<value>" + value + "</value>");
        return end();
    }
    ExpectedAsset& end()
    {
        line(5, "</parameter>");
        return *this;
    }
    std::string out;
};

}  // namespace TalvexTest

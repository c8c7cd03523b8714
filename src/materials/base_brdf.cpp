#include "materials/base_brdf.h"

#include <array>
#include <span>
#include <stdexcept>

#include "archive/quick_archive.h"
#include "records/record_io.h"
#include "textures/fresnel_texture.h"
#include "xml/asset_frame.h"

namespace TalvexCore {

namespace {

constexpr uint32_t baseRecordVersion = 4;

}  // namespace

bool Base_BRDF::writeBinary(QuickArchive& out) const
{
    return writeBaseRecord(out);
}

bool Base_BRDF::readBinary(QuickArchive& in)
{
    return readBaseRecord(in);
}

void Base_BRDF::writeXml(AssetXmlWriter& /*writer*/, const std::u16string& /*url*/) const {}

void Base_BRDF::resetBaseDefaults()
{
    name = pluginType();
    resetBaseFlags();
}

void Base_BRDF::resetBaseFlags()
{
    layer_flag_1 = true;
    layer_flag_2 = false;
    layer_flag_3 = false;
}

bool Base_BRDF::writeBaseRecord(QuickArchive& out) const
{
    writeVersion(out, baseRecordVersion);
    out.writeWString(name);
    out.writeBool(layer_flag_1);
    out.writeBool(layer_flag_2);
    out.writeBool(layer_flag_3);
    return true;
}

// Version 1 holds the name; each later version adds one flag.
bool Base_BRDF::readBaseRecord(QuickArchive& in)
{
    // A record read gives the name, so the default name is made only for a refused one.
    const auto version = readVersion(in, {1, 2, 3, 4});
    if (!version) {
        resetBaseDefaults();
    } else {
        resetBaseFlags();
        in.readWString(name);
        if (*version >= 2) in.readBool(layer_flag_1);
        if (*version >= 3) in.readBool(layer_flag_2);
        if (*version >= 4) in.readBool(layer_flag_3);
    }
    // A damaged or old name never reaches the XML with a control character, even on failure.
    stripControlCharacters(name);
    return version.has_value();
}

void Base_BRDF::writeLayerXml(AssetXmlWriter& writer, const std::u16string& url,
                              std::initializer_list<LayerParameter> parameters) const
{
    // A layer has a handful of texture slots; they are gathered here rather than on the heap.
    std::array<ChildSlot, maxLayerTextures> slots;
    std::size_t count = 0;
    for (const LayerParameter& parameter : parameters)
        if (parameter.form == LayerParameter::Form::Texture) {
            if (count == slots.size()) throw std::length_error("Base_BRDF::writeLayerXml: too many texture slots");
            slots[count++] = ChildSlot(parameter.name, parameter.urlWord, *parameter.texture);
        }

    const AssetFrame frame(writer, *this, AssetUrl(url, name), "", std::span<const ChildSlot>(slots.data(), count));
    std::size_t slot = 0;
    for (const LayerParameter& parameter : parameters) {
        switch (parameter.form) {
        case LayerParameter::Form::Color: writer.writeColor(parameter.name, parameter.color); break;
        case LayerParameter::Form::Float: writer.writeFloat(parameter.name, parameter.number); break;
        case LayerParameter::Form::Integer: writer.writeInt(parameter.name, parameter.integer); break;
        case LayerParameter::Form::Bool: writer.writeBool(parameter.name, parameter.flag); break;
        case LayerParameter::Form::Texture: frame.writeChildParameter(slot++); break;
        }
    }
    frame.close();
}

void LegacyFresnel::upgrade(std::shared_ptr<BaseTexture>& transparency_tex) const
{
    if (on == 0) return;
    auto fresnel = std::make_shared<FresnelTexture>();
    fresnel->fresnel_ior = index;
    transparency_tex = fresnel;
}

}  // namespace TalvexCore

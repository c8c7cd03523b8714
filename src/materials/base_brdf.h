// Base_BRDF: the root of the six shading layers, their base record and their factory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "archive/value_types.h"
#include "records/serializable.h"

namespace TalvexCore {

class BaseTexture;

// One parameter of a layer's asset, in the form its value calls for. A texture parameter also
// names the url word under which its child's asset stands.
struct LayerParameter {
    enum class Form { Color, Float, Integer, Bool, Texture };

    LayerParameter(const char* name, const Color& value) : name(name), form(Form::Color), color(value) {}
    LayerParameter(const char* name, float value) : name(name), form(Form::Float), number(value) {}
    LayerParameter(const char* name, int32_t value) : name(name), form(Form::Integer), integer(value) {}
    LayerParameter(const char* name, bool value) : name(name), form(Form::Bool), flag(value) {}
    LayerParameter(const char* name, const std::shared_ptr<BaseTexture>& child, const char* urlWord)
        : name(name), form(Form::Texture), texture(&child), urlWord(urlWord) {}

    std::string_view name;  // measured where the table is made, from its literal
    Form form;
    Color color{};
    float number = 0;
    int32_t integer = 0;
    bool flag = false;
    const std::shared_ptr<BaseTexture>* texture = nullptr;
    std::string_view urlWord;
};

// The two retired values that old reflection records (mirror and glossy) keep in their heads where
// newer ones keep a transparency texture: a Fresnel index and a Fresnel switch.
struct LegacyFresnel {
    float index = 0;
    uint32_t on = 0;

    // After the record's children are in: a switch that is not 0 makes a new Fresnel texture of
    // that index the transparency texture, whatever the record gave it.
    void upgrade(std::shared_ptr<BaseTexture>& transparency_tex) const;
};

class Base_BRDF : public TalvexSerializable, public TalvexXMLSerializable {
public:
    std::u16string name;  // the last component of the layer's url
    bool layer_flag_1 = true;
    bool layer_flag_2 = false;
    bool layer_flag_3 = false;

    // The base record alone; each class writes it at the end of its own record.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    virtual uint32_t typeId() const = 0;
    virtual void resetDefaults() = 0;
    virtual std::shared_ptr<Base_BRDF> clone() const = 0;
    // Compares values and children; the name and the layer flags take no part.
    virtual bool isEqual(const std::shared_ptr<Base_BRDF>& other) const = 0;

    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"">(); }
    const std::u16string& assetType() const override { return typeName<u"BRDF">(); }

protected:
    // Name back to the class's plug-in type, flags to true, false, false.
    void resetBaseDefaults();
    void resetBaseFlags();
    bool writeBaseRecord(QuickArchive& out) const;
    // Any version 1 to 4; the name loses its control characters also when the record fails.
    bool readBaseRecord(QuickArchive& in);

    // The asset of a layer under `url` + "/" + name: the present children first, each as its own
    // asset under the layer's url and its url word, then the layer with its parameters in order.
    void writeLayerXml(AssetXmlWriter& writer, const std::u16string& url,
                       std::initializer_list<LayerParameter> parameters) const;
    // The most texture slots a layer's parameters may hold (the refraction layer has five).
    static constexpr std::size_t maxLayerTextures = 8;
};

using BRDFPtr = std::shared_ptr<Base_BRDF>;

// 1 refraction, 2 diffuse, 4 Blinn, 8 Phong, 16 mirror, 32 light; any other id gives an empty reference.
BRDFPtr createBRDF(uint32_t id);
inline void makeFromTypeId(BRDFPtr& out, uint32_t id) { out = createBRDF(id); }

}  // namespace TalvexCore

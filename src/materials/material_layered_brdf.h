// MaterialLayeredBRDF: the material that shades, an ordered list of BRDF layers.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <vector>

#include "materials/base_brdf.h"
#include "materials/base_material.h"

namespace TalvexCore {

// Parameters a caller adds behind the list of layers: a reference to its callable, which must
// outlive the call it is handed to, so that handing it over copies nothing.
class MoreParameters {
public:
    MoreParameters() = default;
    template <class F>
        requires(!std::same_as<F, MoreParameters> && std::invocable<const F&>)
    MoreParameters(const F& write)
        : callable(&write), call([](const void* f) { (*static_cast<const F*>(f))(); })
    {
    }
    explicit operator bool() const { return call != nullptr; }
    void operator()() const { call(callable); }

private:
    const void* callable = nullptr;
    void (*call)(const void*) = nullptr;
};

class MaterialLayeredBRDF : public BaseMaterial {
public:
    std::vector<BRDFPtr> brdfs;  // the layers, in the order the XML keeps
    uint32_t double_sided = 1;
    uint32_t layered_aux_1 = 0;
    uint32_t layered_aux_2 = 1;
    uint32_t layered_aux_3 = 1;
    uint32_t layered_aux_4 = 0;

    MaterialLayeredBRDF() = default;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 1; }
    void resetDefaults() override;
    // Every layer is cloned too; the copy gets a unique name and no uuid.
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    // The layers' assets, then this material's own under `url` + "/" + name.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"MtlTALVEX">(); }

    // The layers' assets, then this material's own, at exactly `url`: inside a wrapper or the scene
    // set under its own name, in the standard layout under the outermost material's, where the
    // wrappers found around it add their parameters behind the list of layers.
    void writeAsset(AssetXmlWriter& writer, const std::u16string& url,
                    MoreParameters moreParameters = {}) const;

private:
    // The list "brdfs": one entry per layer, `url` + "/" + the layer's name.
    void writeLayerList(AssetXmlWriter& writer, const std::u16string& url) const;
    std::shared_ptr<MaterialLayeredBRDF> copyWithClonedLayers() const;
};

}  // namespace TalvexCore

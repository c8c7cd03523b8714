// SunLight: the one light with an identity of its own, the parameters it shares with the sky, and
// the process-wide sun of the host's document.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "records/uuid.h"
#include "scene/animated_values.h"
#include "scene/base_light.h"

namespace TalvexCore {

// The id that marks the sun of the host's document.
inline constexpr char16_t documentSunId[] = u"{D3BE9766-E4AA-418b-81A9-23414A2BA98D}";

// What a sun shines with; a sky keeps a copy of them beside its sun.
struct SunParameters {
    AnimatedTransform transform = identityKeyFrames();
    Vector up_vector{0, 0, 1};
    float shadowBias = 0, turbidity = 3, water_vapour = 2, intensity_multiplier = 1, size_multiplier = 1;
    float photon_radius = 50, photon_emit_distance = 150, ozone = 0.35f;
    int32_t photonSubdivs = 500, causticSubdivs = 1000, shadow_subdivs = 8;
    bool shadows = true;

    bool operator==(const SunParameters&) const = default;

    // The run of them that sun and sky records share, from `up_vector` to `shadows`.
    template <class Self, class Fields>
    static void stored(Self& p, Fields& fields)
    {
        fields(p.up_vector, p.shadowBias, p.turbidity, p.water_vapour, p.intensity_multiplier, p.size_multiplier,
               p.photon_radius, p.photon_emit_distance, p.ozone, p.photonSubdivs, p.causticSubdivs, p.shadow_subdivs,
               p.shadows);
    }
};

class SunLight : public BaseLight, public SunParameters {
public:
    bool enabled = true, invisible = false;
    std::u16string sunId = newUuid();
    std::u16string sunName;

    SunLight() = default;
    SunLight(std::u16string name, std::u16string id) : sunId(std::move(id)), sunName(std::move(name)) {}

    bool writeBinary(QuickArchive& out) const override;
    // Files before the sun had an id leave it at a new one.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 5; }
    // A copy under a new id: a cloned sun is another sun.
    LightPtr clone() const override;
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = SunLight(); }
    // Once per writer: a sun already in its directory writes nothing, and the document's sun
    // under an empty url is left to the host.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"SunLight">(); }
    // A plugin parameter naming a sun gives its url alone: a sun's url names it whole.
    const std::u16string* referenceName() const override { return nullptr; }

    template <class Self, class Fields>
    static bool record(Self& sun, Fields& fields, uint32_t version);
};

using SunPtr = std::shared_ptr<SunLight>;

// The sun of the host's document, one object for the whole process, named "Default" under the
// document's id. Reading a sky of the newest version gives it the file's values, and later
// conversions see them.
const SunPtr& defaultSun();
// Reads a sun record into the document's sun; a record refused or running past the end of the
// data fails and leaves every value of the sun as it was.
bool readDocumentSun(QuickArchive& in);

}  // namespace TalvexCore

// BaseMaterial: the root of the fifteen material classes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "records/serializable.h"

namespace TalvexCore {

class BaseMaterial : public TalvexSerializable, public TalvexXMLSerializable {
public:
    std::u16string name;  // unique in the scene; the last component of the material's url
    std::u16string uuid;  // by which the scene set resolves references; empty at first

    BaseMaterial();
    // A copy takes the name only: every clone has an empty uuid.
    BaseMaterial(const BaseMaterial& other);
    BaseMaterial& operator=(const BaseMaterial& other) = default;
    ~BaseMaterial() override = default;

    virtual uint32_t typeId() const = 0;
    virtual void resetDefaults() = 0;
    // A copy under a new unique name.
    virtual std::shared_ptr<BaseMaterial> clone() const = 0;
    // A copy that keeps the source's name.
    virtual std::shared_ptr<BaseMaterial> cloneSameName() const = 0;
    // Compares values and inner objects; name and uuid take no part.
    virtual bool isEqual(const std::shared_ptr<BaseMaterial>& other) const = 0;

    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"">(); }
    // A parameter names a material by its name, not by its plug-in type.
    const std::u16string* referenceName() const override { return &name; }
    const std::u16string& assetType() const override { return typeName<u"material">(); }

    // The base record, which a class's record holds at the place its rows give.
    bool writeBaseRecord(QuickArchive& out) const;
    // Version 1 (name) or 2 (name, uuid); an empty name becomes a fresh default name.
    bool readBaseRecord(QuickArchive& in);

protected:
    // A new unique name and an empty uuid.
    void resetBaseDefaults();
    // The bare name of the oldest records: an empty one becomes "DefaultMaterial", and either is
    // made unique in the scene; control characters stay.
    void readBareName(QuickArchive& in);
};

using MaterialPtr = std::shared_ptr<BaseMaterial>;

// A new material of the class with this type id; empty for ids from 15 upward.
MaterialPtr createMaterial(uint32_t id);
inline void makeFromTypeId(MaterialPtr& out, uint32_t id) { out = createMaterial(id); }

}  // namespace TalvexCore

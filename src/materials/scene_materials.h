// SceneMaterials: the scene's named materials, unique by name without regard to case, and the
// identifiers that references resolve through.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "archive/name_compare.h"
#include "materials/base_material.h"
#include "records/serializable.h"

namespace TalvexCore {

class MaterialReference;

class SceneMaterials : public TalvexSerializable {
public:
    using MaterialMap = std::map<std::u16string, MaterialPtr, NoCaseLess>;
    using UuidMap = std::map<std::u16string, std::u16string, NoCaseLess>;

    MaterialMap materials;  // by the material's name
    UuidMap uuids;          // UUID to a material's name

    // Version 2: the materials, then the identifiers.
    bool writeBinary(QuickArchive& out) const override;
    // Version 1 (materials only, identifiers made anew) or 2; the set is cleared first.
    bool readBinary(QuickArchive& in) override;
    // Each material's own asset, in name order, under an empty url.
    virtual void writeXml(AssetXmlWriter& writer) const;

    void clear();
    // False for an empty reference, an empty name or a name in use.
    bool addMaterial(const MaterialPtr& material);
    bool removeMaterial(const std::u16string& name);
    // Puts `material` in place of `oldName`; its identifier follows it to the new name.
    bool replaceMaterial(const std::u16string& oldName, const MaterialPtr& material);
    MaterialPtr getMaterial(const std::u16string& name) const;
    MaterialPtr materialForUuid(const std::u16string& uuid) const;
    std::u16string uuidForName(const std::u16string& name) const;
    // The number of materials; -1 when the two maps differ in size.
    int64_t materialCount() const;
    void materialNames(std::vector<std::u16string>& names) const;
    MaterialPtr cloneMaterial(const std::u16string& name) const;

    bool isNameFree(const std::u16string& name) const;
    // Validates a name a user typed; `message` says why it is refused, or is emptied.
    bool checkName(const std::u16string& name, std::u16string& message) const;
    // A free name: trailing digits dropped, a counter from 1 added until free, then legalised.
    std::u16string uniqueName(const std::u16string& name) const;
    // The same, made in the room `out` already has; `out` is not `name`.
    void assignUniqueName(std::u16string& out, const std::u16string& name) const;
    // Blanks become underscores; a leading digit gets an "a" in front.
    static std::u16string legalizeName(std::u16string name);

    static std::u16string defaultMaterialName() { return u"Default_Nuva_Material"; }
    MaterialPtr getDefaultMaterial() const;
    // Adds a clone of the hidden template, a layered material with one diffuse layer.
    bool addDefaultMaterial();

    // A new reference to the named material; its target is empty when the name has no identifier.
    std::shared_ptr<MaterialReference> makeReference(const std::u16string& name) const;
    // The references that point at `uuid`, found in each material and its wrappers. Of the references
    // found in the material at position i of the names, the one at position i is taken: right when
    // one material holds one reference, and kept so.
    std::vector<MaterialPtr> referencesTo(const std::u16string& uuid) const;
    // Where one name has gathered several identifiers, the last one in identifier order survives:
    // references to the others are pointed at it, and the others are dropped.
    void mergeDuplicateUuids();

    // A listing for debugging: names, then the identifiers.
    void dump(std::ostream& out) const;
    void dump(std::wostream& out) const;

private:
    // The first identifier whose value is `name` without regard to case.
    UuidMap::iterator findUuidOf(const std::u16string& name);
    UuidMap::const_iterator findUuidOf(const std::u16string& name) const;
};

// The process-wide set, made on first use.
std::shared_ptr<SceneMaterials> sceneMaterials();

}  // namespace TalvexCore

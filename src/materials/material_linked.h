// MaterialLinked: a material with an identity outside the scene, a text or a number.
#pragma once

#include <cstdint>
#include <string>

#include "materials/base_material.h"

namespace TalvexCore {

class MaterialLinked : public BaseMaterial {
public:
    // The outside identity: kinds 0 and 1 hold text, kind 2 a number.
    class IdData : public TalvexSerializable {
    public:
        int32_t kind = 2;

        bool writeBinary(QuickArchive& out) const override;
        bool readBinary(QuickArchive& in) override;

        // The text for kinds 0 and 1, else empty.
        std::u16string text() const;
        // The number for kind 2, else -1.
        int32_t number() const;
        // Each changes the value only when the kind holds that form.
        void setText(const std::u16string& value);
        void setNumber(int32_t value);
        // Same kind; equal numbers, or equal text without regard to case.
        bool isEqual(const IdData& other) const;

    private:
        bool holdsText() const { return kind == 0 || kind == 1; }
        std::u16string textValue;
        int32_t numberValue = 0;
    };

    MaterialPtr linked_mtl;  // stored with no presence byte: the material cannot be saved without it
    IdData link_id;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 6; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;
};

}  // namespace TalvexCore

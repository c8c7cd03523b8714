// TransformComponents: a transform as the rotation, scale, offset and mirror a user edits.
#pragma once

#include <cstdint>

#include "archive/value_types.h"
#include "records/serializable.h"

namespace TalvexCore {

class TransformComponents : public TalvexSerializable {
public:
    float x_rotation = 0, y_rotation = 0, z_rotation = 0;  // degrees
    float x_scale = 1, y_scale = 1, z_scale = 1;
    float x_offset = 0, y_offset = 0, z_offset = 0;
    int32_t x_mirror = 0, y_mirror = 0, z_mirror = 0;  // not 0 mirrors that axis

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() { *this = TransformComponents(); }

    bool operator==(const TransformComponents& other) const;

    // Rx·Dx·Ry·Dy·Rz·Dz, interleaved in this order, with the columns as the stored vectors.
    Matrix toMatrix() const;
    // The matrix above with the offset taken unchanged.
    Transform toTransform() const;
};

}  // namespace TalvexCore

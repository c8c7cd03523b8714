// The step every example file of materials ends with: the list saved as a material file.
#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>

#include "materials/base_material.h"
#include "materials/tal_mat_file.h"

namespace MakeExamples {

inline bool saveMaterials(const std::filesystem::path& path, std::initializer_list<TalvexCore::MaterialPtr> materials)
{
    TalvexCore::TalMatFile file;
    file.materials.assign(materials.begin(), materials.end());
    std::ofstream out(path, std::ios::binary);
    return out && file.save(out);
}

}  // namespace MakeExamples

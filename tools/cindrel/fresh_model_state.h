// FreshModelState: the model's process-wide state as a process holds it before its first file.
#pragma once

#include "materials/scene_materials.h"
#include "scene/sun_light.h"

namespace CindrelTool {

// A conversion reads the scene's materials and may change the document's sun (a sky of the newest
// version gives it the file's values, and later conversions see them). Taken before the first
// file and put back before each, it makes each file convert as it would alone in a fresh process.
class FreshModelState {
public:
    FreshModelState();
    void restore() const;

private:
    TalvexCore::SunLight sun;
    TalvexCore::SceneMaterials materials;
};

}  // namespace CindrelTool

// The examples of skies: several skies sharing one sun, skies holding the document's sun, and
// skies of each record version.
#pragma once

#include <filesystem>
#include <memory>

#include "textures/sky_texture.h"

namespace MakeExamples {

// A sky of a sun, its own copy of the turbidity set as the sun's might be.
inline std::shared_ptr<TalvexCore::SkyTexture> sky(TalvexCore::SunPtr sun, float turbidity)
{
    auto texture = std::make_shared<TalvexCore::SkyTexture>();
    texture->sun = std::move(sun);
    texture->turbidity = turbidity;
    return texture;
}

bool writeSharedSunFile(const std::filesystem::path& path);
bool writeDocumentSunFile(const std::filesystem::path& path);
// The newest sky written by the model beside older ones spelled out byte by byte.
bool writeSkyVersionsFile(const std::filesystem::path& path);
// Wrappers whose textures are skies: a bump and an environment override over layered materials.
bool writeSkyWrappersFile(const std::filesystem::path& path);
// Render options whose environment slots hold skies: the document's sun, and one sun shared.
bool writeSkyEnvironmentFile(const std::filesystem::path& path);

}  // namespace MakeExamples

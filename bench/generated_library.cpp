#include "generated_library.h"

#include <fstream>
#include <memory>
#include <string>

#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/tal_mat_file.h"
#include "textures/base_texture.h"

using namespace TalvexCore;

namespace {

std::u16string numbered(const char16_t* stem, int i)
{
    std::u16string name = stem;
    for (char c : std::to_string(i)) name.push_back(static_cast<char16_t>(c));
    return name;
}

MaterialPtr makeMaterial(int i)
{
    auto diffuse = std::make_shared<Diffuse_BRDF>();
    diffuse->color = {0.1f * (i % 10), 0.5f, 0.25f};
    diffuse->color_tex = textureFromFile(numbered(u"maps/albedo_", i) + u".png");
    auto gloss = std::make_shared<Phong_BRDF>();
    gloss->reflectionGlossiness = 0.5f + 0.0001f * i;
    gloss->reflectionGlossiness_tex = textureFromFile(numbered(u"maps/gloss_", i) + u".png");
    auto glass = std::make_shared<Glass_BRDF>();
    glass->ior = 1.3f + 0.00001f * i;
    glass->ior_texture = textureFromFile(numbered(u"maps/ior_", i) + u".png");
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = numbered(u"Material_", i);
    material->brdfs = {diffuse, gloss, glass};
    return material;
}

}  // namespace

bool writeGeneratedLibrary(const std::filesystem::path& path, int materialCount)
{
    TalMatFile file;
    for (int i = 0; i < materialCount; ++i) file.materials.push_back(makeMaterial(i));
    std::ofstream out(path, std::ios::binary);
    return file.save(out) && out.good();
}

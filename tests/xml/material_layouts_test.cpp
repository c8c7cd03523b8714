// The material assets of a file: the standard asset of a layered material, the search, and the
// whole document of the conversion.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "archive/tal_mat_file.h"
#include "archive/text_conversion.h"
#include "materials/diffuse_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_single_brdf.h"
#include "materials/scene_materials.h"
#include "module/material_conversion.h"
#include "xml/material_layouts.h"

namespace TalvexCore {
namespace {

std::string colorParameter(const std::string& name, const std::string& r, const std::string& g, const std::string& b)
{
    return "            <parameter type=\"color\" name=\"" + name + "\" handler=\"default\" listType=\"none\" label=\"" +
           name + "\">\n"
           "              <value>\n"
           "                <r>" + r + "</r>\n"
           "                <g>" + g + "</g>\n"
           "                <b>" + b + "</b>\n"
           "              </value>\n"
           "            </parameter>\n";
}

std::string inlineParameter(const std::string& type, const std::string& name, const std::string& value)
{
    return "            <parameter type=\"" + type + "\" name=\"" + name +
           "\" handler=\"default\" listType=\"none\" label=\"" + name + "\">\n"
           "              <value>" + value + "</value>\n"
           "            </parameter>\n";
}

std::string emptyPlugin(const std::string& name)
{
    return "            <parameter type=\"plugin\" name=\"" + name + "\" handler=\"default\" listType=\"none\" label=\"" +
           name + "\">\n"
           "            </parameter>\n";
}

std::string diffuseAsset(const std::string& url, const std::string& r, const std::string& g, const std::string& b)
{
    return "    <Asset layout=\"\" renderer=\"nuva\" type=\"BRDF\" url=\"" + url + "\" >\n"
           "      <plugin>\n"
           "        <nuvaplugin name=\"BRDFDiffuse\" type=\"BRDF\">\n"
           "          <parameters>\n" +
           colorParameter("color", r, g, b) + colorParameter("transparency", "0", "0", "0") +
           inlineParameter("float", "color_tex_mult", "1") + inlineParameter("float", "transparency_tex_mult", "1") +
           emptyPlugin("color_tex") + emptyPlugin("transparency_tex") +
           inlineParameter("bool", "use_color_tex_alpha_as_transparency", "0") +
           "          </parameters>\n"
           "        </nuvaplugin>\n"
           "      </plugin>\n"
           "    </Asset>\n";
}

// A file of one material with two layers, the second over the first.
MaterialPtr lacquer()
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = u"Lacquer";
    material->double_sided = 0;
    auto base = std::make_shared<Diffuse_BRDF>();
    base->name = u"Base";
    auto coat = std::make_shared<Diffuse_BRDF>();
    coat->name = u"Coat";
    coat->color = {1, 0.25f, 0};
    material->brdfs = {base, coat};
    return material;
}

const std::string lacquerDocument =
    "<talmat>\n"
    "  <Assets>\n" +
    diffuseAsset("/Lacquer/Base", "0.5", "0.5", "0.5") + diffuseAsset("/Lacquer/Coat", "1", "0.25", "0") +
    "    <Asset layout=\"defnumat\" renderer=\"nuva\" type=\"material\" url=\"/Lacquer\" >\n"
    "      <plugin>\n"
    "        <nuvaplugin name=\"MtlTALVEX\" type=\"material\">\n"
    "          <parameters>\n" +
    inlineParameter("integer", "double_sided", "0") +
    "            <parameter type=\"list\" name=\"brdfs\" handler=\"default\" listType=\"plugin\" label=\"brdfs\">\n"
    "              <value>\n"
    "              <list>\n"
    "                <entry>/Lacquer/Base</entry>\n"
    "                <entry>/Lacquer/Coat</entry>\n"
    "              </list>\n"
    "              </value>\n"
    "            </parameter>\n"
    "          </parameters>\n"
    "        </nuvaplugin>\n"
    "      </plugin>\n"
    "    </Asset>\n"
    "  </Assets>\n"
    "</talmat>\n";

std::string documentOf(const TalMatFile& file)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    writer.openRoot("talmat");
    for (std::size_t i = 0; i < file.materialCount(); ++i) {
        MaterialPtr material;
        if (file.getMaterial(i, material)) writeMaterialAssets(writer, material);
    }
    writer.closeRoot();
    return wideToNarrow(text);
}

// A material file saved under the test's own name in the temporary folder.
std::filesystem::path savedFile(const std::string& stem, std::vector<MaterialPtr> materials)
{
    TalMatFile file;
    file.materials = std::move(materials);
    const auto path = std::filesystem::temp_directory_path() / (stem + "_material_layouts_test.talmat");
    std::ofstream out(path, std::ios::binary);
    EXPECT_TRUE(file.save(out));
    return path;
}

class MaterialLayouts : public ::testing::Test {
protected:
    void SetUp() override { sceneMaterials()->clear(); }
    void TearDown() override { sceneMaterials()->clear(); }
};

TEST_F(MaterialLayouts, FileOfOneLayeredMaterialGivesItsWholeDocument)
{
    TalMatFile saved;
    saved.materials = {lacquer()};
    std::stringstream bytes;
    ASSERT_TRUE(saved.save(bytes));
    TalMatFile loaded;
    ASSERT_TRUE(loaded.load(bytes));
    EXPECT_EQ(documentOf(loaded), lacquerDocument);
}

TEST_F(MaterialLayouts, ConversionTurnsMaterialFilesIntoTheirDocuments)
{
    const auto layeredPath = savedFile("layered", {lacquer()});
    EXPECT_EQ(wideToNarrow(materialFileToXml(narrowToWide(layeredPath.string()))), lacquerDocument);
    std::filesystem::remove(layeredPath);

    auto single = std::make_shared<MaterialSingleBRDF>();
    single->brdf = std::make_shared<Diffuse_BRDF>();
    const auto singlePath = savedFile("single", {single, single->cloneSameName()});
    EXPECT_EQ(wideToNarrow(materialFileToXml(narrowToWide(singlePath.string()))),
              "<talmat>\n"
              "  <Assets>\n"
              "  </Assets>\n"
              "  <Assets>\n"
              "  </Assets>\n"
              "</talmat>\n");
    std::filesystem::remove(singlePath);
}

TEST_F(MaterialLayouts, PlainLayeredMaterialGivesTheAssetOfItsOwnXml)
{
    const MaterialPtr material = lacquer();
    std::u16string own, standard;
    AssetXmlWriter ownWriter(own);
    material->writeXml(ownWriter, u"");
    AssetXmlWriter standardWriter(standard);
    writeStandardLayout(standardWriter, material);
    EXPECT_EQ(standard, own);

    std::u16string nothing;
    AssetXmlWriter writer(nothing);
    writeStandardLayout(writer, nullptr);
    writeStandardLayout(writer, std::make_shared<MaterialSingleBRDF>());
    EXPECT_EQ(nothing, u"");
}

TEST_F(MaterialLayouts, SearchStopsAtTheFirstMatchAndAtClassesWithoutInnerMaterials)
{
    const MaterialPtr layered = lacquer();
    EXPECT_TRUE(findMaterialsByType(nullptr, 1).empty());
    EXPECT_EQ(findMaterialsByType(layered, 1), std::vector<MaterialPtr>{layered});
    EXPECT_TRUE(findMaterialsByType(layered, 0).empty());
    EXPECT_TRUE(findMaterialsByType(std::make_shared<MaterialSingleBRDF>(), 1).empty());
}

TEST(LayerGroupName, NamesTheFourGroups)
{
    EXPECT_EQ(layerGroupName(0), u"Emissive");
    EXPECT_EQ(layerGroupName(1), u"Reflection");
    EXPECT_EQ(layerGroupName(2), u"Diffuse");
    EXPECT_EQ(layerGroupName(3), u"Refraction");
    EXPECT_EQ(layerGroupName(4), u"");
}

}  // namespace
}  // namespace TalvexCore

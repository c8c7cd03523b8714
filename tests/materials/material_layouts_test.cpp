// The material assets of a file: the standard asset of a layered material, and the search.
#include <gtest/gtest.h>

#include "materials/material_layered_brdf.h"
#include "materials/material_layouts.h"
#include "materials/material_single_brdf.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {


std::string assetsOf(const MaterialPtr& material)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    writeMaterialAssets(writer, material);
    return wideToNarrow(text);
}

using MaterialLayouts = SceneCleared;

// The frame of every document: the layers' own assets, then the material's, which lists their urls
// in layer order. A material with no layered core gives an empty element.
TEST_F(MaterialLayouts, LayeredMaterialGivesItsLayersThenItsOwnAsset)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = u"Lacquer", material->double_sided = 0;
    material->brdfs = {createBRDF(2), createBRDF(32)};
    material->brdfs[0]->name = u"Base", material->brdfs[1]->name = u"Coat";
    std::u16string layers;
    AssetXmlWriter writer(layers);
    writer.openAssets();
    for (const BRDFPtr& layer : material->brdfs) layer->writeXml(writer, u"/Lacquer");
    EXPECT_EQ(assetsOf(material),
              wideToNarrow(layers) +
                  "    <Asset layout=\"defnumat\" renderer=\"nuva\" type=\"material\" url=\"/Lacquer\" >\n"
                  "      <plugin>\n"
                  "        <nuvaplugin name=\"MtlTALVEX\" type=\"material\">\n"
                  "          <parameters>\n"
                  "            <parameter type=\"integer\" name=\"double_sided\" handler=\"default\" listType=\"none\" label=\"double_sided\">\n"
                  "              <value>0</value>\n"
                  "            </parameter>\n"
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
                  "  </Assets>\n");

    std::u16string own, standard;
    AssetXmlWriter ownWriter(own), standardWriter(standard);
    material->writeXml(ownWriter, u"");
    writeStandardLayout(standardWriter, material);
    writeStandardLayout(standardWriter, nullptr);
    EXPECT_EQ(standard, own);

    auto single = std::make_shared<MaterialSingleBRDF>();
    single->brdf = createBRDF(2);
    EXPECT_EQ(assetsOf(single), "  <Assets>\n  </Assets>\n");
}

TEST_F(MaterialLayouts, SearchStopsAtTheFirstMatchAndAtClassesWithoutInnerMaterials)
{
    const MaterialPtr layered = std::make_shared<MaterialLayeredBRDF>();
    EXPECT_TRUE(findMaterialsByType(nullptr, 1).empty());
    EXPECT_EQ(findMaterialsByType(layered, 1), std::vector<MaterialPtr>{layered});
    EXPECT_TRUE(findMaterialsByType(layered, 0).empty());
    EXPECT_TRUE(findMaterialsByType(std::make_shared<MaterialSingleBRDF>(), 1).empty());
}

}  // namespace
}  // namespace TalvexTest

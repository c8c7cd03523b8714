// The settings assets: their order and frame, the computed parameters, labels and user-data marks,
// the channel names, and the environment textures inside their group's Assets element.
#include <gtest/gtest.h>

#include "options/options_test_support.h"
#include "textures/acolor_texture.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

std::size_t occurrences(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

std::string valueOf(const std::string& group, const std::string& name)
{
    const std::size_t head = group.find("name=\"" + name + "\"");
    if (head == std::string::npos) return "missing";
    const std::size_t start = group.find("<value>", head) + 7;
    return group.substr(start, group.find("</value>", start) - start);
}

TEST(OptionsXml, GroupFrameAndOrder)
{
    const AllOptions o;
    const std::string xml = xmlOf(o);
    EXPECT_EQ(occurrences(xml, "<Assets>"), 22u);
    EXPECT_EQ(groupXml(xml, "SettingsImageFilter"),
              "  <Assets>\n"
              "    <Asset layout=\"\" renderer=\"nuva\" type=\"settings\" url=\"/SettingsImageFilter\" >\n"
              "      <plugin>\n"
              "        <nuvaplugin name=\"SettingsImageFilter\" type=\"settings\">\n"
              "          <parameters>\n"
              "            <parameter type=\"bool\" name=\"on\" handler=\"default\" listType=\"none\" label=\"on\">\n"
              "              <value>1</value>\n"
              "            </parameter>\n"
              "            <parameter type=\"integer\" name=\"type\" handler=\"default\" listType=\"none\" label=\"type\">\n"
              "              <value>5</value>\n"
              "            </parameter>\n"
              "            <parameter type=\"float\" name=\"size\" handler=\"default\" listType=\"none\" label=\"size\">\n"
              "              <value>1.5</value>\n"
              "            </parameter>\n"
              "          </parameters>\n"
              "        </nuvaplugin>\n"
              "      </plugin>\n"
              "    </Asset>\n"
              "  </Assets>\n");
    const char* order[] = {"SettingsImageSampler", "SettingsImageFilter", "SettingsCamera", "SettingsCameraDof",
                           "SettingsMotionBlur", "SettingsGI", "SettingsIrradianceMap", "SettingsPhotonMap",
                           "SettingsLightCache", "SettingsCaustics", "SettingsRaycaster", "SettingsRegionsGenerator",
                           "SettingsDMCGI", "SettingsDMCSampler", "SettingsColorMapping", "SettingsRenderChannels",
                           "SettingsOptions", "SettingsDefaultDisplacement", "SettingsEnvironment", "SettingsOutput",
                           "CameraPhysical", "SettingsDR"};
    std::size_t last = 0;
    for (const char* group : order) {
        const std::size_t at = xml.find(std::string("url=\"/") + group + "\"");
        ASSERT_NE(at, std::string::npos) << group;
        EXPECT_GT(at, last) << group;
        last = at;
    }
    EXPECT_NE(xmlOf(o, u"/job").find("url=\"/job/SettingsDR\""), std::string::npos);
}

// The filter kinds 1 and 2 change places in the XML only; the focal distance override is the
// inverse of its stored flag; any non-zero flag shows as 1.
TEST(OptionsXml, ComputedParameters)
{
    for (auto [stored, shown] : {std::pair{1, "2"}, {2, "1"}, {0, "0"}, {5, "5"}}) {
        AllOptions o;
        o.filter_type = stored;
        EXPECT_EQ(valueOf(groupXml(xmlOf(o), "SettingsImageFilter"), "type"), shown);
        EXPECT_EQ(o.filter_type, stored);
    }
    AllOptions o;
    o.focal_dist_not_overridden = 0;
    o.params.dof_on = 2;
    const std::string dof = groupXml(xmlOf(o), "SettingsCameraDof");
    EXPECT_NE(dof.find("<parameter type=\"bool\" name=\"override_focal_dist\" handler=\"default\" listType=\"none\" "
                       "isUserData=\"1\" label=\"override_focal_dist\">\n              <value>1</value>"),
              std::string::npos);
    EXPECT_EQ(valueOf(dof, "on"), "1");
}

// Labels and user-data marks of the output group; the photon map's repeated search toggle.
TEST(OptionsXml, LabelsAndUserData)
{
    AllOptions o;
    o.params.pm_auto_search_distance = 0;
    setPath(o.nuimg_file, u"out/a&b.nuimg");
    const std::string xml = xmlOf(o);
    const std::string output = groupXml(xml, "SettingsOutput");
    EXPECT_NE(output.find("<parameter type=\"string\" name=\"nuimg_file\" handler=\"FileBrowserHandler\" listType=\"none\" "
                          "isUserData=\"1\" label=\"NuImage Output File\">\n              <value>out/a&amp;b.nuimg</value>"),
              std::string::npos);
    EXPECT_NE(output.find("name=\"override_viewport\" handler=\"default\" listType=\"none\" isUserData=\"1\" "
                          "label=\"Override Viewport\""),
              std::string::npos);
    EXPECT_NE(output.find("name=\"img_pixelAspectLocked\" handler=\"default\" listType=\"none\" label="),
              std::string::npos);
    const std::string photon = groupXml(xml, "SettingsPhotonMap");
    EXPECT_EQ(valueOf(photon, "search_distance_toggle"), "0");
    EXPECT_NE(photon.find("name=\"search_distance_toggle\" handler=\"default\" listType=\"none\" isUserData=\"1\""),
              std::string::npos);
    EXPECT_NE(photon.find("name=\"auto_search_distance\" handler=\"default\" listType=\"none\" label="),
              std::string::npos);
    // Integers that look like flags stay integers.
    EXPECT_NE(groupXml(xml, "SettingsRegionsGenerator").find("type=\"integer\" name=\"reverse\""), std::string::npos);
    EXPECT_NE(groupXml(xml, "SettingsOptions").find("type=\"integer\" name=\"batch_render\""), std::string::npos);
}

TEST(OptionsXml, ChannelNames)
{
    AllOptions o;
    EXPECT_NE(groupXml(xmlOf(o), "SettingsRenderChannels")
                  .find("<parameter type=\"list\" name=\"channel_names\" handler=\"default\" listType=\"string\" "
                        "label=\"NFB Channels\">\n"
                        "              <value>\n"
                        "              <list>\n"
                        "                <entry>RGB color</entry>\n"
                        "                <entry>Alpha</entry>\n"
                        "              </list>\n"
                        "              </value>\n"
                        "            </parameter>\n"),
              std::string::npos);
    EXPECT_EQ(renderChannelName(100), "Atmosphere");
    EXPECT_EQ(renderChannelName(116), "Node ID");
    EXPECT_EQ(renderChannelName(133), "SSS2");
    EXPECT_EQ(renderChannelName(134), "");
}

// A texture's asset stands inside the environment's Assets element ahead of the group's asset,
// and the group's multiplier follows the texture's presence.
TEST(OptionsXml, EnvironmentTextures)
{
    AllOptions o;
    o.bg_color_mult = 2;
    o.bg_tex_mult = 3;
    o.gi_color_mult = 4;
    o.gi_tex = std::make_shared<AColorTexture>(AColor{1, 0, 0, 1});
    const std::string env = groupXml(xmlOf(o), "SettingsEnvironment");
    EXPECT_EQ(valueOf(env, "bg_mult"), "2");
    EXPECT_EQ(valueOf(env, "gi_mult"), "1");
    const std::size_t texture = env.find("url=\"/SettingsEnvironment/gi_texture/TexAColor\"");
    ASSERT_NE(texture, std::string::npos);
    EXPECT_LT(texture, env.find("url=\"/SettingsEnvironment\""));
    EXPECT_EQ(valueOf(env, "gi_tex"), "/SettingsEnvironment/gi_texture/TexAColor");
    EXPECT_NE(env.find("name=\"bg_tex\" handler=\"default\" listType=\"none\" label=\"bg_tex\">\n            </parameter>"),
              std::string::npos);
}

}  // namespace
}  // namespace TalvexTest

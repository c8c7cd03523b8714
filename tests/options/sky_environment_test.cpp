// Skies in the four environment slots: the options record carries them and their suns, and each
// sky names its sun in the environment's settings asset.
#include <gtest/gtest.h>

#include "options_test_support.h"
#include "support/document_sun.h"
#include "textures/sky_texture.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;
using SkyEnvironment = DocumentSunTest;

TEST_F(SkyEnvironment, SkiesInEverySlotReadBackAndNameTheirSuns)
{
    auto shared = std::make_shared<SunLight>(u"Horizon", u"{H}");
    AllOptions o;
    o.bg_tex = std::make_shared<SkyTexture>();
    for (TexturePtr* slot : {&o.gi_tex, &o.reflect_tex, &o.refract_tex}) {
        auto sky = std::make_shared<SkyTexture>();
        sky->sun = shared;
        *slot = sky;
    }
    AllOptions back;
    ASSERT_TRUE(load(back, recordOf(o)));
    EXPECT_TRUE(back.isEqual(o));
    EXPECT_EQ(std::dynamic_pointer_cast<SkyTexture>(back.bg_tex)->sun, defaultSun());

    const std::string env = groupXml(xmlOf(back), "SettingsEnvironment");
    const std::size_t background = env.find("url=\"/SettingsEnvironment/bg_texture/TexSky\"");
    ASSERT_NE(background, std::string::npos);
    EXPECT_EQ(env.find("<value>", background), env.find("<value>/Host Document Sun</value>", background));
    for (const char* slot : {"gi_texture", "reflect_texture", "refract_texture"}) {
        const std::size_t sky = env.find(std::string("url=\"/SettingsEnvironment/") + slot + "/TexSky\"");
        ASSERT_NE(sky, std::string::npos) << slot;
        EXPECT_EQ(env.find("<value>", sky), env.find("<value>/{H}</value>", sky)) << slot;
    }
    EXPECT_EQ(env.find("type=\"light\""), std::string::npos);
}

}  // namespace
}  // namespace TalvexTest

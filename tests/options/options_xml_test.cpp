// The settings assets beyond what the example library's documents show.
#include <gtest/gtest.h>

#include "options/options_test_support.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

// The photon map's search toggle repeats its auto search distance, also when off; every group
// hangs under the url given; channel names end at the last id known.
TEST(OptionsXml, ValuesTheExamplesDoNotReach)
{
    AllOptions o;
    o.params.pm_auto_search_distance = 0;
    EXPECT_EQ(valueOf(groupXml(xmlOf(o), "SettingsPhotonMap"), "search_distance_toggle"), "0");
    EXPECT_TRUE(has(xmlOf(o, u"/job"), "url=\"/job/SettingsDR\""));
    EXPECT_EQ(renderChannelName(133), "SSS2");
    EXPECT_EQ(renderChannelName(134), "");
}

}  // namespace
}  // namespace TalvexTest

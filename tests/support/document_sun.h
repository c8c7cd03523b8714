// DocumentSunTest: a test that may change the process-wide sun puts its values back afterwards.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "scene/sun_light.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {

class DocumentSunTest : public ::testing::Test {
protected:
    void TearDown() override { *TalvexCore::defaultSun() = saved; }
    TalvexCore::SunLight saved = *TalvexCore::defaultSun();
};

// The text one writer gives for several objects in a row, in a sun url mode, as narrow text.
template <class... T>
std::string xmlWithOneWriter(int32_t sunUrlMode, const T&... objects)
{
    std::u16string text;
    TalvexCore::AssetXmlWriter writer(text);
    writer.sunUrlMode = sunUrlMode;
    (objects.writeXml(writer, u""), ...);
    return std::string(text.begin(), text.end());
}

}  // namespace TalvexTest

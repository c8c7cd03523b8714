// The physical camera and the render view: every record version built by hand and read, the newest
// written back byte for byte, the camera's table shown as its group, the view's asset.
#include <gtest/gtest.h>

#include "archive/text_conversion.h"
#include "scene/base_camera.h"
#include "scene/physical_camera.h"
#include "scene/render_view.h"
#include "support/byte_builder.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace {

// The camera record up to and including use_dof; the lens values as single numbers or containers.
ByteBuilder cameraBytes(uint32_t version)
{
    const auto lens = [&](ByteBuilder& b, float atZero, float atOne) -> ByteBuilder& {
        if (version == 1) return b.f32(atZero);
        return b.tag(1).i32(2).i32(8).boolean(true).f64(0.0).f32(atZero).f64(1.0).f32(atOne);
    };
    ByteBuilder b;
    b.tag(version).i32(1).f32(35);
    lens(b, 50, 55);
    b.floats({2, 0.5f, 5.6f, 0.25f, 60, 90, 0.1f, 0.2f, 400}).i32(1);
    lens(b, 150, 160);
    b.i32(1).f32(120).f32(0.3f).i32(0).color(1, 0.9f, 0.8f).i32(0).i32(1).i32(7).floats({15, 0.4f, 0.6f}).i32(1);
    return b;
}

ByteBuilder& rect(ByteBuilder& b, int32_t l, int32_t t, int32_t r, int32_t bottom) { return b.i32(l).i32(t).i32(r).i32(bottom); }

ByteBuilder& transformBytes(ByteBuilder& b, float x)
{
    return b.floats({1, 0, 0, 0, 1, 0, 0, 0, 1, x, 0, 0});
}

std::string xmlOf(const std::function<void(AssetXmlWriter&)>& write)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    write(writer);
    return wideToNarrow(text);
}

}  // namespace

TEST(PhysicalCamera, DefaultsAndBothRecordVersions)
{
    const PhysicalCamera fresh;
    EXPECT_EQ(fresh.film_width, 36.0f);
    EXPECT_EQ(fresh.focal_length.keyCount(), 1);
    EXPECT_EQ(fresh.focal_length.valueAt(0.0), 40.0f);
    EXPECT_EQ(fresh.focus_distance.valueAt(0.0), 200.0f);
    EXPECT_EQ(fresh.white_balance, (Color{1, 1, 1}));
    EXPECT_EQ(fresh.exposure, 1);
    EXPECT_EQ(fresh.subdivs, 6);

    // Version 1: single lens values, and nothing behind use_dof.
    ByteBuilder v1 = cameraBytes(1);
    PhysicalCamera old;
    old.use_moblur = 1;
    old.subdivs = 99;
    QuickArchive in = v1.archive();
    ASSERT_TRUE(old.readBinary(in));
    EXPECT_EQ(in.readPosition(), v1.bytes.size());
    EXPECT_EQ(old.type, 1);
    EXPECT_EQ(old.focal_length.keyCount(), 1);
    EXPECT_EQ(old.focal_length.valueAt(0.0), 50.0f);
    EXPECT_EQ(old.focus_distance.valueAt(0.0), 150.0f);
    EXPECT_EQ(old.ISO, 400.0f);
    EXPECT_EQ(old.blades_num, 7);
    EXPECT_EQ(old.use_dof, 1);
    EXPECT_EQ(old.use_moblur, 0);
    EXPECT_EQ(old.subdivs, 6);

    // Version 2: the containers keep the default key at time 0 beside the stored ones.
    ByteBuilder v2 = cameraBytes(2);
    v2.i32(1).i32(12);
    PhysicalCamera current;
    in = v2.archive();
    ASSERT_TRUE(current.readBinary(in));
    EXPECT_EQ(current.focal_length.keyCount(), 2);
    EXPECT_EQ(current.focal_length.valueAt(0.5), 52.5f);
    EXPECT_EQ(current.use_moblur, 1);
    EXPECT_EQ(current.subdivs, 12);

    QuickArchive out(1);
    ASSERT_TRUE(current.writeBinary(out));
    EXPECT_EQ(writtenBytes(out), v2.bytes);

    const CameraPtr copy = current.clone();
    EXPECT_TRUE(current.isEqual(copy));
    std::static_pointer_cast<PhysicalCamera>(copy)->focus_distance.setKey(1, 3.0);
    EXPECT_FALSE(current.isEqual(copy));
    EXPECT_FALSE(current.isEqual(nullptr));

    ByteBuilder v3 = cameraBytes(3);
    in = v3.archive();
    EXPECT_FALSE(current.readBinary(in));
    // The reset comes before the tag; it sets the lens values' keys at time 0 and keeps the others.
    EXPECT_EQ(current.subdivs, 6);
    EXPECT_EQ(current.focal_length.valueAt(0.0), 40.0f);
    EXPECT_EQ(current.focal_length.keyCount(), 2);
}

TEST(PhysicalCamera, FactoryAndPluginReference)
{
    const CameraPtr camera = createCamera(0);
    ASSERT_TRUE(camera);
    EXPECT_EQ(camera->typeId(), 0u);
    EXPECT_EQ(camera->pluginType(), u"CameraPhysical");
    EXPECT_EQ(camera->assetType(), u"settings");
    EXPECT_FALSE(createCamera(1));

    const std::string text = xmlOf([&](AssetXmlWriter& w) { w.writePlugin("camera", camera, u"/scene/cam"); });
    EXPECT_NE(text.find("<value>/scene/cam/CameraPhysical</value>"), std::string::npos) << text;
    EXPECT_EQ(xmlOf([&](AssetXmlWriter& w) { camera->writeXml(w, u"/x"); }), "");
}

TEST(PhysicalCamera, TableShowsTheGroupWithLensValuesAtTimeZero)
{
    PhysicalCamera camera;
    camera.focal_length.setKey(70, 0.0);
    camera.focal_length.setKey(10, 1.0);
    camera.use_dof = 3;
    const std::string text = xmlOf([&](AssetXmlWriter& w) {
        writeSettingParameters(w, "CameraPhysical", u"/CameraPhysical", bindSettings(physicalCameraSettings, camera));
    });
    const auto at = [&](const char* s) { return text.find(s); };
    EXPECT_LT(at("name=\"type\""), at("name=\"film_width\""));
    EXPECT_LT(at("name=\"use_moblur\""), at("name=\"subdivs\""));
    EXPECT_NE(at("name=\"focal_length\" handler=\"default\" listType=\"none\" label=\"focal_length\">\n"
                 "  <value>70</value>"),
              std::string::npos)
        << text;
    EXPECT_NE(at("type=\"bool\" name=\"use_dof\" handler=\"default\" listType=\"none\" label=\"use_dof\">\n"
                 "  <value>1</value>"),
              std::string::npos)
        << text;
    EXPECT_NE(at("type=\"color\" name=\"white_balance\""), std::string::npos);
}

TEST(RenderView, EveryRecordVersion)
{
    const RenderView fresh;
    EXPECT_EQ(fresh.regionA.left, -1);
    EXPECT_EQ(fresh.regionB.bottom, -1);
    EXPECT_EQ(fresh.img_width, 320);
    EXPECT_EQ(fresh.fieldOfView.valueAt(0.0), 0.7853982f);
    EXPECT_EQ(fresh.viewTransform.keyValue(0), AnimatedTransform::identity());

    // Version 1: a single transform first, a flag byte, no container of the transform.
    ByteBuilder v1;
    transformBytes(v1.tag(1), 5);
    rect(v1, 0, 0, 10, 20);
    rect(v1, 1, 2, 3, 4).floats({0.5f, 2, 3}).i32(640).i32(480).u8(7);
    RenderView first;
    QuickArchive in = v1.archive();
    ASSERT_TRUE(first.readBinary(in));
    EXPECT_EQ(in.readPosition(), v1.bytes.size());
    EXPECT_EQ(first.viewTransform.keyCount(), 1);
    EXPECT_EQ(first.viewTransform.keyValue(0).offset.x, 5.0f);
    EXPECT_EQ(first.regionA.height, 20);
    EXPECT_EQ(first.fieldOfView.valueAt(0.0), 0.5f);
    EXPECT_EQ(first.viewRealB.valueAt(0.0), 3.0f);
    EXPECT_EQ(first.img_height, 480);
    EXPECT_EQ(first.viewFlag.valueAt(0.0), 1);

    // Version 2: the transform's container at the end; an empty one leaves no key.
    ByteBuilder v2;
    rect(v2.tag(2), 0, 0, 10, 20);
    rect(v2, 1, 2, 3, 4).floats({0.5f, 2, 3}).i32(640).i32(480).u8(0).tag(1).i32(0).i32(8);
    RenderView second;
    second.viewFlag.setKey(1, 0.0);
    in = v2.archive();
    ASSERT_TRUE(second.readBinary(in));
    EXPECT_EQ(second.viewFlag.valueAt(0.0), 0);
    EXPECT_EQ(second.viewTransform.keyCount(), 0);

    // Version 3: containers throughout.
    ByteBuilder v3;
    rect(v3.tag(3), -5, -5, 5, 5);
    rect(v3, 0, 0, 0, 0).i32(800).i32(600);
    v3.tag(1).i32(2).i32(8).boolean(true).f64(0.0).f32(0.6f).f64(2.0).f32(0.7f);
    v3.tag(1).i32(1).i32(8).boolean(true).f64(0.0).f32(1.5f);
    v3.tag(1).i32(1).i32(8).boolean(false).f64(0.0).f32(1);
    v3.tag(1).i32(1).i32(8).boolean(false).f64(0.0).i32(1);
    transformBytes(v3.tag(1).i32(1).i32(8).f64(0.5), 9);
    RenderView third;
    in = v3.archive();
    ASSERT_TRUE(third.readBinary(in));
    EXPECT_EQ(third.fieldOfView.keyCount(), 2);
    EXPECT_EQ(third.fieldOfView.valueAt(1.0), 0.65f);
    EXPECT_EQ(third.viewTransform.keyCount(), 1);
    EXPECT_EQ(third.viewTransform.keyTime(0), 0.5);
    EXPECT_EQ(third.regionA.width, 10);

    QuickArchive out(1);
    ASSERT_TRUE(third.writeBinary(out));
    EXPECT_EQ(writtenBytes(out), v3.bytes);
    RenderView again;
    in = QuickArchive(v3.bytes.data(), v3.bytes.size());
    ASSERT_TRUE(again.readBinary(in));
    EXPECT_TRUE(again == third);

    // A damaged container fails the whole view.
    ByteBuilder damaged;
    rect(damaged.tag(3), 0, 0, 0, 0);
    rect(damaged, 0, 0, 0, 0).i32(1).i32(1).tag(1).i32(1).i32(4);
    in = damaged.archive();
    EXPECT_FALSE(RenderView().readBinary(in));
    in = ByteBuilder().tag(4).archive();
    EXPECT_FALSE(RenderView().readBinary(in));
}

TEST(RenderView, AssetShowsTheImageSize)
{
    RenderView view;
    view.img_width = 1024;
    EXPECT_EQ(xmlOf([&](AssetXmlWriter& w) { view.writeXml(w, u"/scene"); }),
              R"(  <Asset layout="" renderer="nuva" type="settings" url="/scene/RenderView" >
    <plugin>
      <nuvaplugin name="RenderView" type="settings">
        <parameters>
          <parameter type="integer" name="img_width" handler="default" listType="none" label="img_width">
            <value>1024</value>
          </parameter>
          <parameter type="integer" name="img_height" handler="default" listType="none" label="img_height">
            <value>240</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
)");
}

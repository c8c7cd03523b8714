// The physical camera and the render view: every record version built by hand and read, the newest
// written back byte for byte, the camera's table shown as its group, the view's asset.
#include <gtest/gtest.h>

#include <tuple>

#include "scene/base_camera.h"
#include "scene/physical_camera.h"
#include "scene/render_view.h"
#include "support/byte_builder.h"
#include "support/xml_of.h"
#include "textures/texture_test_support.h"
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

}  // namespace

// The example library's options files hold both versions; what their documents do not show is the
// second version's key frames, its bytes written back, and what a refused tag leaves.
TEST(PhysicalCamera, KeyedRecordWritesBackAndARefusedTagResetsFirst)
{
    // The containers keep the default key at time 0 beside the stored ones.
    ByteBuilder v2 = cameraBytes(2);
    v2.i32(1).i32(12);
    PhysicalCamera current;
    ASSERT_TRUE(load(current, v2));
    EXPECT_EQ(std::tuple(current.focal_length.keyCount(), current.focal_length.valueAt(0.5), current.subdivs),
              std::tuple(2, 52.5f, 12));
    EXPECT_EQ(bytesOf(current), v2.bytes);

    const CameraPtr copy = current.clone();
    EXPECT_TRUE(current.isEqual(copy));
    std::static_pointer_cast<PhysicalCamera>(copy)->focus_distance.setKey(1, 3.0);
    EXPECT_FALSE(current.isEqual(copy) || current.isEqual(nullptr));

    EXPECT_FALSE(load(current, cameraBytes(3)));
    // The reset comes before the tag; it sets the lens values' keys at time 0 and keeps the others.
    EXPECT_EQ(std::tuple(current.subdivs, current.focal_length.valueAt(0.0), current.focal_length.keyCount()),
              std::tuple(6, 40.0f, 2));
}

TEST(PhysicalCamera, FactoryAndPluginReference)
{
    const CameraPtr camera = createCamera(0);
    ASSERT_TRUE(camera && !createCamera(1));

    const std::string text = textOf([&](AssetXmlWriter& w) { w.writePlugin("camera", camera, u"/scene/cam"); });
    EXPECT_TRUE(has(text, "<value>/scene/cam/CameraPhysical</value>")) << text;
    EXPECT_EQ(textOf([&](AssetXmlWriter& w) { camera->writeXml(w, u"/x"); }), "");
}

// A lens value shows its value at time 0 whatever its other keys; a flag shows as 1.
TEST(PhysicalCamera, TableShowsLensValuesAtTimeZero)
{
    PhysicalCamera camera;
    camera.focal_length.setKey(70, 0.0);
    camera.focal_length.setKey(10, 1.0);
    camera.use_dof = 3;
    const std::string text = textOf([&](AssetXmlWriter& w) {
        writeSettingParameters(w, "CameraPhysical", u"/CameraPhysical", bindSettings(physicalCameraSettings, camera));
    });
    EXPECT_EQ(valueOf(text, "focal_length"), "70");
    EXPECT_EQ(valueOf(text, "use_dof"), "1");
}

TEST(RenderView, EveryRecordVersion)
{
    // Version 1: a single transform first, a flag byte, no container of the transform.
    ByteBuilder v1;
    transform(v1.tag(1), 1, 5);
    rect(v1, 0, 0, 10, 20);
    rect(v1, 1, 2, 3, 4).floats({0.5f, 2, 3}).i32(640).i32(480).u8(7);
    RenderView first;
    ASSERT_TRUE(loadAll(first, v1));
    EXPECT_EQ(std::tuple(first.viewTransform.keyCount(), first.viewTransform.keyValue(0).offset.x,
                         first.fieldOfView.valueAt(0.0), first.viewFlag.valueAt(0.0)),
              std::tuple(1, 5.0f, 0.5f, 1));

    // Version 2: the transform's container at the end; an empty one leaves no key.
    ByteBuilder v2;
    rect(v2.tag(2), 0, 0, 10, 20);
    rect(v2, 1, 2, 3, 4).floats({0.5f, 2, 3}).i32(640).i32(480).u8(0).tag(1).i32(0).i32(8);
    RenderView second;
    second.viewFlag.setKey(1, 0.0);
    ASSERT_TRUE(load(second, v2));
    EXPECT_EQ(std::pair(second.viewFlag.valueAt(0.0), second.viewTransform.keyCount()), std::pair(0, 0));

    // Version 3: containers throughout.
    ByteBuilder v3;
    rect(v3.tag(3), -5, -5, 5, 5);
    rect(v3, 0, 0, 0, 0).i32(800).i32(600);
    v3.tag(1).i32(2).i32(8).boolean(true).f64(0.0).f32(0.6f).f64(2.0).f32(0.7f);
    v3.tag(1).i32(1).i32(8).boolean(true).f64(0.0).f32(1.5f);
    v3.tag(1).i32(1).i32(8).boolean(false).f64(0.0).f32(1);
    v3.tag(1).i32(1).i32(8).boolean(false).f64(0.0).i32(1);
    transform(v3.tag(1).i32(1).i32(8).f64(0.5), 1, 9);
    RenderView third;
    ASSERT_TRUE(load(third, v3));
    EXPECT_EQ(std::tuple(third.fieldOfView.keyCount(), third.fieldOfView.valueAt(1.0), third.viewTransform.keyCount(),
                         third.viewTransform.keyTime(0)),
              std::tuple(2, 0.65f, 1, 0.5));
    EXPECT_EQ(bytesOf(third), v3.bytes);
    EXPECT_TRUE(*readFrom<RenderView>(v3) == third);

    // A damaged container fails the whole view.
    ByteBuilder damaged;
    rect(damaged.tag(3), 0, 0, 0, 0);
    rect(damaged, 0, 0, 0, 0).i32(1).i32(1).tag(1).i32(1).i32(4);
    EXPECT_FALSE(readFrom<RenderView>(damaged) || readFrom<RenderView>(ByteBuilder().tag(4)));
}

TEST(RenderView, AssetShowsTheImageSize)
{
    RenderView view;
    view.img_width = 1024;
    EXPECT_EQ(textOf([&](AssetXmlWriter& w) { view.writeXml(w, u"/scene"); }),
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

#include "legacy_examples.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "archive/quick_archive.h"
#include "materials/diffuse_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/material_layered_brdf.h"
#include "record_bytes.h"

namespace MakeExamples {

namespace {

using TalvexCore::QuickArchive;

constexpr uint32_t refractionId = 1, diffuseId = 2, blinnId = 4, phongId = 8, mirrorId = 16, lightId = 32;

RecordBytes brdfBase(uint32_t version, const std::string& name)
{
    RecordBytes r;
    r.tag(version).text(name);
    if (version >= 2) r.u8(1);
    if (version >= 3) r.u8(0);
    if (version >= 4) r.u8(0);
    return r;
}

RecordBytes componentsRecord(float zRotation, float scale)
{
    RecordBytes r;
    r.u32(0x10000).floats({0, 0, zRotation, scale, scale, 1, 0, 0, 0}).i32(0).i32(0).i32(0);
    return r;
}

RecordBytes identityTransform()
{
    RecordBytes r;
    r.floats({1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    return r;
}

// The oldest channel generator: two matrices and a few loose components of the texture transform.
RecordBytes channelUvwV1()
{
    RecordBytes r;
    r.tag(1).append(identityTransform()).append(identityTransform());
    r.f32(30).f32(0).i32(1).i32(0).i32(1).i32(1).i32(2);
    return r;
}

// The oldest environment generator: its z fields come before its x fields.
RecordBytes environmentUvwV1()
{
    RecordBytes r;
    r.tag(1).floats({1, 0, 0, 0, 1, 0, 0, 0, 1}).i32(0).f32(90).f32(15).i32(1).i32(0);
    return r;
}

RecordBytes worldUvw()
{
    RecordBytes r;
    r.tag(1).append(identityTransform()).append(componentsRecord(45, 0.5f));
    return r;
}

RecordBytes bitmapTexture(const std::string& file)
{
    RecordBytes r;
    r.tag(1).i32(4).i32(0).append(channelUvwV1());
    r.tag(1).i32(2).f32(0.3f).f32(2.2f).text(file);  // the buffer: summed-area filtering
    r.u8(1);
    return r;
}

RecordBytes constantColor(float r, float g, float b)
{
    RecordBytes t;
    t.tag(1).floats({r, g, b, 1});
    return t;
}

// Layers in records of old versions.
RecordBytes diffuseV1(const std::string& colorFile)
{
    RecordBytes r;
    r.tag(1).floats({0.8f, 0.78f, 0.7f}).floats({0, 0, 0}).f32(1).f32(1).text(colorFile).text("");
    return r;
}

RecordBytes diffuseV2WithBitmap()
{
    RecordBytes r;
    r.tag(2).floats({0.5f, 0.5f, 0.5f}).floats({0.1f, 0.1f, 0.1f}).f32(0.75f).f32(1);
    r.u8(1).u32(0).append(bitmapTexture("C:\\maps\\r\xc3\xb6st.jpg")).absent();
    return r;
}

RecordBytes mirrorV2()
{
    RecordBytes r;
    r.tag(2).floats({0.9f, 0.9f, 0.9f}).floats({0.6f, 0.6f, 0.6f}).f32(1).f32(1.33f).f32(0.01f);
    r.u32(1).u32(1).text("").f32(0.5f).text("maps\\tint.png");  // the Fresnel switch is on
    return r;
}

RecordBytes glossyHead(float fresnelIndex, uint32_t fresnelSwitch)
{
    RecordBytes r;
    r.floats({0.7f, 0.7f, 0.7f}).floats({0.8f, 0.8f, 0.8f}).f32(0.65f).f32(0.9f).f32(fresnelIndex).f32(0.01f);
    r.u32(12).u32(fresnelSwitch).u32(0).u32(5);
    return r;
}

RecordBytes phongV3()
{
    RecordBytes r;
    r.tag(3).append(glossyHead(1.6f, 1)).floats({1, 0.5f, 1});
    r.text("").text("maps\\gloss.png").text("").f32(0.25f).f32(30);
    return r;
}

RecordBytes blinnV5()
{
    RecordBytes r;
    r.tag(5).append(glossyHead(1.5f, 0)).floats({1, 1, 1}).absent().absent().absent().f32(0).f32(0);
    r.append(brdfBase(2, "Old_Sheen"));
    return r;
}

// Items 1 to 12, then the three texture multipliers of the versions before 5.
RecordBytes glassScalars(uint32_t version, float glossinessTexMult)
{
    RecordBytes r;
    r.tag(version).floats({1, 1, 1}).floats({0.8f, 0.9f, 1}).f32(1.45f).f32(1.45f).f32(0.001f).f32(0.5f).f32(0.95f);
    r.u32(5).u32(8).u32(1).u32(0).f32(1).f32(glossinessTexMult).f32(1);
    return r;
}

RecordBytes glassV3()
{
    RecordBytes r = glassScalars(3, 1);
    r.text("").text("maps\\frost.png").text("");
    r.u32(1).f32(250).f32(0.1f).f32(0.5f).f32(1).floats({1, 0.95f, 0.9f}).text("");
    return r;
}

RecordBytes glassV4WithTextures()
{
    RecordBytes fresnelV1;
    fresnelV1.tag(1).floats({1, 1, 1}).floats({0.2f, 0.2f, 0.2f}).f32(1.8f).f32(1.45f);
    RecordBytes gridV1;
    gridV1.tag(1).u32(0).append(worldUvw()).u32(5).append(constantColor(0, 0, 0)).u32(5);
    gridV1.append(constantColor(1, 1, 1)).f32(0.05f).f32(0.05f);
    RecordBytes checkerV1;
    checkerV1.tag(1).u32(3).append(environmentUvwV1()).u32(5).append(constantColor(1, 1, 1)).u32(5);
    checkerV1.append(constantColor(0.2f, 0.2f, 0.2f)).u8(1).u8(0);
    RecordBytes clothV1;
    clothV1.tag(1).u32(4).append(channelUvwV1()).floats({1, 1, 1, 1}).floats({0.3f, 0, 0, 1});
    clothV1.floats({0, 0, 0.3f, 1}).f32(0.2f).f32(0.2f);
    RecordBytes blendV1;
    blendV1.tag(1).u8(1).u32(6).append(gridV1).u8(1).u32(7).append(clothV1).f32(0.4f);

    RecordBytes r = glassScalars(4, 0.8f);
    r.u32(0).f32(1000).f32(0).f32(1).f32(1).floats({1, 1, 1});
    r.u8(1).u32(1).append(fresnelV1);   // transparency
    r.u8(1).u32(10).append(blendV1);    // glossiness
    r.u8(1).u32(4).append(checkerV1);   // index of refraction
    r.absent();                          // translucency
    return r;
}

RecordBytes lightV2()
{
    RecordBytes r;
    r.tag(2).floats({1, 0.9f, 0.8f}).floats({0, 0, 0}).f32(4).f32(1).f32(1).f32(1);
    r.text("maps\\filament.png").text("");
    return r;
}

RecordBytes layer(uint32_t id, const RecordBytes& record)
{
    RecordBytes r;
    r.u32(id).append(record);
    return r;
}

void writeMaterialFile(const std::filesystem::path& path, uint32_t count, const RecordBytes& stream)
{
    QuickArchive archive(stream.bytes.data(), stream.bytes.size());
    std::ofstream out(path, std::ios::binary);
    const uint32_t header[2] = {0x30000, count};
    out.write(reinterpret_cast<const char*>(header), sizeof header);
    archive.writeToStream(out);
}

}  // namespace

void writeOldRecordsFile(const std::filesystem::path& path)
{
    RecordBytes stream;
    // A layered material of the first version: a bare name, made unique on loading.
    stream.u32(1).tag(1).u32(2).append(layer(diffuseId, diffuseV1("maps\\plaster.jpg")));
    stream.append(layer(mirrorId, mirrorV2())).u32(1).u32(0).text("Old_Plaster");
    // The second version, with the first base material record.
    stream.u32(1).tag(2).u32(2).append(layer(phongId, phongV3())).append(layer(refractionId, glassV3()));
    stream.u32(0).u32(0).tag(1).text("Old_Lacquer");
    // The third version, with name and identifier.
    stream.u32(1).tag(3).u32(3).append(layer(lightId, lightV2())).append(layer(diffuseId, diffuseV2WithBitmap()));
    stream.append(layer(blinnId, blinnV5())).u32(1).u32(0).u32(1).u32(1);
    stream.tag(2).text("Old_Lamp").text("0f8fad5b-d9cb-469f-a165-70867728950e");
    // A single-layer material of the first version: it has no asset.
    RecordBytes diffuseV3;
    diffuseV3.tag(3).floats({0.5f, 0.5f, 0.5f}).floats({0, 0, 0}).f32(1).f32(1).absent().absent();
    diffuseV3.append(brdfBase(1, "Lone\tLayer"));
    stream.u32(0).tag(1).u32(0).u32(0).text("Old_Single").append(layer(diffuseId, diffuseV3));
    // The newest layered record around a refraction layer of the fourth version and old textures.
    stream.u32(1).tag(4).u32(1).append(layer(refractionId, glassV4WithTextures()));
    stream.u32(1).u32(0).u32(1).u32(1).tag(2).text("Old_Ice").text("").u32(0);
    writeMaterialFile(path, 5, stream);
}

void writeOldContainerFiles(const std::filesystem::path& dir)
{
    using namespace TalvexCore;
    auto paint = std::make_shared<Diffuse_BRDF>();
    paint->name = u"Paint";
    paint->color = {0.1f, 0.3f, 0.7f};
    auto gloss = std::make_shared<Phong_BRDF>();
    gloss->name = u"Gloss";
    gloss->subdivs = 10;  // a line feed byte in the stream, which the oldest container doubles
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = u"Car_Paint";
    material->brdfs = {paint, gloss};

    QuickArchive archive(1);
    archive.writeU32(material->typeId());
    material->writeBinary(archive);
    std::string stream(archive.writePosition(), '\0');
    archive.readRaw(stream.data(), stream.size());
    if (stream.find("\r\n") != std::string::npos || stream.find('\n') == std::string::npos) {
        std::fprintf(stderr, "make_examples: the car paint stream no longer suits the oldest container\n");
        std::exit(1);
    }

    const uint32_t v2[2] = {0x20000, 1};
    std::ofstream out2(dir / "car_paint_v2.talmat", std::ios::binary);
    out2.write(reinterpret_cast<const char*>(v2), sizeof v2);
    out2 << stream;

    std::string textMode;
    for (char c : stream) {
        if (c == '\n') textMode += '\r';
        textMode += c;
    }
    const uint32_t v1[2] = {0x10000, 1};
    std::ofstream out1(dir / "car_paint_v1.numat", std::ios::binary);
    out1.write(reinterpret_cast<const char*>(v1), sizeof v1);
    out1 << textMode;
}

}  // namespace MakeExamples

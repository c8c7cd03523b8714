// The material file: header refusals, the three container bodies, the list operations, saving.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "archive/tal_mat_file.h"
#include "materials/base_brdf.h"
#include "materials/material_single_brdf.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;
using TalvexTest::writtenBytes;

namespace {

// A single-layer material whose first field is a line feed and whose uuid ends in CR LF.
std::shared_ptr<MaterialSingleBRDF> sampleMaterial()
{
    auto m = std::make_shared<MaterialSingleBRDF>();
    m->single_aux_1 = 0x0A;
    m->single_aux_2 = 0x11223344;
    m->brdf = createBRDF(2);
    m->name = u"Oak";
    m->uuid = u"id\r\n";
    return m;
}

// The logical stream of a file holding the material: its type id, then its record.
std::string logicalStream(const MaterialPtr& m)
{
    QuickArchive a(1);
    a.writeU32(m->typeId());
    EXPECT_TRUE(m->writeBinary(a));
    const auto bytes = writtenBytes(a);
    return std::string(bytes.begin(), bytes.end());
}

std::string header(uint32_t tag, uint32_t count)
{
    const auto b = ByteBuilder().u32(tag).u32(count).bytes;
    return std::string(b.begin(), b.end());
}

// What a text-mode stream made of the bytes: every line feed as CR LF.
std::string asTextMode(const std::string& bytes)
{
    std::string out;
    for (char c : bytes) {
        if (c == '\n') out += '\r';
        out += c;
    }
    return out;
}

bool loadBytes(TalMatFile& file, const std::string& bytes)
{
    std::istringstream in(bytes);
    return file.load(in);
}

MaterialSingleBRDF& single(const TalMatFile& file, std::size_t index)
{
    return dynamic_cast<MaterialSingleBRDF&>(*file.materials.at(index));
}

}  // namespace

TEST(TalMatFile, HeaderRefusalsReadNoFurther)
{
    const std::string body = logicalStream(sampleMaterial());
    struct Case {
        const char* what;
        uint32_t tag, count;
    };
    const Case cases[] = {
        {"count 0", 0x30000, 0}, {"low half set", 0x30001, 1}, {"version 0", 0, 1},
        {"version 4", 0x40000, 1}, {"text file", 0x6D783F3C, 0x6576206C},
    };
    for (const Case& c : cases) {
        std::istringstream in(header(c.tag, c.count) + body);
        TalMatFile file;
        EXPECT_FALSE(file.load(in)) << c.what;
        EXPECT_EQ(in.tellg(), 8) << c.what;  // refused on the header alone
        EXPECT_EQ(file.materialCount(), 0u);
    }
    TalMatFile file;
    EXPECT_FALSE(loadBytes(file, header(0x30000, 1) + std::string(4, '\0') + std::string(4096, '\x01')));
    EXPECT_FALSE(loadBytes(file, ""));
    EXPECT_FALSE(loadBytes(file, header(0x20000, 1)));
}

// The same logical stream loads alike from the block image, the plain bytes and the text-mode bytes.
TEST(TalMatFile, ThreeContainerVersionsGiveTheSameMaterial)
{
    const auto source = sampleMaterial();
    const std::string body = logicalStream(source);

    TalMatFile saver;
    saver.materials.push_back(source);
    std::ostringstream saved;
    ASSERT_TRUE(saver.save(saved));
    const std::string v3 = saved.str();
    ASSERT_EQ(v3.size(), 8u + 4u + 4096u);
    EXPECT_EQ(v3.substr(0, 12), header(0x30000, 1) + std::string("\x01\x00\x00\x00", 4));
    EXPECT_EQ(v3.substr(12, body.size()), body);

    for (const std::string& file : {v3, header(0x20000, 1) + body, header(0x10000, 1) + asTextMode(body)}) {
        TalMatFile loaded;
        ASSERT_TRUE(loadBytes(loaded, file)) << std::hex << static_cast<int>(file[2]);
        ASSERT_EQ(loaded.materialCount(), 1u);
        const MaterialSingleBRDF& m = single(loaded, 0);
        EXPECT_TRUE(m.isEqual(source));
        EXPECT_EQ(m.single_aux_1, 0x0Au);
        EXPECT_EQ(m.name, u"Oak");
        EXPECT_EQ(m.uuid, u"id\r\n");
    }
}

// The repair cannot tell a real CR LF pair from a line feed: stored as it stands, it loses the CR.
TEST(TalMatFile, Version1RepairIsBlind)
{
    const std::string body = logicalStream(sampleMaterial());
    TalMatFile loaded;
    ASSERT_TRUE(loadBytes(loaded, header(0x10000, 1) + body));
    EXPECT_EQ(single(loaded, 0).single_aux_1, 0x0Au);
    EXPECT_EQ(single(loaded, 0).uuid, u"id\n");

    // Version 2 takes the same bytes as they stand.
    ASSERT_TRUE(loadBytes(loaded, header(0x20000, 1) + body));
    EXPECT_EQ(single(loaded, 0).uuid, u"id\r\n");
}

TEST(TalMatFile, FailedLoadLeavesTheListAsItWas)
{
    const std::string body = logicalStream(sampleMaterial());
    TalMatFile file;
    ASSERT_TRUE(loadBytes(file, header(0x20000, 1) + body));
    const MaterialPtr first = file.materials.at(0);

    const std::string unknownId("\x0F\0\0\0", 4);
    const std::string failures[] = {
        header(0x20000, 1) + unknownId + body.substr(4),
        header(0x30000, 1) + std::string("\x01\0\0\0", 4) + unknownId + std::string(4092, '\0'),
        header(0x20000, 2) + body,              // a count above the true one runs off the end
        header(0x20000, 2) + body + body.substr(0, 20),  // a second material cut short
        header(0x30000, 1) + std::string(4, '\0'),       // no blocks
        header(0x40000, 1) + body,
    };
    for (const std::string& bytes : failures) {
        EXPECT_FALSE(loadBytes(file, bytes));
        ASSERT_EQ(file.materialCount(), 1u);
        EXPECT_EQ(file.materials[0], first);
    }

    ASSERT_TRUE(loadBytes(file, header(0x20000, 2) + body + body));
    EXPECT_EQ(file.materialCount(), 2u);  // a second load replaces the list as a whole
    EXPECT_NE(file.materials[0], first);
}

TEST(TalMatFile, ListOperations)
{
    TalMatFile file;
    EXPECT_EQ(file.findMaterialByName(u"Oak"), static_cast<std::size_t>(-1));
    MaterialPtr out = sampleMaterial();
    const MaterialPtr before = out;
    EXPECT_FALSE(file.getMaterial(0, out));
    EXPECT_EQ(out, before);

    const std::string body = logicalStream(sampleMaterial());
    ASSERT_TRUE(loadBytes(file, header(0x20000, 2) + body + body));
    single(file, 1).name = u"\u00c9rable";
    EXPECT_EQ(file.findMaterialByName(u"OAK"), 0u);
    EXPECT_EQ(file.findMaterialByName(u"\u00e9RABLE"), 1u);
    EXPECT_EQ(file.findMaterialByName(u"Oa"), static_cast<std::size_t>(-1));
    EXPECT_TRUE(file.getMaterial(1, out));
    EXPECT_EQ(out, file.materials[1]);
    EXPECT_FALSE(file.getMaterial(2, out));
    EXPECT_EQ(out, file.materials[1]);
    EXPECT_EQ(TalMatFile::currentVersion(), 0x30000u);
}

TEST(TalMatFile, FailedSaveWritesNothing)
{
    TalMatFile file;
    std::ostringstream out;
    EXPECT_FALSE(file.save(out));
    file.materials.push_back(nullptr);
    EXPECT_FALSE(file.save(out));
    auto noLayer = sampleMaterial();
    noLayer->brdf = nullptr;  // a layer is needed to write the record
    noLayer->name = u"Bare";
    file.materials = {sampleMaterial(), noLayer};
    EXPECT_FALSE(file.save(out));
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(file.saveMessage(), u"An error has occurred while attempting to serialize \"Bare\" - aborting talmat creation");
}

TEST(TalMatFile, OpenModeAndPaths)
{
    const auto dir = std::filesystem::temp_directory_path() / ("talmat_file_test_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    auto write = [&](const char* name, const std::string& bytes) {
        std::ofstream(dir / name, std::ios::binary) << bytes;
        return (dir / name).u16string();
    };
    EXPECT_EQ(TalMatFile::chooseOpenMode(write("v1.talmat", header(0x10000, 1))), 1);
    EXPECT_EQ(TalMatFile::chooseOpenMode(write("v1odd.talmat", header(0x10001, 1))), 33);
    EXPECT_EQ(TalMatFile::chooseOpenMode(write("v3.talmat", header(0x30000, 1))), 33);
    EXPECT_EQ(TalMatFile::chooseOpenMode(write("text.talmat", "<talmat/>")), 33);
    EXPECT_EQ(TalMatFile::chooseOpenMode((dir / "missing.talmat").u16string()), 1);

    TalMatFile file;
    EXPECT_FALSE(file.load((dir / "missing.talmat").u16string()));
    EXPECT_FALSE(file.load(dir.u16string()));
    EXPECT_TRUE(file.load(write("\u00e9 wood.talmat", header(0x20000, 1) + logicalStream(sampleMaterial()))));
    EXPECT_EQ(file.materialCount(), 1u);
    std::filesystem::remove_all(dir);
}

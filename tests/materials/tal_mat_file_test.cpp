// The material file: header refusals, the three container bodies, the list operations, saving.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <tuple>

#include <unistd.h>

#include "materials/base_brdf.h"
#include "materials/material_single_brdf.h"
#include "materials/tal_mat_file.h"
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
    for (char c : bytes) out += c == '\n' ? std::string("\r\n") : std::string(1, c);
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
    EXPECT_EQ(v3.substr(0, 12 + body.size()), header(0x30000, 1) + std::string("\x01\x00\x00\x00", 4) + body);

    // A version 1 file with many line ends is repaired throughout.
    const std::string manyLineEnds(1 << 16, '\n');
    for (const std::string& file : {v3, header(0x20000, 1) + body, header(0x10000, 1) + asTextMode(body),
                                    header(0x10000, 1) + asTextMode(body + manyLineEnds)}) {
        SCOPED_TRACE(static_cast<int>(file[2]));
        TalMatFile loaded;
        ASSERT_TRUE(loadBytes(loaded, file));
        EXPECT_TRUE(single(loaded, 0).isEqual(source) && single(loaded, 0).uuid == u"id\r\n");
    }

    // The repair is blind: a real CR LF pair in a version 1 body loses its CR.
    TalMatFile loaded;
    ASSERT_TRUE(loadBytes(loaded, header(0x10000, 1) + body));
    EXPECT_EQ(single(loaded, 0).uuid, u"id\n");
}

// A refusal on the header reads no further; no failure leaves a partial list.
TEST(TalMatFile, FailedLoadLeavesTheListAsItWas)
{
    const std::string body = logicalStream(sampleMaterial());
    TalMatFile file;
    ASSERT_TRUE(loadBytes(file, header(0x20000, 1) + body));
    const MaterialPtr first = file.materials.at(0);

    for (const std::string& refused :
         {header(0x30000, 0), header(0x30001, 1), header(0, 1), header(0x40000, 1), std::string("<?xml version")}) {
        std::istringstream in(refused + body);
        EXPECT_FALSE(file.load(in));
        EXPECT_EQ(in.tellg(), 8) << testing::PrintToString(refused);
    }
    const std::string unknownId("\x0F\0\0\0", 4);
    const std::string failures[] = {
        "",
        header(0x20000, 1),
        header(0x20000, 1) + unknownId + body.substr(4),
        header(0x30000, 1) + std::string("\x01\0\0\0", 4) + unknownId + std::string(4092, '\0'),
        header(0x20000, 2) + body,                  // a count above the true one runs off the end
        header(0x30000, 1) + std::string(4, '\0'),  // no blocks
    };
    for (const std::string& bytes : failures) EXPECT_FALSE(loadBytes(file, bytes)) << bytes.size();
    EXPECT_TRUE(file.materialCount() == 1 && file.materials[0] == first);
    ASSERT_TRUE(loadBytes(file, header(0x20000, 2) + body + body));
    EXPECT_TRUE(file.materialCount() == 2 && file.materials[0] != first);  // a second load replaces the list whole
}

TEST(TalMatFile, ListOperationsAndFailedSave)
{
    constexpr auto none = static_cast<std::size_t>(-1);
    TalMatFile file;
    std::ostringstream out;
    EXPECT_FALSE(file.findMaterialByName(u"Oak") != none || file.save(out));

    const std::string body = logicalStream(sampleMaterial());
    ASSERT_TRUE(loadBytes(file, header(0x20000, 2) + body + body));
    single(file, 1).name = u"\u00c9rable";
    EXPECT_EQ(std::tuple(file.findMaterialByName(u"OAK"), file.findMaterialByName(u"\u00e9RABLE"),
                         file.findMaterialByName(u"Oa")),
              std::tuple(0u, 1u, none));
    MaterialPtr got;
    EXPECT_TRUE(file.getMaterial(1, got));
    EXPECT_FALSE(file.getMaterial(2, got));  // past the end leaves the reference alone
    EXPECT_EQ(got, file.materials[1]);

    // A missing or unwritable material fails the save before a byte is written.
    auto noLayer = sampleMaterial();
    noLayer->brdf = nullptr;
    noLayer->name = u"Bare";
    file.materials = {sampleMaterial(), nullptr};
    EXPECT_FALSE(file.save(out));
    file.materials = {sampleMaterial(), noLayer};
    EXPECT_FALSE(file.save(out) || !out.str().empty());
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
    EXPECT_EQ(TalMatFile::chooseOpenMode((dir / "missing.talmat").u16string()), 1);

    TalMatFile file;
    EXPECT_FALSE(file.load((dir / "missing.talmat").u16string()) || file.load(dir.u16string()));
    EXPECT_TRUE(file.load(write("\u00e9 wood.talmat", header(0x20000, 1) + logicalStream(sampleMaterial()))));
    std::filesystem::remove_all(dir);
}

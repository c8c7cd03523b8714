// The options file: whole blocks on saving and the position test after each, any length on loading.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "archive/text_conversion.h"
#include "options/options_test_support.h"
#include "options/tal_opt_file.h"
#include "support/scratch_folder.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;
namespace fs = std::filesystem;

class TalOptFileTest : public ::testing::Test {
protected:
    fs::path dir = scratchFolder("cindrel_talopt");
    void SetUp() override { fs::create_directories(dir); }
    void TearDown() override { fs::remove_all(dir); }
    std::u16string path(const char* name) const { return narrowToWide((dir / name).string()); }
    void writeBytes(const char* name, const std::string& bytes) const
    {
        std::ofstream(dir / name, std::ios::binary) << bytes;
    }
};

// A record of one block saves as exactly 4096 bytes, and loads back equal; cut to the record's
// length it loads as well.
TEST_F(TalOptFileTest, SaveAndLoadOneBlock)
{
    AllOptions o;
    o.img_width = 1920;
    o.folder = u"//farm";
    TalOptFile file;
    ASSERT_TRUE(file.save(o, path("a.talopt")));
    EXPECT_EQ(fs::file_size(dir / "a.talopt"), 4096u);
    for (const bool cut : {false, true}) {
        if (cut) fs::resize_file(dir / "a.talopt", recordOf(o).bytes.size());
        AllOptions loaded;
        ASSERT_TRUE(file.load(loaded, path("a.talopt"))) << cut;
        EXPECT_TRUE(loaded.isEqual(o)) << cut;
    }
}

// A record of two blocks is written up to its second block, and the save answers false.
TEST_F(TalOptFileTest, TheSecondBlockFailsThePositionTest)
{
    AllOptions o;
    o.folder = std::u16string(5000, u'f');
    TalOptFile file;
    EXPECT_FALSE(file.save(o, path("big.talopt")));
    EXPECT_EQ(fs::file_size(dir / "big.talopt"), 8192u);
    EXPECT_FALSE(file.save(o, path("missing/big.talopt")));
}

TEST_F(TalOptFileTest, FilesThatDoNotLoad)
{
    TalOptFile file;
    AllOptions o;
    for (const char* bytes : {"\x01", "", "<talopt>\n</talopt>\n"}) {
        writeBytes("bad.talopt", bytes);
        EXPECT_FALSE(file.load(o, path("bad.talopt"))) << bytes;
    }
    EXPECT_FALSE(file.load(o, path("absent.talopt")));
}

}  // namespace
}  // namespace TalvexTest

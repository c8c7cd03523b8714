// A material file named in Greek with a character beyond the basic plane, which no single code page
// holds, converts under its own name: through the library's wide paths, and through the command given
// the name on its command line, whose text shows the name as UTF-8.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "archive/file_path.h"
#include "module/material_conversion.h"
#include "support/scratch_folder.h"
#include "support/tool_run.h"

namespace fs = std::filesystem;
using namespace TalvexCore;

namespace {

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class WideNames : public ::testing::Test {
protected:
    const fs::path source = fs::path(CINDREL_SOURCE_DIR);
    const fs::path folder = TalvexTest::scratchFolder("cindrel_wide_names");
    // "Ξύλο 😀": Greek, and U+1F600 as a surrogate pair.
    const std::u16string name = u"\u039e\u03cd\u03bb\u03bf \U0001F600";
    fs::path input;
    std::string golden;

    void SetUp() override
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        input = folder / filePath(name + u".talmat");
        fs::copy_file(source / "examples" / "wood_floor.talmat", input);
        golden = readFile(source / "tests" / "golden" / "wood_floor.talmat.xml");
        ASSERT_FALSE(golden.empty());
    }
    void TearDown() override { fs::remove_all(folder); }
};

}  // namespace

TEST_F(WideNames, TheLibraryOpensTheFileByItsWideName)
{
    ASSERT_TRUE(widePath(input).ends_with(name + u".talmat"));
    EXPECT_EQ(materialFileToXml(widePath(input)), golden);
}

TEST_F(WideNames, TheCommandTakesTheNameAsAnArgumentAndShowsItAsUtf8)
{
    if (TalvexTest::toolPath() == nullptr) GTEST_SKIP() << "CINDREL_TOOL is not set";
    const auto toOutput = TalvexTest::runTool({fileNameBytes(input)});
    ASSERT_TRUE(toOutput);
    EXPECT_EQ(toOutput->status, 0);
    EXPECT_EQ(toOutput->output, golden);

    const fs::path outputDir = folder / filePath(u"\u03ad\u03be\u03bf\u03b4\u03bf\u03c2");  // "έξοδος"
    const auto toFolder = TalvexTest::runTool({"-o", fileNameBytes(outputDir), fileNameBytes(input)});
    ASSERT_TRUE(toFolder);
    EXPECT_EQ(toFolder->status, 0);
    const fs::path written = outputDir / filePath(name + u".xml");
    EXPECT_EQ(readFile(written), golden);
    // "IN -> OUT (converted)", each name in UTF-8.
    EXPECT_EQ(toFolder->output, fileNameBytes(input) + " -> " + fileNameBytes(written) + " (converted)\n");
    EXPECT_NE(toFolder->output.find("\xCE\x9E\xCF\x8D\xCE\xBB\xCE\xBF \xF0\x9F\x98\x80.talmat"), std::string::npos);
}

// Golden documents: every file in examples/ converts to exactly the XML kept for it in tests/golden/,
// through the library and through the cindrel command, each route checked once against the kept
// text (the Python module's route has its own suite). CINDREL_UPDATE_GOLDEN=1 rewrites them from the
// library. An empty or missing example library fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "archive/file_path.h"
#include "module/file_routing.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"
#include "support/tool_run.h"

namespace fs = std::filesystem;
using namespace TalvexCore;

namespace {

const fs::path examplesDir = fs::path(CINDREL_SOURCE_DIR) / "examples";
const fs::path goldenDir = fs::path(CINDREL_SOURCE_DIR) / "tests" / "golden";

std::vector<fs::path> exampleFiles()
{
    std::vector<fs::path> files;
    if (!fs::is_directory(examplesDir)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(examplesDir)) {
        const std::u16string wide = widePath(entry.path());
        if (entry.is_regular_file() && (isMaterialFilePath(wide) || isOptionsFilePath(wide)))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

fs::path goldenFor(const fs::path& example)
{
    fs::path golden = goldenDir / example.lexically_relative(examplesDir);
    return golden += ".xml";
}

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string convertToUtf8(const fs::path& example)
{
    const std::u16string path = widePath(example);
    return isMaterialFilePath(path) ? materialFileToXml(path) : optionsFileToXml(path);
}

// Each example's text by one route against its golden document.
void expectGoldenDocuments(const std::function<std::string(const fs::path&)>& convert)
{
    const auto examples = exampleFiles();
    ASSERT_FALSE(examples.empty()) << "no example files in " << examplesDir;
    for (const fs::path& example : examples) {
        SCOPED_TRACE(example.string());
        const fs::path golden = goldenFor(example);
        ASSERT_TRUE(fs::exists(golden)) << "no golden document " << golden;
        EXPECT_EQ(convert(example), readFile(golden));
    }
}

}  // namespace

TEST(GoldenDocuments, TheLibraryGivesEveryExampleItsGoldenDocument)
{
    if (std::getenv("CINDREL_UPDATE_GOLDEN") == nullptr) return expectGoldenDocuments(convertToUtf8);
    const auto examples = exampleFiles();
    ASSERT_FALSE(examples.empty()) << "no example files in " << examplesDir;
    for (const fs::path& example : examples) {
        const fs::path golden = goldenFor(example);
        fs::create_directories(golden.parent_path());
        std::ofstream(golden, std::ios::binary) << convertToUtf8(example);
    }
}

TEST(GoldenDocuments, TheCommandGivesEveryExampleItsGoldenDocument)
{
    if (TalvexTest::toolPath() == nullptr) GTEST_SKIP() << "CINDREL_TOOL is not set";
    expectGoldenDocuments([](const fs::path& example) {
        const auto run = TalvexTest::runTool({"-q", fileNameBytes(example)});
        return run ? run->output : std::string("(the command did not start)");
    });
}

TEST(GoldenDocuments, EveryGoldenDocumentHasItsExample)
{
    ASSERT_TRUE(fs::is_directory(goldenDir)) << "no golden documents in " << goldenDir;
    for (const auto& entry : fs::recursive_directory_iterator(goldenDir)) {
        if (!entry.is_regular_file() || entry.path().extension() != ".xml") continue;
        fs::path example = examplesDir / entry.path().lexically_relative(goldenDir);
        example.replace_extension();
        EXPECT_TRUE(fs::exists(example)) << "golden document without example: " << entry.path();
    }
}

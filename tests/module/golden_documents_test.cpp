// Golden documents: every file in examples/ converts to exactly the XML kept for it in tests/golden/,
// through the library and through the cindrel command. CINDREL_UPDATE_GOLDEN=1 rewrites them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "archive/text_conversion.h"
#include "module/file_routing.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"

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
        const std::u16string wide = narrowToWide(entry.path().string());
        if (entry.is_regular_file() && (isMaterialFilePath(wide) || isOptionsFilePath(wide)))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

fs::path goldenFor(const fs::path& example)
{
    return goldenDir / (example.lexically_relative(examplesDir).string() + ".xml");
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
    const std::u16string path = narrowToWide(example.string());
    return wideToNarrow(isMaterialFilePath(path) ? materialFileToXml(path) : optionsFileToXml(path));
}

std::string commandOutput(const std::string& command)
{
    std::string output;
    if (std::FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[65536];
        std::size_t n;
        while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
        pclose(pipe);
    }
    return output;
}

}  // namespace

TEST(GoldenDocuments, EveryExampleConvertsToItsGoldenDocument)
{
    const bool update = std::getenv("CINDREL_UPDATE_GOLDEN") != nullptr;
    const auto examples = exampleFiles();
    for (const fs::path& example : examples) {
        SCOPED_TRACE(example.string());
        const std::string xml = convertToUtf8(example);
        const fs::path golden = goldenFor(example);
        if (update) {
            fs::create_directories(golden.parent_path());
            std::ofstream(golden, std::ios::binary) << xml;
            continue;
        }
        ASSERT_TRUE(fs::exists(golden)) << "no golden document " << golden;
        EXPECT_EQ(xml, readFile(golden));
    }
}

TEST(GoldenDocuments, TheCommandWritesTheSameText)
{
    const char* tool = std::getenv("CINDREL_TOOL");
    if (tool == nullptr) GTEST_SKIP() << "CINDREL_TOOL is not set";
    for (const fs::path& example : exampleFiles()) {
        SCOPED_TRACE(example.string());
        const std::string output = commandOutput(std::string("'") + tool + "' -q '" + example.string() + "' 2>/dev/null");
        EXPECT_EQ(output, convertToUtf8(example));
    }
}

TEST(GoldenDocuments, EveryGoldenDocumentHasItsExample)
{
    if (!fs::is_directory(goldenDir)) return;
    for (const auto& entry : fs::recursive_directory_iterator(goldenDir)) {
        if (!entry.is_regular_file() || entry.path().extension() != ".xml") continue;
        fs::path example = examplesDir / entry.path().lexically_relative(goldenDir);
        example.replace_extension();
        EXPECT_TRUE(fs::exists(example)) << "golden document without example: " << entry.path();
    }
}

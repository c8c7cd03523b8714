// cindrel inspect: the report of each kind of file, as text and as JSON Lines, and its exit status.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

#include "archive/text_conversion.h"
#include "load_report_command.h"
#include "module/material_conversion.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

const fs::path examples = fs::path(CINDREL_SOURCE_DIR) / "examples";

std::string bytesOf(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

struct Report {
    int status = 0;
    std::string out, err;
};

Report inspect(const std::vector<std::string>& paths, bool json, bool quiet = false)
{
    std::ostringstream out, err;
    Report report;
    report.status = CindrelTool::runInspect(paths, json, quiet, out, err);
    report.out = out.str();
    report.err = err.str();
    return report;
}

std::vector<json> documents(const std::string& lines)
{
    std::vector<json> parsed;
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);) parsed.push_back(json::parse(line));
    return parsed;
}

// Every complete object lies inside its parent; the top level holds the header's count of materials.
void expectNested(const json& objects, uint64_t begin, uint64_t end)
{
    for (const json& object : objects) {
        const uint64_t at = object["offset"], length = object["length"];
        EXPECT_TRUE(object["complete"].get<bool>()) << object["class"];
        EXPECT_GE(at, begin) << object["class"];
        EXPECT_LE(at + length, end) << object["class"];
        expectNested(object["children"], at, at + length);
    }
}

class InspectCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() / ("inspect_test_" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    // A copy of an example with a word changed at `at`, or cut to `size` bytes.
    std::string damaged(const char* name, const char* example, std::size_t at, uint32_t word, std::size_t size = 0)
    {
        std::string bytes = bytesOf(examples / example);
        if (at) std::memcpy(bytes.data() + at, &word, 4);
        if (size) bytes.resize(size);
        return write(name, bytes);
    }
    std::string write(const char* name, const std::string& bytes)
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return (folder / name).string();
    }

    fs::path folder;
};

}  // namespace

// The whole example library loads or passes as text: each file's objects nest inside one another and
// inside the file, the material files' top level holds the header's count, and an options file holds
// one options record.
TEST_F(InspectCommand, EveryExampleLoadsAsANestedTree)
{
    const Report report = inspect({examples.string()}, true);
    EXPECT_EQ(report.status, 0) << report.err;
    const std::vector<json> files = documents(report.out);
    ASSERT_EQ(files.size(), static_cast<std::size_t>(std::distance(fs::directory_iterator(examples), {})));
    int loaded = 0;
    for (const json& file : files) {
        SCOPED_TRACE(file["path"].get<std::string>());
        EXPECT_FALSE(file["failed"].get<bool>());
        if (file["status"] == "text") continue;  // the hand-written XML examples
        EXPECT_EQ(file["status"], "loaded");
        ++loaded;
        EXPECT_FALSE(file["readPastEnd"].get<bool>());
        const uint64_t size = fs::file_size(file["path"].get<std::string>());
        expectNested(file["objects"], 0, size);
        if (file["kind"] == "material") {
            EXPECT_EQ(file["objects"].size(), file["materials"].get<std::size_t>());
            // The first record behind the header, the block count of the newest container, and a type id.
            EXPECT_EQ(file["objects"][0]["offset"], file["version"] == 3 ? 16 : 12);
        } else {
            ASSERT_EQ(file["objects"].size(), 1u);
            EXPECT_EQ(file["objects"][0]["class"], "AllOptions");
            EXPECT_EQ(file["objects"][0]["version"], file["version"]);
            EXPECT_FALSE(file["objects"][0]["children"].empty());
        }
    }
    EXPECT_EQ(loaded, static_cast<int>(files.size()) - 2);
}

// The text form: the container and its version, then each object indented under its parent.
TEST_F(InspectCommand, TextShowsTheContainerAndTheObjectTree)
{
    const Report report =
        inspect({(examples / "single_layer.talmat").string(), (examples / "studio_settings.talopt").string()}, false);
    EXPECT_EQ(report.status, 0);
    std::istringstream lines(report.out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, (examples / "single_layer.talmat").string() + ": material file, version 3, 2 material(s): loads");
    std::getline(lines, line);
    EXPECT_EQ(line.rfind("  MtlSingleBRDF (type 0), version 2, at 16, ", 0), 0u) << line;
    std::getline(lines, line);
    EXPECT_EQ(line.rfind("    BRDF", 0), 0u) << line;
    EXPECT_NE(report.out.find("studio_settings.talopt: options file, version 0x17: loads\n"
                              "  AllOptions, version 0x17, at 0, "),
              std::string::npos)
        << report.out;
    EXPECT_NE(report.out.find("\n    TalvexParams, version "), std::string::npos) << report.out;
}

// Damaged files: where the load stops and why, the same failure the conversion notes; a text file
// passes, a missing one is unreadable, a folder with nothing to inspect says so; any failure makes the
// status 1. Quiet keeps only the failures.
TEST_F(InspectCommand, DamagedFilesSayWhereAndWhy)
{
    const std::string unknownId = damaged("unknown_id.talmat", "single_layer.talmat", 12, 99);
    const std::string refused = damaged("refused.talmat", "single_layer.talmat", 16, 0x90000);
    const std::string truncated = damaged("truncated.talmat", "car_paint_v2.talmat", 0, 0, 14);
    const std::string options = damaged("refused.talopt", "studio_settings.talopt", 4, 0x990000);
    const std::string text = write("notes.talmat", "<?xml version=\"1.0\"?><talmat/>");
    const std::string missing = (folder / "missing.numat").string();
    const std::vector<std::string> all = {unknownId, refused, truncated, options, text, missing};

    const Report report = inspect(all, true);
    EXPECT_EQ(report.status, 1);
    const std::vector<json> files = documents(report.out);
    ASSERT_EQ(files.size(), all.size());
    auto reasonOf = [&](int i) { return files[i]["failure"]["reason"].get<std::string>(); };
    EXPECT_EQ(reasonOf(0), "unknown type id 99");
    EXPECT_EQ(files[0]["failure"]["offset"], 12);
    EXPECT_EQ(reasonOf(1).rfind("version tag 0x00090000 is not one of this record's", 0), 0u) << reasonOf(1);
    EXPECT_EQ(files[1]["objects"][0]["complete"], false);
    EXPECT_EQ(files[1]["failure"]["objects"][0], "material 1 (MtlSingleBRDF)");
    EXPECT_EQ(files[3]["failure"]["objects"], json::array({"AllOptions", "TalvexParams"}));
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(files[i]["status"] == "damaged" && files[i]["failed"].get<bool>()) << files[i];
    for (int i = 0; i < 3; ++i) {  // the conversion's own note of each damaged material file
        TalvexCore::ConversionNotes notes;
        std::string xml;
        TalvexCore::writeMaterialFileXml(TalvexCore::fileNameToWide(all[i]), xml, {}, &notes);
        ASSERT_TRUE(notes.failure);
        EXPECT_EQ(files[i]["failure"]["text"], describe(*notes.failure));
    }
    EXPECT_TRUE(files[4]["status"] == "text" && !files[4]["failed"].get<bool>());
    EXPECT_EQ(files[5]["status"], "unreadable");
#ifdef _WIN32
    EXPECT_FALSE(files[5]["reason"].get<std::string>().empty());  // the system's own words there
#else
    EXPECT_EQ(files[5]["reason"], "No such file or directory");
#endif

    const Report quiet = inspect(all, false, true);
    EXPECT_EQ(quiet.status, 1);
    EXPECT_EQ(std::count(quiet.out.begin(), quiet.out.end(), '\n'), 5) << quiet.out;
    EXPECT_NE(quiet.out.find(unknownId + ": material file, version 3, 2 material(s): damaged: the load stops in "
                                         "material 1 at offset 12: unknown type id 99\n"),
              std::string::npos)
        << quiet.out;
    EXPECT_EQ(quiet.out.find(text), std::string::npos);
    EXPECT_EQ(inspect({text}, false).status, 0);
    fs::create_directory(folder / "empty");
    const Report nothing = inspect({(folder / "empty").string()}, false);
    EXPECT_TRUE(nothing.status == 1 && nothing.err.find("no material or options file") != std::string::npos);
}

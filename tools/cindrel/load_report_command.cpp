#include "load_report_command.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <new>
#include <nlohmann/json.hpp>
#include <ostream>

#include "archive/load_trace.h"
#include "archive/regular_file.h"
#include "archive/text_conversion.h"
#include "input_files.h"
#include "materials/tal_mat_file.h"
#include "module/model_state_lock.h"
#include "options/all_options.h"
#include "options/tal_opt_file.h"

namespace CindrelTool {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using TalvexCore::LoadFailure;
using TalvexCore::LoadTrace;
using TalvexCore::TracedObject;

// What a file turned out to be.
enum class Verdict {
    Loaded,        // a binary file of its kind that loads
    Damaged,       // its header says binary, and the load stops
    Text,          // not binary: the conversion passes its text through
    Unreadable,    // it does not open
    NotInspected,  // not a file of a known kind, or the inspection itself failed
};

struct Inspection {
    InputFile input;
    Verdict verdict = Verdict::NotInspected;
    std::string reason;  // why it was not opened or not inspected
    LoadTrace trace;

    bool failed() const { return verdict != Verdict::Loaded && verdict != Verdict::Text; }
    bool binary() const { return verdict == Verdict::Loaded || verdict == Verdict::Damaged; }
    bool material() const { return input.kind == FileKind::Material; }
};

// The path as the model opens it, and as the report shows it (UTF-8 where the system's names are wide).
std::u16string widePath(const fs::path& path)
{
#ifdef _WIN32
    return std::u16string(path.native().begin(), path.native().end());
#else
    return TalvexCore::fileNameToWide(path.native());
#endif
}

std::string pathText(const fs::path& path)
{
#ifdef _WIN32
    return TalvexCore::wideToNarrow(widePath(path));
#else
    return path.native();
#endif
}

// Loads the file as the conversion would, with a trace on the load.
void load(Inspection& result)
{
    if (result.input.kind == FileKind::Unknown) {
        result.reason = "not a material or options file (.talmat, .numat, .talopt, .nuopt)";
        return;
    }
    TalvexCore::RegularFile file(widePath(result.input.path));
    if (!file.isOpen()) {
        result.verdict = Verdict::Unreadable;
        result.reason = file.failureReason();
        return;
    }
    bool loaded = false;
    {
        // The loads touch the model's process-wide state, as conversions do.
        const std::lock_guard<std::mutex> held(TalvexCore::modelStateLock());
        if (result.material()) {
            TalvexCore::TalMatFile materials;
            materials.setLoadTrace(&result.trace);
            loaded = materials.load(file.stream());
        } else {
            TalvexCore::AllOptions options;
            loaded = TalvexCore::TalOptFile().load(options, file.stream(), &result.trace);
        }
    }
    result.verdict = loaded ? Verdict::Loaded : result.trace.fileVersion ? Verdict::Damaged : Verdict::Text;
}

Inspection inspect(const InputFile& input)
{
    Inspection result;
    result.input = input;
    try {
        load(result);
    } catch (const std::bad_alloc&) {
        result.reason = "not enough memory to inspect it";
    } catch (const std::exception& e) {
        result.reason = e.what();
    }
    if (!result.reason.empty() && result.verdict != Verdict::Unreadable) {
        result.verdict = Verdict::NotInspected;
        result.trace = {};
    }
    return result;
}

std::string utf8(const std::u16string& text) { return TalvexCore::wideToNarrow(text); }

// Versions as the files' own tags number them: 3, 9, 0x14.
std::string versionText(uint32_t version)
{
    char text[16];
    std::snprintf(text, sizeof text, version < 10 ? "%u" : "0x%X", version);
    return text;
}

const char* kindName(const Inspection& result) { return result.material() ? "material" : "options"; }

// The first line of a file's report, after its path.
std::string summary(const Inspection& result)
{
    switch (result.verdict) {
    case Verdict::Unreadable: return "unreadable: " + result.reason;
    case Verdict::NotInspected: return result.reason;
    case Verdict::Text:
        return std::string("not a binary ") + kindName(result) + " file: its text passes through as it stands";
    default: break;
    }
    std::string text = std::string(kindName(result)) + " file, version " + versionText(*result.trace.fileVersion);
    if (result.material()) text += ", " + std::to_string(result.trace.declaredObjects) + " material(s)";
    return text + (result.verdict == Verdict::Loaded ? ": loads" : ": damaged");
}

std::string failureText(const Inspection& result)
{
    return result.trace.failure ? "the load stops " + describe(*result.trace.failure)
                                : std::string("the load stops, and no reason was noted");
}

// The tolerant reads go on past the end of the data; a file they do so in is likely cut short.
const char* pastEndWarning = "warning: the reads went on past the end of the data: the file may be cut short, "
                             "and values read there are not the file's";
const char* pastEndBeforeStop = "the reads had gone past the end of the data: the file is likely cut short";

void writeText(const Inspection& result, bool quiet, std::ostream& out)
{
    out << pathText(result.input.path) << ": " << summary(result);
    if (quiet) {
        if (result.verdict == Verdict::Damaged) out << ": " << failureText(result);
        out << '\n';
        return;
    }
    out << '\n';
    for (const TracedObject& object : result.trace.objects()) {
        out << std::string(2 * (object.depth + 1), ' ') << utf8(object.className);
        if (object.typeId) out << " (type " << *object.typeId << ')';
        if (object.version) out << ", version " << versionText(*object.version);
        out << ", at " << object.offset << (object.complete ? ", " : ", stopped after ") << object.length
            << " bytes\n";
    }
    if (result.verdict == Verdict::Damaged) out << "  " << failureText(result) << '\n';
    if (result.verdict == Verdict::Damaged && result.trace.readPastEnd) out << "  " << pastEndBeforeStop << '\n';
    if (result.verdict == Verdict::Loaded && result.trace.readPastEnd) out << "  " << pastEndWarning << '\n';
}

// The objects as a tree: each with its children, in the order they were read.
json objectTree(const std::vector<TracedObject>& objects)
{
    json roots = json::array();
    std::vector<json*> open;  // the path to the last object, by depth
    for (const TracedObject& object : objects) {
        json node = {{"class", utf8(object.className)}, {"offset", object.offset}, {"length", object.length},
                     {"complete", object.complete}, {"children", json::array()}};
        if (object.typeId) node["typeId"] = *object.typeId;
        if (object.version) node["version"] = *object.version;
        open.resize(std::min<std::size_t>(open.size(), object.depth));
        json& siblings = open.empty() ? roots : (*open.back())["children"];
        siblings.push_back(std::move(node));
        open.push_back(&siblings.back());
    }
    return roots;
}

json failureDocument(const LoadFailure& failure)
{
    json objects = json::array();
    for (auto object = failure.objects.rbegin(); object != failure.objects.rend(); ++object)
        objects.push_back(utf8(*object));
    return {{"objects", objects}, {"offset", failure.offset}, {"reason", failure.reason},
            {"text", describe(failure)}};
}

void writeJson(const Inspection& result, std::ostream& out)
{
    static const char* const status[] = {"loaded", "damaged", "text", "unreadable", "not inspected"};
    json document = {{"path", pathText(result.input.path)},
                     {"status", status[static_cast<int>(result.verdict)]},
                     {"failed", result.failed()}};
    if (result.input.kind != FileKind::Unknown) document["kind"] = kindName(result);
    if (!result.reason.empty()) document["reason"] = result.reason;
    if (result.binary()) {
        document["version"] = *result.trace.fileVersion;
        if (result.material()) document["materials"] = result.trace.declaredObjects;
        document["readPastEnd"] = result.trace.readPastEnd;
        document["objects"] = objectTree(result.trace.objects());
    }
    if (result.verdict == Verdict::Damaged && result.trace.failure)
        document["failure"] = failureDocument(*result.trace.failure);
    // Paths and names that are not UTF-8 keep a replacement character rather than failing the line.
    out << document.dump(-1, ' ', false, json::error_handler_t::replace) << '\n';
}

}  // namespace

int runInspect(const std::vector<std::string>& paths, bool asJson, bool quiet, std::ostream& out, std::ostream& err)
{
    std::vector<std::string> errors;
    const std::vector<InputFile> inputs = collectInputs(paths, errors);
    for (const std::string& error : errors) err << "cindrel: " << error << '\n';
    if (inputs.empty() && errors.empty()) {
        err << "cindrel: no material or options file (.talmat, .numat, .talopt, .nuopt) to inspect\n";
        return 1;
    }
    bool failed = !errors.empty();
    for (const InputFile& input : inputs) {
        const Inspection result = inspect(input);
        failed = failed || result.failed();
        if (quiet && !result.failed()) continue;
        if (asJson) writeJson(result, out);
        else writeText(result, quiet, out);
        out.flush();
    }
    return failed ? 1 : 0;
}

int runInspect(const std::vector<std::string>& paths, bool asJson, bool quiet)
{
    return runInspect(paths, asJson, quiet, std::cout, std::cerr);
}

}  // namespace CindrelTool

// One input file converted by its kind, with what the load found wrong with it.
#pragma once

#include <string>

#include "input_files.h"
#include "module/file_routing.h"

namespace CindrelTool {

// Appends the file's XML to `text`; `sink`, when set, takes the text in pieces as it grows. The
// file must be of a known kind.
TalvexCore::ConversionOutcome convertInput(const InputFile& input, std::string& text,
                                           const TalvexCore::AssetXmlWriter::Utf8FlushSink& sink,
                                           TalvexCore::ConversionNotes& notes);

const char* kindName(FileKind kind);  // "material" or "options"

// "damaged binary material file: in material 1 (...) at offset 255: <reason>"
std::string damageText(FileKind kind, const TalvexCore::ConversionNotes& notes);

}  // namespace CindrelTool

// Routing of a path by its extension, and the plain-text path that every conversion falls back on.
#pragma once

#include <optional>
#include <string>

#include "archive/load_failure.h"
#include "archive/regular_file.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

// The root tags of the two documents; each is also the first extension of its command.
inline constexpr char16_t materialRootTag[] = u"talmat";
inline constexpr char16_t optionsRootTag[] = u"talopt";

// The text behind the last dot of the whole path, compared without regard to case.
bool isMaterialFilePath(const std::u16string& path);  // "talmat" or "numat"
bool isOptionsFilePath(const std::u16string& path);   // "talopt" or "nuopt"

// How a conversion went: the file loaded as binary, or passed through as text, or did not open.
enum class ConversionOutcome { Binary, PlainText, Unreadable };

// What a conversion learnt about a damaged file from the reads that loaded it, for a caller that
// reports damage. The text and the outcome do not depend on it.
struct ConversionNotes {
    bool binaryHeader = false;           // the header named a binary file of its kind
    std::optional<LoadFailure> failure;  // why such a file did not load
    bool readPastEnd = false;            // the reads went on past the end of the file's data
    std::string unreadableReason;        // why the file did not open
};

// A file that does not load is taken to be XML already: its bytes up to the first zero byte are
// appended to `text` as UTF-8 (valid UTF-8 as it stands, other text decoded as Windows-1252).
// Unreadable when the file did not open. The file is the one the load read, opened once for both.
ConversionOutcome appendPlainText(RegularFile& file, std::string& text, const AssetXmlWriter::Utf8FlushSink& sink,
                                  ConversionNotes* notes = nullptr);

}  // namespace TalvexCore

// The material conversion: a material file to its asset XML under the root "talmat".
#pragma once

#include <string>

#include "module/file_routing.h"

namespace TalvexCore {

// The whole document as one UTF-8 text.
std::string materialFileToXml(const std::u16string& path, LoneSurrogates loneSurrogates = LoneSurrogates::Replaced);

// The same text, appended to `text`; `sink`, when set, takes the text in pieces as it grows.
// `notes`, when given, takes what the load found wrong with the file.
ConversionOutcome writeMaterialFileXml(const std::u16string& path, std::string& text,
                                       const AssetXmlWriter::Utf8FlushSink& sink, ConversionNotes* notes = nullptr,
                                       LoneSurrogates loneSurrogates = LoneSurrogates::Replaced);

}  // namespace TalvexCore

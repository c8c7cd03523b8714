// The material conversion: a material file to its asset XML under the root "talmat".
#pragma once

#include <string>

#include "module/file_routing.h"

namespace TalvexCore {

// The whole document as one text.
std::u16string materialFileToXml(const std::u16string& path);

// The same text, appended to `text`; `sink`, when set, takes the text in pieces as it grows.
// `notes`, when given, takes what the load found wrong with the file.
ConversionOutcome writeMaterialFileXml(const std::u16string& path, std::u16string& text,
                                       const AssetXmlWriter::FlushSink& sink, ConversionNotes* notes = nullptr);

}  // namespace TalvexCore

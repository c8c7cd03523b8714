// The options conversion: a render-options file to its settings XML under the root "talopt".
#pragma once

#include <string>

#include "module/file_routing.h"

namespace TalvexCore {

// The whole document as one UTF-8 text.
std::string optionsFileToXml(const std::u16string& path, LoneSurrogates loneSurrogates = LoneSurrogates::Replaced);

// The same text, appended to `text`; `sink`, when set, takes the text in pieces as it grows.
ConversionOutcome writeOptionsFileXml(const std::u16string& path, std::string& text,
                                      const AssetXmlWriter::Utf8FlushSink& sink,
                                      LoneSurrogates loneSurrogates = LoneSurrogates::Replaced);

}  // namespace TalvexCore

// The options conversion: a render-options file to its settings XML under the root "talopt".
#pragma once

#include <string>

#include "module/file_routing.h"

namespace TalvexCore {

std::u16string optionsFileToXml(const std::u16string& path);

ConversionOutcome writeOptionsFileXml(const std::u16string& path, std::u16string& text,
                                      const AssetXmlWriter::FlushSink& sink);

}  // namespace TalvexCore

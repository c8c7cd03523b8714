// Routing of a path by its extension, and the plain-text path that every conversion falls back on.
#pragma once

#include <string>

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

// A file that does not load is taken to be XML already: its bytes up to the first zero byte,
// decoded as narrow text, are appended to `text`. Unreadable when the file does not open.
ConversionOutcome appendPlainText(const std::u16string& path, std::u16string& text,
                                  const AssetXmlWriter::FlushSink& sink);

}  // namespace TalvexCore

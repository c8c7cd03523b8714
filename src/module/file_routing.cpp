#include "module/file_routing.h"

#include "archive/name_compare.h"
#include "archive/regular_file.h"
#include "archive/stream_bytes.h"
#include "archive/text_conversion.h"

namespace TalvexCore {

namespace {

bool hasExtension(const std::u16string& path, std::u16string_view first, std::u16string_view second)
{
    const auto dot = path.rfind(u'.');
    if (dot == std::u16string::npos) return false;
    const std::u16string_view extension = std::u16string_view(path).substr(dot + 1);
    return equalsNoCase(extension, first) || equalsNoCase(extension, second);
}

}  // namespace

bool isMaterialFilePath(const std::u16string& path)
{
    return hasExtension(path, u"talmat", u"numat");
}

bool isOptionsFilePath(const std::u16string& path)
{
    return hasExtension(path, u"talopt", u"nuopt");
}

ConversionOutcome appendPlainText(RegularFile& file, std::string& text, const AssetXmlWriter::Utf8FlushSink& sink,
                                  ConversionNotes* notes)
{
    if (!file.isOpen()) {
        if (notes) notes->unreadableReason = file.failureReason();
        return ConversionOutcome::Unreadable;
    }
    // The binary load read what it could; the text is read again from the start.
    std::istream& in = file.stream();
    in.clear();
    in.seekg(0);
    // Everything behind the first zero byte is lost, and so it is never read.
    appendNarrowAsUtf8(text, readBytesUpToZero(in));
    if (sink) sink(text);
    return ConversionOutcome::PlainText;
}

}  // namespace TalvexCore

#include "archive/file_path.h"
#include "file_conversion.h"

#include "archive/regular_file.h"
#include "archive/text_conversion.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"

namespace CindrelTool {

using TalvexCore::ConversionOutcome;

ConversionOutcome convertInput(const InputFile& input, std::string& text,
                               const TalvexCore::AssetXmlWriter::Utf8FlushSink& sink,
                               TalvexCore::ConversionNotes& notes)
{
    const std::u16string path = TalvexCore::widePath(input.path);
    if (input.kind == FileKind::Material) return TalvexCore::writeMaterialFileXml(path, text, sink, &notes);
    const ConversionOutcome outcome = TalvexCore::writeOptionsFileXml(path, text, sink);
    if (outcome == ConversionOutcome::Unreadable)
        notes.unreadableReason = TalvexCore::RegularFile(path).failureReason();
    return outcome;
}

const char* kindName(FileKind kind)
{
    return kind == FileKind::Material ? "material" : "options";
}

std::string damageText(FileKind kind, const TalvexCore::ConversionNotes& notes)
{
    return std::string("damaged binary ") + kindName(kind) + " file: " +
           (notes.failure ? describe(*notes.failure) : std::string("it does not load"));
}

}  // namespace CindrelTool

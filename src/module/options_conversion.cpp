#include "module/options_conversion.h"

namespace TalvexCore {

namespace {

// The options model has no reader yet: no file loads as options, and every file takes the text
// path. Only this call changes when the model arrives.
bool loadOptions(const std::u16string& /*path*/)
{
    return false;
}

}  // namespace

ConversionOutcome writeOptionsFileXml(const std::u16string& path, std::u16string& text,
                                      const AssetXmlWriter::FlushSink& sink)
{
    if (!loadOptions(path)) return appendPlainText(path, text, sink);

    AssetXmlWriter writer(text);
    writer.setFlushSink(sink);
    writer.openRoot(optionsRootTag);
    writer.closeRoot();
    return ConversionOutcome::Binary;
}

std::u16string optionsFileToXml(const std::u16string& path)
{
    std::u16string text;
    writeOptionsFileXml(path, text, {});
    return text;
}

}  // namespace TalvexCore

#include "module/options_conversion.h"

#include "options/all_options.h"
#include "options/tal_opt_file.h"

namespace TalvexCore {

ConversionOutcome writeOptionsFileXml(const std::u16string& path, std::u16string& text,
                                      const AssetXmlWriter::FlushSink& sink)
{
    AllOptions options;
    TalOptFile file;
    if (!file.load(options, path)) return appendPlainText(path, text, sink);

    AssetXmlWriter writer(text);
    writer.setFlushSink(sink);
    writer.openRoot(optionsRootTag);
    options.writeXml(writer, u"");
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

#include "module/options_conversion.h"

#include "archive/regular_file.h"
#include "options/all_options.h"
#include "options/tal_opt_file.h"
#include "module/model_state_lock.h"

namespace TalvexCore {

ConversionOutcome writeOptionsFileXml(const std::u16string& path, std::string& text,
                                      const AssetXmlWriter::Utf8FlushSink& sink, LoneSurrogates loneSurrogates)
{
    const std::lock_guard<std::mutex> held(modelStateLock());
    AllOptions options;
    RegularFile input(path);
    TalOptFile file;
    if (!input.isOpen() || !file.load(options, input.stream())) return appendPlainText(input, text, sink);

    AssetXmlWriter writer(text, loneSurrogates, AssetXmlWriter::Delivery::AtFlush);
    writer.setFlushSink(sink);
    writer.openRoot(optionsRootTag);
    options.writeXml(writer, u"");
    writer.closeRoot();
    return ConversionOutcome::Binary;
}

std::string optionsFileToXml(const std::u16string& path, LoneSurrogates loneSurrogates)
{
    std::string text;
    writeOptionsFileXml(path, text, {}, loneSurrogates);
    return text;
}

}  // namespace TalvexCore

// AssetXmlWriter: the text emitter of asset XML, with its element and parameter forms.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "archive/value_types.h"
#include "records/serializable.h"
#include "xml/frame_store.h"
#include "xml/number_text.h"
#include "xml/parameter_heads.h"
#include "xml/xml_text.h"

namespace TalvexCore {

class TransformComponents;

// Appends text to a wide string, or the same text as UTF-8 to a narrow one; it builds no tree and
// checks no balance, so the caller's order of calls is the document's order. Lines end in a line
// feed; each level indents two blanks. The text of an operation is gathered as UTF-8 in the
// writer's own buffer and reaches the stream in one step when the operation ends, or at the next
// flush.
class AssetXmlWriter {
public:
    // Takes the text written so far and empties it, so that a long document can be written out
    // in pieces. Called wherever the writer flushes its stream.
    using FlushSink = std::function<void(std::u16string& text)>;
    using Utf8FlushSink = std::function<void(std::string& text)>;

    // When the text reaches the stream: at the end of each operation, or, for a document handed
    // over in pieces, at each flush the caller asks for, at an asset's end once a few KiB are
    // gathered, and whenever the writer's own buffer is full.
    enum class Delivery { EachOperation, AtFlush };

    explicit AssetXmlWriter(std::u16string& stream);
    // The same document as UTF-8, with no wide text in between. A lone surrogate of the model's
    // text becomes U+FFFD, or, when kept, its own three bytes.
    explicit AssetXmlWriter(std::string& utf8Stream, LoneSurrogates loneSurrogates = LoneSurrogates::Replaced,
                            Delivery delivery = Delivery::EachOperation);
    void setFlushSink(FlushSink sink) { flushSink = std::move(sink); }
    void setFlushSink(Utf8FlushSink sink) { utf8FlushSink = std::move(sink); }
    void flush();

    void openRoot(XmlText tag);
    void closeRoot();
    void openTag(XmlText tag);
    void closeTag(XmlText tag);
    void openAssets() { openTag("Assets"); }
    void closeAssets() { closeTag("Assets"); }
    // A url already in the form the XML gives it (see appendUrlText).
    struct UrlText {
        std::string_view text;
    };
    void openAsset(XmlText url, XmlText type, XmlText layout);
    void openAsset(UrlText url, XmlText type, XmlText layout);
    void closeAsset();
    void openPlugin(XmlText name, XmlText type);
    void closePlugin();
    void openParameters();
    void closeParameters();
    // An asset with its plugin of the asset's own type, up to the first parameter; and from the
    // last parameter to the asset's end. The same text as the three openings and the three closings.
    void beginAsset(UrlText url, XmlText type, XmlText layout, XmlText plugin);
    void endAsset();

    void writeFloat(XmlText name, float value, XmlText label = {}, bool isUserData = false);
    void writeInt(XmlText name, int32_t value, XmlText label = {}, bool isUserData = false);
    void writeBool(XmlText name, bool value, XmlText label = {}, bool isUserData = false);
    void writeString(XmlText name, XmlText value, XmlText label = {}, bool isUserData = false);
    void writeFileString(XmlText name, XmlText value, XmlText label = {}, bool isUserData = false);
    void writePluginName(XmlText name, XmlText value, XmlText label = {});

    // A plugin parameter naming the asset of `ref` at `url`: the url, then "/" and the object's
    // reference name, as its contract gives it. No object gives the parameter with no value.
    void writePlugin(XmlText name, const TalvexXMLSerializable* ref, XmlText url, XmlText label = {});
    void writePlugin(XmlText name, const TalvexXMLSerializable* ref, UrlText url, XmlText label = {});
    template <class T>
        requires std::derived_from<T, TalvexXMLSerializable>
    void writePlugin(XmlText name, const std::shared_ptr<T>& ref, XmlText url, XmlText label = {})
    {
        writePlugin(name, static_cast<const TalvexXMLSerializable*>(ref.get()), url, label);
    }

    void writeColor(XmlText name, const Color& value, XmlText label = {});
    void writeAColor(XmlText name, const AColor& value, XmlText label = {});
    void writeVector(XmlText name, const Vector& value, XmlText label = {});
    void writeMatrix(XmlText name, const Matrix& value, XmlText label = {});
    void writeTransform(XmlText name, const Transform& value, XmlText label = {});
    void writeComponentMatrix(XmlText name, const TransformComponents& value, XmlText label = {});
    void writeComponentTransform(XmlText name, const TransformComponents& value, XmlText label = {});

    void openList(XmlText name, XmlText elementType, XmlText label = {});
    void writeEntry(XmlText text);
    void writeStringEntry(XmlText text);
    void closeList();

    void writeRaw(XmlText text);

    // Unescapes first when asked (the writer always asks), so escaped text is not escaped twice;
    // then "&", "<" and ">" in this order. Quotes and apostrophes stay as they are.
    static std::u16string escapeXml(std::u16string_view text, bool unescapeFirst);
    // "&lt;", "&gt;", then "&amp;", each pass going on behind what it inserted.
    static std::u16string unescapeXml(std::u16string_view text);
    // A url as the XML gives it, appended to `out`: cut at its first zero, escaped as above, and
    // UTF-8. Answers whether the url was cut.
    static bool appendUrlText(std::string& out, std::u16string_view url, LoneSurrogates loneSurrogates);
    std::u16string indentText() const;

    // The urls of the assets being written, kept from one asset to the next.
    FrameStore& frames() { return *frameStore; }

    // Suns written so far, by id, and how a sun's url is formed; kept for the sky and sun emitters.
    std::map<std::u16string, std::u16string> sunDirectory;
    int32_t sunUrlMode = 1;

private:
    // Where text goes: the operation's text is gathered in `stage`, and `spill` hands it to the
    // stream. `room` makes space for `n` bytes (at most the stage's size) and answers where.
    static constexpr std::size_t stageSize = 8192;
    char* room(std::size_t n);
    template <class Texts>
    void putLevelText(const Texts& texts, std::size_t level);
    std::optional<std::size_t> preparedAssetLevel(int32_t level) const;
    void assetLineStart(UrlText url, const XmlText& type, const XmlText& layout);
    void spill();
    void spillLarge(std::string_view utf8);
    void put(std::string_view ascii);
    void putChar(char ascii);
    void putNarrow(std::string_view text);
    void putWide(std::u16string_view text);
    void putText(const XmlText& text);
    void putFloat(float value);
    void putInt(int32_t value);
    // Short ASCII text (no zero) put as it stands; false, having put nothing, for any other.
    bool putShortAscii(std::u16string_view text);
    // Room for the indentation and `n` bytes behind it, the indentation copied in, and where the
    // line goes on; null where the indentation is deeper than the run of blanks. The caller sets
    // `staged` to the end of what it writes.
    char* indentedRoom(std::size_t n);
    void indent();
    void lineAscii(std::string_view text);
    // `opening` holds the element up to the name's value (`<parameter type="float" name="`), and
    // `handlerAndList` the text from the name's closing quote to the list type's value.
    void parameterHead(std::string_view opening, const XmlText& name, std::string_view handlerAndList,
                       const XmlText& listType, const XmlText& label, bool isUserData);
    // The head of a parameter whose list type is "none", made or copied; with `withValue`, the
    // value's tag behind it, for the caller to append the value's text.
    void noneListHead(const HeadForm& form, const XmlText& name, const XmlText& label, bool isUserData,
                      bool withValue);
    // The head made in place, for one that is not kept.
    void writeNoneListHead(const HeadForm& form, const XmlText& name, const XmlText& label, bool isUserData,
                           bool withValue);
    void parameterEnd();
    void endOperation();
    // "</value>" behind the value's text, then the parameter's end.
    void inlineValueEnd();
    void blockValueStart();
    void blockValueEnd();
    // A line of a number between two tags; `writeNumber(out)` writes it in `numberRoom` bytes and
    // answers its length.
    template <class WriteNumber>
    void numberLine(std::string_view open, std::string_view close, std::size_t numberRoom,
                    const WriteNumber& writeNumber);
    void floatLine(std::string_view open, std::string_view close, float value);
    void intLine(std::string_view open, std::string_view close, int32_t value);
    void vectorBlock(const Vector& v);
    void componentBlock(const HeadForm& form, const XmlText& name, const TransformComponents& c,
                        const XmlText& label);
    // The text as a url is given (see appendUrlText), kept until the next call.
    UrlText escapedText(const XmlText& text);
    void appendEscaped(const XmlText& text);

    std::u16string* wideOut = nullptr;  // one of the two is set
    std::string* utf8Out = nullptr;
    LoneSurrogates loneSurrogates = LoneSurrogates::Replaced;
    Delivery delivery = Delivery::EachOperation;
    int32_t indentLevel = 0;
    std::u16string rootTag;
    std::string escaped;  // the last text escapedText gave
    FlushSink flushSink;
    Utf8FlushSink utf8FlushSink;
    FrameStore::Lent frameStore{loneSurrogates};
    ParameterHeads& heads = ParameterHeads::ofThisThread();
    FloatTexts& floatTexts = FloatTexts::ofThisThread();
    std::size_t staged = 0;
    char stage[stageSize];
};

}  // namespace TalvexCore

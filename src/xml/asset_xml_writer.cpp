#include "xml/asset_xml_writer.h"

#include <algorithm>

#include "archive/text_conversion.h"
#include "records/transform_components.h"
#include "xml/number_text.h"

namespace TalvexCore {

namespace {

// Indentation is cut from one prepared run of blanks.
constexpr std::string_view blanks = "                                                                ";

// Replaces every `from` by `to`, going on behind each replacement; one pass, however many there are.
void replaceAll(std::u16string& text, std::u16string_view from, std::u16string_view to)
{
    std::size_t pos = text.find(from);
    if (pos == std::u16string::npos) return;
    std::u16string result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (; pos != std::u16string::npos; pos = text.find(from, done)) {
        result.append(text, done, pos - done);
        result.append(to);
        done = pos + from.size();
    }
    result.append(text, done);
    text = std::move(result);
}

bool needsEscaping(std::u16string_view text)
{
    return text.find_first_of(u"&<>") != std::u16string_view::npos;
}

}  // namespace

AssetXmlWriter::AssetXmlWriter(std::u16string& stream) : wideOut(&stream) {}

AssetXmlWriter::AssetXmlWriter(std::string& utf8Stream, LoneSurrogates loneSurrogates)
    : utf8Out(&utf8Stream), loneSurrogates(loneSurrogates)
{
}

void AssetXmlWriter::flush()
{
    if (wideOut && flushSink) flushSink(*wideOut);
    if (utf8Out && utf8FlushSink) utf8FlushSink(*utf8Out);
}

void AssetXmlWriter::put(std::string_view ascii)
{
    if (utf8Out) utf8Out->append(ascii);
    else wideOut->append(ascii.begin(), ascii.end());
}

void AssetXmlWriter::putChar(char ascii)
{
    if (utf8Out) utf8Out->push_back(ascii);
    else wideOut->push_back(static_cast<char16_t>(ascii));
}

void AssetXmlWriter::putWide(std::u16string_view text)
{
    if (utf8Out) appendWideAsNarrow(*utf8Out, text, loneSurrogates);
    else wideOut->append(text);
}

void AssetXmlWriter::putText(const XmlText& text)
{
    if (utf8Out) text.appendUtf8To(*utf8Out, loneSurrogates);
    else text.appendTo(*wideOut);
}

void AssetXmlWriter::putFloat(float value)
{
    if (utf8Out) appendFloat(*utf8Out, value);
    else appendFloat(*wideOut, value);
}

void AssetXmlWriter::putInt(int32_t value)
{
    if (utf8Out) appendInt(*utf8Out, value);
    else appendInt(*wideOut, value);
}

void AssetXmlWriter::indent()
{
    std::size_t width = 2 * static_cast<std::size_t>(std::max(indentLevel, 0));
    for (; width > blanks.size(); width -= blanks.size()) put(blanks);
    put(blanks.substr(0, width));
}

std::u16string AssetXmlWriter::indentText() const
{
    std::u16string text;
    for (int32_t i = 0; i < indentLevel; ++i) text += u"  ";
    return text;
}

void AssetXmlWriter::lineAscii(std::string_view text)
{
    indent();
    put(text);
    putChar('\n');
}

void AssetXmlWriter::appendEscaped(const XmlText& text)
{
    std::u16string scratch;
    const std::u16string_view view = text.wideView(scratch);
    if (needsEscaping(view)) putWide(escapeXml(view, true));
    else putWide(view);
}

void AssetXmlWriter::openRoot(XmlText tag)
{
    rootTag = tag.toWide();
    putChar('<');
    putWide(rootTag);
    put(">\n");
}

void AssetXmlWriter::closeRoot()
{
    put("</");
    putWide(rootTag);
    put(">\n");
    flush();
}

void AssetXmlWriter::openTag(XmlText tag)
{
    ++indentLevel;
    indent();
    putChar('<');
    putText(tag);
    put(">\n");
}

void AssetXmlWriter::closeTag(XmlText tag)
{
    indent();
    put("</");
    putText(tag);
    put(">\n");
    --indentLevel;
}

void AssetXmlWriter::openAsset(XmlText url, XmlText type, XmlText layout)
{
    ++indentLevel;
    indent();
    put("<Asset layout=\"");
    putText(layout);
    put("\" renderer=\"nuva\" type=\"");
    putText(type);
    put("\" url=\"");
    appendEscaped(url);
    put("\" >\n");
}

void AssetXmlWriter::closeAsset()
{
    lineAscii("</Asset>");
    --indentLevel;
}

void AssetXmlWriter::openPlugin(XmlText name, XmlText type)
{
    ++indentLevel;
    lineAscii("<plugin>");
    ++indentLevel;
    indent();
    put("<nuvaplugin name=\"");
    putText(name);
    put("\" type=\"");
    putText(type);
    put("\">\n");
}

void AssetXmlWriter::closePlugin()
{
    lineAscii("</nuvaplugin>");
    --indentLevel;
    lineAscii("</plugin>");
    flush();
    --indentLevel;
}

void AssetXmlWriter::openParameters()
{
    ++indentLevel;
    lineAscii("<parameters>");
    ++indentLevel;
}

void AssetXmlWriter::closeParameters()
{
    --indentLevel;
    lineAscii("</parameters>");
    --indentLevel;
}

void AssetXmlWriter::parameterHead(std::string_view type, const XmlText& name, std::string_view handler,
                                   const XmlText& listType, const XmlText& label, bool isUserData)
{
    indent();
    put("<parameter type=\"");
    put(type);
    put("\" name=\"");
    putText(name);
    put("\" handler=\"");
    put(handler);
    put("\" listType=\"");
    putText(listType);
    put(isUserData ? std::string_view("\" isUserData=\"1\" label=\"") : std::string_view("\" label=\""));
    putText(label.empty() ? name : label);
    put("\">\n");
    ++indentLevel;
}

void AssetXmlWriter::parameterEnd()
{
    --indentLevel;
    lineAscii("</parameter>");
}

void AssetXmlWriter::inlineValueStart()
{
    indent();
    put("<value>");
}

void AssetXmlWriter::inlineValueEnd()
{
    put("</value>\n");
    parameterEnd();
}

void AssetXmlWriter::blockValueStart()
{
    lineAscii("<value>");
    ++indentLevel;
}

void AssetXmlWriter::blockValueEnd()
{
    --indentLevel;
    lineAscii("</value>");
    parameterEnd();
}

void AssetXmlWriter::writeFloat(XmlText name, float value, XmlText label, bool isUserData)
{
    parameterHead("float", name, "default", "none", label, isUserData);
    inlineValueStart();
    putFloat(value);
    inlineValueEnd();
}

void AssetXmlWriter::writeInt(XmlText name, int32_t value, XmlText label, bool isUserData)
{
    parameterHead("integer", name, "default", "none", label, isUserData);
    inlineValueStart();
    putInt(value);
    inlineValueEnd();
}

void AssetXmlWriter::writeBool(XmlText name, bool value, XmlText label, bool isUserData)
{
    parameterHead("bool", name, "default", "none", label, isUserData);
    inlineValueStart();
    putChar(value ? '1' : '0');
    inlineValueEnd();
}

void AssetXmlWriter::writeString(XmlText name, XmlText value, XmlText label, bool isUserData)
{
    parameterHead("string", name, "default", "none", label, isUserData);
    inlineValueStart();
    putText(value);
    inlineValueEnd();
}

void AssetXmlWriter::writeFileString(XmlText name, XmlText value, XmlText label, bool isUserData)
{
    parameterHead("string", name, "FileBrowserHandler", "none", label, isUserData);
    inlineValueStart();
    appendEscaped(value);
    inlineValueEnd();
}

void AssetXmlWriter::writePluginName(XmlText name, XmlText value, XmlText label)
{
    parameterHead("plugin", name, "default", "none", label, false);
    inlineValueStart();
    putText(value);
    inlineValueEnd();
}

void AssetXmlWriter::writePlugin(XmlText name, const TalvexXMLSerializable* ref, XmlText url, XmlText label)
{
    parameterHead("plugin", name, "default", "none", label, false);
    if (!ref) {
        parameterEnd();
        return;
    }
    inlineValueStart();
    appendEscaped(url);
    if (const std::optional<std::u16string> tail = ref->referenceName()) {
        putChar('/');
        putWide(*tail);
    }
    inlineValueEnd();
}

void AssetXmlWriter::floatLine(std::string_view tag, float value)
{
    indent();
    putChar('<');
    put(tag);
    putChar('>');
    putFloat(value);
    put("</");
    put(tag);
    put(">\n");
}

void AssetXmlWriter::intLine(std::string_view tag, int32_t value)
{
    indent();
    putChar('<');
    put(tag);
    putChar('>');
    putInt(value);
    put("</");
    put(tag);
    put(">\n");
}

void AssetXmlWriter::vectorBlock(const Vector& v)
{
    lineAscii("<vector>");
    ++indentLevel;
    floatLine("x", v.x);
    floatLine("y", v.y);
    floatLine("z", v.z);
    --indentLevel;
    lineAscii("</vector>");
}

void AssetXmlWriter::writeColor(XmlText name, const Color& value, XmlText label)
{
    parameterHead("color", name, "default", "none", label, false);
    blockValueStart();
    floatLine("r", value.r);
    floatLine("g", value.g);
    floatLine("b", value.b);
    blockValueEnd();
}

void AssetXmlWriter::writeAColor(XmlText name, const AColor& value, XmlText label)
{
    parameterHead("acolor", name, "default", "none", label, false);
    blockValueStart();
    floatLine("r", value.r);
    floatLine("g", value.g);
    floatLine("b", value.b);
    floatLine("a", value.a);
    blockValueEnd();
}

void AssetXmlWriter::writeVector(XmlText name, const Vector& value, XmlText label)
{
    parameterHead("vector", name, "default", "none", label, false);
    blockValueStart();
    vectorBlock(value);
    blockValueEnd();
}

void AssetXmlWriter::writeMatrix(XmlText name, const Matrix& value, XmlText label)
{
    parameterHead("matrix", name, "default", "none", label, false);
    blockValueStart();
    putChar('\n');  // the matrix form keeps an empty line behind its value tag
    lineAscii("<matrix>");
    ++indentLevel;
    for (const Vector& v : value.v) vectorBlock(v);
    --indentLevel;
    lineAscii("</matrix>");
    blockValueEnd();
}

void AssetXmlWriter::writeTransform(XmlText name, const Transform& value, XmlText label)
{
    parameterHead("transform", name, "default", "none", label, false);
    blockValueStart();
    for (const Vector& v : value.m.v) vectorBlock(v);
    vectorBlock(value.offset);
    blockValueEnd();
}

void AssetXmlWriter::componentBlock(std::string_view type, const XmlText& name, const TransformComponents& c,
                                    const XmlText& label)
{
    parameterHead(type, name, "default", "none", label, false);
    blockValueStart();
    floatLine("x_rotation", c.x_rotation);
    floatLine("y_rotation", c.y_rotation);
    floatLine("z_rotation", c.z_rotation);
    floatLine("x_scale", c.x_scale);
    floatLine("y_scale", c.y_scale);
    floatLine("z_scale", c.z_scale);
    floatLine("x_offset", c.x_offset);
    floatLine("y_offset", c.y_offset);
    floatLine("z_offset", c.z_offset);
    intLine("x_mirror", c.x_mirror);
    intLine("y_mirror", c.y_mirror);
    intLine("z_mirror", c.z_mirror);
    blockValueEnd();
}

void AssetXmlWriter::writeComponentMatrix(XmlText name, const TransformComponents& value, XmlText label)
{
    componentBlock("componentMatrix", name, value, label);
}

void AssetXmlWriter::writeComponentTransform(XmlText name, const TransformComponents& value, XmlText label)
{
    componentBlock("componentTransform", name, value, label);
}

void AssetXmlWriter::openList(XmlText name, XmlText elementType, XmlText label)
{
    parameterHead("list", name, "default", elementType, label, false);
    lineAscii("<value>");
    lineAscii("<list>");
    ++indentLevel;
}

void AssetXmlWriter::writeEntry(XmlText text)
{
    indent();
    put("<entry>");
    appendEscaped(text);
    put("</entry>\n");
}

void AssetXmlWriter::writeStringEntry(XmlText text)
{
    indent();
    put("<string>\"");
    putText(text);
    put("\"</string>\n");
}

void AssetXmlWriter::closeList()
{
    --indentLevel;
    lineAscii("</list>");
    lineAscii("</value>");
    parameterEnd();
}

void AssetXmlWriter::writeRaw(XmlText text)
{
    putText(text);
}

std::u16string AssetXmlWriter::unescapeXml(std::u16string_view text)
{
    std::u16string result(text);
    if (result.find(u'&') == std::u16string::npos) return result;
    replaceAll(result, u"&lt;", u"<");
    replaceAll(result, u"&gt;", u">");
    replaceAll(result, u"&amp;", u"&");
    return result;
}

std::u16string AssetXmlWriter::escapeXml(std::u16string_view text, bool unescapeFirst)
{
    std::u16string result = unescapeFirst ? unescapeXml(text) : std::u16string(text);
    if (!needsEscaping(result)) return result;
    replaceAll(result, u"&", u"&amp;");
    replaceAll(result, u"<", u"&lt;");
    replaceAll(result, u">", u"&gt;");
    return result;
}

}  // namespace TalvexCore

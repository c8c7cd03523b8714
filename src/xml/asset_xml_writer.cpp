#include "xml/asset_xml_writer.h"

#include "records/transform_components.h"
#include "xml/number_text.h"

namespace TalvexCore {

namespace {

void appendAscii(std::u16string& out, std::string_view text)
{
    out.append(text.begin(), text.end());
}

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

AssetXmlWriter::AssetXmlWriter(std::u16string& stream) : out(stream) {}

void AssetXmlWriter::flush()
{
    if (flushSink) flushSink(out);
}

void AssetXmlWriter::indent()
{
    for (int32_t i = 0; i < indentLevel; ++i) out.append(u"  ", 2);
}

std::u16string AssetXmlWriter::indentText() const
{
    std::u16string text;
    for (int32_t i = 0; i < indentLevel; ++i) text += u"  ";
    return text;
}

void AssetXmlWriter::line(std::u16string_view text)
{
    indent();
    out.append(text);
    out.push_back(u'\n');
}

void AssetXmlWriter::lineAscii(std::string_view text)
{
    indent();
    appendAscii(out, text);
    out.push_back(u'\n');
}

void AssetXmlWriter::appendEscaped(const XmlText& text)
{
    std::u16string scratch;
    const std::u16string_view view = text.wideView(scratch);
    if (needsEscaping(view)) out += escapeXml(view, true);
    else out.append(view);
}

void AssetXmlWriter::openRoot(XmlText tag)
{
    rootTag = tag.toWide();
    out.push_back(u'<');
    out += rootTag;
    out.append(u">\n");
}

void AssetXmlWriter::closeRoot()
{
    out.append(u"</");
    out += rootTag;
    out.append(u">\n");
    flush();
}

void AssetXmlWriter::openTag(XmlText tag)
{
    ++indentLevel;
    indent();
    out.push_back(u'<');
    tag.appendTo(out);
    out.append(u">\n");
}

void AssetXmlWriter::closeTag(XmlText tag)
{
    indent();
    out.append(u"</");
    tag.appendTo(out);
    out.append(u">\n");
    --indentLevel;
}

void AssetXmlWriter::openAsset(XmlText url, XmlText type, XmlText layout)
{
    ++indentLevel;
    indent();
    out.append(u"<Asset layout=\"");
    layout.appendTo(out);
    out.append(u"\" renderer=\"nuva\" type=\"");
    type.appendTo(out);
    out.append(u"\" url=\"");
    appendEscaped(url);
    out.append(u"\" >\n");
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
    out.append(u"<nuvaplugin name=\"");
    name.appendTo(out);
    out.append(u"\" type=\"");
    type.appendTo(out);
    out.append(u"\">\n");
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
    out.append(u"<parameter type=\"");
    appendAscii(out, type);
    out.append(u"\" name=\"");
    name.appendTo(out);
    out.append(u"\" handler=\"");
    appendAscii(out, handler);
    out.append(u"\" listType=\"");
    listType.appendTo(out);
    out.append(isUserData ? std::u16string_view(u"\" isUserData=\"1\" label=\"") : std::u16string_view(u"\" label=\""));
    (label.empty() ? name : label).appendTo(out);
    out.append(u"\">\n");
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
    out.append(u"<value>");
}

void AssetXmlWriter::inlineValueEnd()
{
    out.append(u"</value>\n");
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
    appendFloat(out, value);
    inlineValueEnd();
}

void AssetXmlWriter::writeInt(XmlText name, int32_t value, XmlText label, bool isUserData)
{
    parameterHead("integer", name, "default", "none", label, isUserData);
    inlineValueStart();
    appendInt(out, value);
    inlineValueEnd();
}

void AssetXmlWriter::writeBool(XmlText name, bool value, XmlText label, bool isUserData)
{
    parameterHead("bool", name, "default", "none", label, isUserData);
    inlineValueStart();
    out.push_back(value ? u'1' : u'0');
    inlineValueEnd();
}

void AssetXmlWriter::writeString(XmlText name, XmlText value, XmlText label, bool isUserData)
{
    parameterHead("string", name, "default", "none", label, isUserData);
    inlineValueStart();
    value.appendTo(out);
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
    value.appendTo(out);
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
        out.push_back(u'/');
        out.append(*tail);
    }
    inlineValueEnd();
}

void AssetXmlWriter::floatLine(std::string_view tag, float value)
{
    indent();
    out.push_back(u'<');
    appendAscii(out, tag);
    out.push_back(u'>');
    appendFloat(out, value);
    out.append(u"</");
    appendAscii(out, tag);
    out.append(u">\n");
}

void AssetXmlWriter::intLine(std::string_view tag, int32_t value)
{
    indent();
    out.push_back(u'<');
    appendAscii(out, tag);
    out.push_back(u'>');
    appendInt(out, value);
    out.append(u"</");
    appendAscii(out, tag);
    out.append(u">\n");
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
    out.push_back(u'\n');  // the matrix form keeps an empty line behind its value tag
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
    out.append(u"<entry>");
    appendEscaped(text);
    out.append(u"</entry>\n");
}

void AssetXmlWriter::writeStringEntry(XmlText text)
{
    indent();
    out.append(u"<string>\"");
    text.appendTo(out);
    out.append(u"\"</string>\n");
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
    text.appendTo(out);
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

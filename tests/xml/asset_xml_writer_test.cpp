// The asset XML writer: the exact text of every element and parameter form, and its escaping.
#include <gtest/gtest.h>

#include <functional>

#include "archive/text_conversion.h"
#include "materials/material_single_brdf.h"
#include "records/transform_components.h"
#include "textures/acolor_texture.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;

namespace {

using Write = std::function<void(AssetXmlWriter&)>;

// The text the calls make at depth 0, as UTF-8 for readable comparisons.
std::string textOf(const Write& write)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    write(writer);
    return wideToNarrow(text);
}

std::string vectorLines(const std::string& indent, const char* x, const char* y, const char* z)
{
    return indent + "<vector>\n" + indent + "  <x>" + x + "</x>\n" + indent + "  <y>" + y + "</y>\n" + indent +
           "  <z>" + z + "</z>\n" + indent + "</vector>\n";
}

std::string block(const std::string& lines) { return "  <value>\n" + lines + "  </value>\n"; }

// Lines of <tag>value</tag> inside a block.
std::string fieldLines(std::initializer_list<std::pair<const char*, const char*>> fields)
{
    std::string out;
    for (auto [tag, value] : fields) out += std::string("    <") + tag + ">" + value + "</" + tag + ">\n";
    return out;
}

}  // namespace

// The worked nesting: every element at its depth, and a balanced document back at depth 0.
static void workedDocument(AssetXmlWriter& w)
{
    w.openRoot("talmat");
    w.openAssets();
    w.openAsset(u"/name", "material", "");
    w.openPlugin("MtlProbe", "material");
    w.openParameters();
    w.writeFloat("cutoff", 0.01f);
    w.closeParameters();
    w.closePlugin();
    w.closeAsset();
    w.closeAssets();
    w.closeRoot();
    EXPECT_EQ(w.indentText(), u"");
}

TEST(AssetXmlWriter, DocumentNestingAndIndentation)
{
    EXPECT_EQ(textOf(workedDocument), R"(<talmat>
  <Assets>
    <Asset layout="" renderer="nuva" type="material" url="/name" >
      <plugin>
        <nuvaplugin name="MtlProbe" type="material">
          <parameters>
            <parameter type="float" name="cutoff" handler="default" listType="none" label="cutoff">
              <value>0.01</value>
            </parameter>
          </parameters>
        </nuvaplugin>
      </plugin>
    </Asset>
  </Assets>
</talmat>
)");
    // Only the url is escaped; quotes never are. A close with no root has an empty name.
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.openAsset(u"/a&b/\"q\"/<c>", "tex&ture", "Lay<out>");
                  w.openPlugin("Name&<", "texture");
                  w.openTag("Group");
                  w.closeTag("Group");
                  w.closeRoot();
              }),
              "  <Asset layout=\"Lay<out>\" renderer=\"nuva\" type=\"tex&ture\" url=\"/a&amp;b/\"q\"/&lt;c&gt;\" >\n"
              "    <plugin>\n      <nuvaplugin name=\"Name&<\" type=\"texture\">\n        <Group>\n        </Group>\n</>\n");
}

// Each form's head, and its value in the inline shape, a block, a list, or nothing at all.
TEST(AssetXmlWriter, ParameterForms)
{
    TransformComponents tc;
    tc.x_rotation = 20, tc.y_rotation = 35.5f, tc.z_rotation = -50;
    tc.x_scale = 2, tc.z_offset = 0.125f, tc.x_mirror = 1, tc.z_mirror = -1;
    const std::string fields = block(fieldLines({{"x_rotation", "20"}, {"y_rotation", "35.5"}, {"z_rotation", "-50"},
                                                 {"x_scale", "2"}, {"y_scale", "1"}, {"z_scale", "1"},
                                                 {"x_offset", "0"}, {"y_offset", "0"}, {"z_offset", "0.125"},
                                                 {"x_mirror", "1"}, {"y_mirror", "0"}, {"z_mirror", "-1"}}));
    auto material = std::make_shared<MaterialSingleBRDF>();
    material->name = u"Oak & <Ash>";
    const Matrix matrix{{Vector{1, 2, 3}, Vector{4, 5, 6}, Vector{7, 8, 9}}};
    const std::string matrixRows =
        vectorLines("      ", "1", "2", "3") + vectorLines("      ", "4", "5", "6") + vectorLines("      ", "7", "8", "9");
    // The head of a form with the default handler, no list type and no label of its own.
    auto plain = [](const std::string& type, const std::string& name) {
        return "type=\"" + type + "\" name=\"" + name + "\" handler=\"default\" listType=\"none\" label=\"" + name + "\"";
    };
    struct Case {
        Write write;
        std::string head, inside;
    };
    const Case cases[] = {
        {[](AssetXmlWriter& w) { w.writeFloat("f", 1234567, "Big <one>", true); },
         R"(type="float" name="f" handler="default" listType="none" isUserData="1" label="Big <one>")",
         "  <value>1.23457e+006</value>\n"},
        {[](AssetXmlWriter& w) { w.writeInt("i", -1); }, plain("integer", "i"), "  <value>-1</value>\n"},
        {[](AssetXmlWriter& w) { w.writeBool("b", true, "", true); },
         R"(type="bool" name="b" handler="default" listType="none" isUserData="1" label="b")", "  <value>1</value>\n"},
        // Narrow text is UTF-8, or Windows-1252 where it is not; wide text stops at its first zero.
        {[](AssetXmlWriter& w) { w.writeString("s", "a&amp;b <c> \xE2\x82\xAC"); }, plain("string", "s"),
         "  <value>a&amp;b <c> \xE2\x82\xAC</value>\n"},
        {[](AssetXmlWriter& w) { w.writeString(u"w\u00e9", std::u16string(u"\U0001F600\0b", 4)); }, plain("string", "w\xC3\xA9"),
         "  <value>\xF0\x9F\x98\x80</value>\n"},
        {[](AssetXmlWriter& w) { w.writeFileString("file", "C:\\a&amp;b&c\\<c>.png"); },
         R"(type="string" name="file" handler="FileBrowserHandler" listType="none" label="file")",
         "  <value>C:\\a&amp;b&amp;c\\&lt;c&gt;.png</value>\n"},
        {[](AssetXmlWriter& w) { w.writePluginName("p", "/a&b/\x80", "Pick"); },  // Windows-1252
         R"(type="plugin" name="p" handler="default" listType="none" label="Pick")", "  <value>/a&b/\xE2\x82\xAC</value>\n"},
        {[](AssetXmlWriter& w) { w.writePlugin("tex", TexturePtr(std::make_shared<AColorTexture>()), u"/a&b/tex"); },
         plain("plugin", "tex"), "  <value>/a&amp;b/tex/TexAColor</value>\n"},
        {[&](AssetXmlWriter& w) { w.writePlugin("base", MaterialPtr(material), u"/outer/base"); }, plain("plugin", "base"),
         "  <value>/outer/base/Oak & <Ash></value>\n"},
        {[](AssetXmlWriter& w) { w.writePlugin("tex", TexturePtr(), u"/m/tex"); }, plain("plugin", "tex"), ""},
        {[](AssetXmlWriter& w) { w.writePlugin("tex", MaterialPtr(), u"/m/tex"); }, plain("plugin", "tex"), ""},
        {[](AssetXmlWriter& w) { w.writeColor("diffuse", {1, 0.5f, 0}); }, plain("color", "diffuse"),
         block(fieldLines({{"r", "1"}, {"g", "0.5"}, {"b", "0"}}))},
        {[](AssetXmlWriter& w) { w.writeAColor("tint", {0.25f, 1, 2, 0.75f}, "Tint"); },
         R"(type="acolor" name="tint" handler="default" listType="none" label="Tint")",
         block(fieldLines({{"r", "0.25"}, {"g", "1"}, {"b", "2"}, {"a", "0.75"}}))},
        {[](AssetXmlWriter& w) { w.writeVector("dir", {1, -2, 3e-7f}); }, plain("vector", "dir"),
         block(vectorLines("    ", "1", "-2", "3e-007"))},
        // The matrix form alone has an empty line behind its value tag.
        {[&](AssetXmlWriter& w) { w.writeMatrix("m", matrix); }, plain("matrix", "m"),
         block("\n    <matrix>\n" + matrixRows + "    </matrix>\n")},
        // A transform is four vectors with no wrapper: the three of the matrix, then the offset.
        {[&](AssetXmlWriter& w) { w.writeTransform("t", Transform{matrix, Vector{10, 20, 30}}); }, plain("transform", "t"),
         block(vectorLines("    ", "1", "2", "3") + vectorLines("    ", "4", "5", "6") +
               vectorLines("    ", "7", "8", "9") + vectorLines("    ", "10", "20", "30"))},
        {[&](AssetXmlWriter& w) { w.writeComponentMatrix("uvw", tc); }, plain("componentMatrix", "uvw"), fields},
        {[&](AssetXmlWriter& w) { w.writeComponentTransform("uvw", tc, "Placement"); },
         R"(type="componentTransform" name="uvw" handler="default" listType="none" label="Placement")", fields},
        // The value and list lines stand at the same depth; entries are escaped, string entries not.
        {[](AssetXmlWriter& w) {
             w.openList("layers", "plugin"), w.writeEntry("/m&amp;n/a&b/<c>"), w.writeStringEntry("x & <y>"), w.closeList();
         },
         R"(type="list" name="layers" handler="default" listType="plugin" label="layers")",
         "  <value>\n  <list>\n    <entry>/m&amp;n/a&amp;b/&lt;c&gt;</entry>\n    <string>\"x & <y>\"</string>\n"
         "  </list>\n  </value>\n"},
        {[](AssetXmlWriter& w) { w.openList("names", "string", "Names"), w.closeList(); },
         R"(type="list" name="names" handler="default" listType="string" label="Names")",
         "  <value>\n  <list>\n  </list>\n  </value>\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.head);
        EXPECT_EQ(textOf(c.write), "<parameter " + c.head + ">\n" + c.inside + "</parameter>\n");
    }
}

TEST(AssetXmlWriter, EscapeOrder)
{
    // Already escaped text is not escaped twice; quotes and apostrophes are never touched.
    const std::pair<std::u16string, std::u16string> escapes[] = {
        {u"a&b", u"a&amp;b"}, {u"a&amp;b", u"a&amp;b"}, {u"&amp;lt;", u"&amp;lt;"},
        {u"<tag a='1' \"q\">", u"&lt;tag a='1' \"q\"&gt;"}, {u"&quot;", u"&amp;quot;"}};
    for (const auto& [text, escaped] : escapes) EXPECT_EQ(AssetXmlWriter::escapeXml(text, true), escaped);
    EXPECT_EQ(AssetXmlWriter::escapeXml(u"a&amp;b", false), u"a&amp;amp;b");
    const std::pair<std::u16string, std::u16string> unescapes[] = {
        {u"&amp;lt;", u"&lt;"}, {u"&amp;amp;", u"&amp;"}, {u"&lt;&gt;&amp;&quot;&apos;", u"<>&&quot;&apos;"}, {u"&&lt;", u"&<"}};
    for (const auto& [text, plain] : unescapes) EXPECT_EQ(AssetXmlWriter::unescapeXml(text), plain);
    // A damaged name full of ampersands escapes and unescapes back to itself.
    const std::u16string many(1 << 16, u'&');
    EXPECT_EQ(AssetXmlWriter::unescapeXml(AssetXmlWriter::escapeXml(many, true)), many);
}

TEST(AssetXmlWriter, FlushHandsOverTheTextInPieces)
{
    std::u16string text, taken;
    AssetXmlWriter writer(text);
    int pieces = 0;
    writer.setFlushSink([&](std::u16string& piece) {
        taken += piece;
        piece.clear();
        ++pieces;
    });
    workedDocument(writer);
    EXPECT_EQ(pieces, 2);  // behind the plugin and the root
    EXPECT_EQ(text, u"");
    EXPECT_EQ(wideToNarrow(taken), textOf(workedDocument));
}

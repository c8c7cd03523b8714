// The asset XML writer: the exact text of every element and parameter form, and its escaping.
#include <gtest/gtest.h>

#include <functional>

#include "archive/text_conversion.h"
#include "materials/base_material.h"
#include "materials/transform_components.h"
#include "textures/base_texture.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;

namespace {

// A texture that only knows its plug-in type, for the plugin parameters.
class ProbeTexture : public BaseTexture {
public:
    bool writeBinary(QuickArchive&) const override { return true; }
    bool readBinary(QuickArchive&) override { return true; }
    void writeXml(AssetXmlWriter&, std::u16string) const override {}
    std::u16string pluginType() const override { return u"TexProbe<1>"; }
    void resetDefaults() override {}
    uint32_t typeId() const override { return 99; }
    TexturePtr clone() const override { return std::make_shared<ProbeTexture>(); }
    bool isEqual(const TexturePtr&) const override { return false; }
};

class ProbeMaterial : public BaseMaterial {
public:
    bool writeBinary(QuickArchive&) const override { return true; }
    bool readBinary(QuickArchive&) override { return true; }
    uint32_t typeId() const override { return 99; }
    void resetDefaults() override {}
    MaterialPtr clone() const override { return std::make_shared<ProbeMaterial>(); }
    MaterialPtr cloneSameName() const override { return std::make_shared<ProbeMaterial>(); }
    bool isEqual(const MaterialPtr&) const override { return false; }
};

// The text one writer call makes at depth 0, as UTF-8 for readable comparisons.
std::string textOf(const std::function<void(AssetXmlWriter&)>& write)
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

}  // namespace

TEST(AssetXmlWriter, DocumentNestingAndIndentation)
{
    std::u16string text;
    AssetXmlWriter w(text);
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
    EXPECT_EQ(wideToNarrow(text), R"(<talmat>
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
    EXPECT_EQ(w.indentText(), u"");  // a balanced document ends at depth 0
    w.openTag("Deeper");
    EXPECT_EQ(w.indentText(), u"  ");
    w.writeRaw("raw<&>");
    EXPECT_EQ(text.substr(text.size() - 6), u"raw<&>");
}

TEST(AssetXmlWriter, ElementAttributesAndWhatIsEscaped)
{
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.openAsset(u"/a&b/\"q\"/<c>", "tex&ture", "Lay<out>"); }),
              "  <Asset layout=\"Lay<out>\" renderer=\"nuva\" type=\"tex&ture\" url=\"/a&amp;b/\"q\"/&lt;c&gt;\" >\n");
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.openPlugin("Name&<", "texture");
                  w.closePlugin();
              }),
              "  <plugin>\n    <nuvaplugin name=\"Name&<\" type=\"texture\">\n    </nuvaplugin>\n  </plugin>\n");
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.openTag("Group");
                  w.openParameters();
                  w.closeParameters();
                  w.closeTag("Group");
              }),
              "  <Group>\n    <parameters>\n    </parameters>\n  </Group>\n");
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.closeRoot(); }), "</>\n");
}

TEST(AssetXmlWriter, InlineParameterForms)
{
    struct Case {
        const char* what;
        std::function<void(AssetXmlWriter&)> write;
        std::string text;
    };
    const Case cases[] = {
        {"float", [](AssetXmlWriter& w) { w.writeFloat("f", 0.5f); },
         "<parameter type=\"float\" name=\"f\" handler=\"default\" listType=\"none\" label=\"f\">\n"
         "  <value>0.5</value>\n</parameter>\n"},
        {"user data and a label", [](AssetXmlWriter& w) { w.writeFloat("f", 1234567, "Big <one>", true); },
         "<parameter type=\"float\" name=\"f\" handler=\"default\" listType=\"none\" isUserData=\"1\" "
         "label=\"Big <one>\">\n  <value>1.23457e+006</value>\n</parameter>\n"},
        {"integer", [](AssetXmlWriter& w) { w.writeInt("i", -1); },
         "<parameter type=\"integer\" name=\"i\" handler=\"default\" listType=\"none\" label=\"i\">\n"
         "  <value>-1</value>\n</parameter>\n"},
        {"bool", [](AssetXmlWriter& w) { w.writeBool("b", true, "", true); },
         "<parameter type=\"bool\" name=\"b\" handler=\"default\" listType=\"none\" isUserData=\"1\" label=\"b\">\n"
         "  <value>1</value>\n</parameter>\n"},
        {"string, not escaped", [](AssetXmlWriter& w) { w.writeString("s", "a&b <c>"); },
         "<parameter type=\"string\" name=\"s\" handler=\"default\" listType=\"none\" label=\"s\">\n"
         "  <value>a&b <c></value>\n</parameter>\n"},
        {"file string, escaped", [](AssetXmlWriter& w) { w.writeFileString("file", "C:\\a&b\\<c>.png"); },
         "<parameter type=\"string\" name=\"file\" handler=\"FileBrowserHandler\" listType=\"none\" label=\"file\">\n"
         "  <value>C:\\a&amp;b\\&lt;c&gt;.png</value>\n</parameter>\n"},
        {"file string already escaped", [](AssetXmlWriter& w) { w.writeFileString("file", "a&amp;b"); },
         "<parameter type=\"string\" name=\"file\" handler=\"FileBrowserHandler\" listType=\"none\" label=\"file\">\n"
         "  <value>a&amp;b</value>\n</parameter>\n"},
        {"plugin name, not escaped", [](AssetXmlWriter& w) { w.writePluginName("p", "/a&b/TexBitmap", "Pick"); },
         "<parameter type=\"plugin\" name=\"p\" handler=\"default\" listType=\"none\" label=\"Pick\">\n"
         "  <value>/a&b/TexBitmap</value>\n</parameter>\n"},
    };
    for (const Case& c : cases) EXPECT_EQ(textOf(c.write), c.text) << c.what;
}

TEST(AssetXmlWriter, BlockParameterForms)
{
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeColor("diffuse", {1, 0.5f, 0}); }),
              R"(<parameter type="color" name="diffuse" handler="default" listType="none" label="diffuse">
  <value>
    <r>1</r>
    <g>0.5</g>
    <b>0</b>
  </value>
</parameter>
)");
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeAColor("tint", {0.25f, 1, 2, 0.75f}, "Tint"); }),
              R"(<parameter type="acolor" name="tint" handler="default" listType="none" label="Tint">
  <value>
    <r>0.25</r>
    <g>1</g>
    <b>2</b>
    <a>0.75</a>
  </value>
</parameter>
)");
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeVector("dir", {1, -2, 3e-7f}); }),
              "<parameter type=\"vector\" name=\"dir\" handler=\"default\" listType=\"none\" label=\"dir\">\n"
              "  <value>\n" +
                  vectorLines("    ", "1", "-2", "3e-007") + "  </value>\n</parameter>\n");
    // The matrix form alone has an empty line behind its value tag.
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.writeMatrix("m", Matrix{{Vector{1, 2, 3}, Vector{4, 5, 6}, Vector{7, 8, 9}}});
              }),
              "<parameter type=\"matrix\" name=\"m\" handler=\"default\" listType=\"none\" label=\"m\">\n"
              "  <value>\n\n    <matrix>\n" +
                  vectorLines("      ", "1", "2", "3") + vectorLines("      ", "4", "5", "6") +
                  vectorLines("      ", "7", "8", "9") + "    </matrix>\n  </value>\n</parameter>\n");
    // A transform is four vectors with no wrapper: the three of the matrix, then the offset.
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.writeTransform("t", Transform{Matrix{{Vector{1, 0, 0}, Vector{0, 1, 0}, Vector{0, 0, 1}}},
                                                  Vector{10, 20, 30}});
              }),
              "<parameter type=\"transform\" name=\"t\" handler=\"default\" listType=\"none\" label=\"t\">\n"
              "  <value>\n" +
                  vectorLines("    ", "1", "0", "0") + vectorLines("    ", "0", "1", "0") +
                  vectorLines("    ", "0", "0", "1") + vectorLines("    ", "10", "20", "30") +
                  "  </value>\n</parameter>\n");

    TransformComponents c;
    c.x_rotation = 20, c.y_rotation = 35.5f, c.z_rotation = -50;
    c.x_scale = 2, c.z_offset = 0.125f, c.x_mirror = 1, c.z_mirror = -1;
    const std::string fields = R"(  <value>
    <x_rotation>20</x_rotation>
    <y_rotation>35.5</y_rotation>
    <z_rotation>-50</z_rotation>
    <x_scale>2</x_scale>
    <y_scale>1</y_scale>
    <z_scale>1</z_scale>
    <x_offset>0</x_offset>
    <y_offset>0</y_offset>
    <z_offset>0.125</z_offset>
    <x_mirror>1</x_mirror>
    <y_mirror>0</y_mirror>
    <z_mirror>-1</z_mirror>
  </value>
</parameter>
)";
    EXPECT_EQ(textOf([&](AssetXmlWriter& w) { w.writeComponentMatrix("uvw", c); }),
              "<parameter type=\"componentMatrix\" name=\"uvw\" handler=\"default\" listType=\"none\" "
              "label=\"uvw\">\n" + fields);
    EXPECT_EQ(textOf([&](AssetXmlWriter& w) { w.writeComponentTransform("uvw", c, "Placement"); }),
              "<parameter type=\"componentTransform\" name=\"uvw\" handler=\"default\" listType=\"none\" "
              "label=\"Placement\">\n" + fields);
}

TEST(AssetXmlWriter, ListForm)
{
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.openList("layers", "plugin");
                  w.writeEntry("/m&amp;n/a&b/<c>");
                  w.writeStringEntry("x & <y>");
                  w.closeList();
              }),
              R"(<parameter type="list" name="layers" handler="default" listType="plugin" label="layers">
  <value>
  <list>
    <entry>/m&amp;n/a&amp;b/&lt;c&gt;</entry>
    <string>"x & <y>"</string>
  </list>
  </value>
</parameter>
)");
    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.openList("names", "string", "Names");
                  w.closeList();
              }),
              R"(<parameter type="list" name="names" handler="default" listType="string" label="Names">
  <value>
  <list>
  </list>
  </value>
</parameter>
)");
}

// A reference gives the escaped url, "/", and the plug-in type (a material's name); an empty
// reference gives the head and the end with no value.
TEST(AssetXmlWriter, PluginReferences)
{
    const std::string emptyText =
        "<parameter type=\"plugin\" name=\"tex\" handler=\"default\" listType=\"none\" label=\"tex\">\n"
        "</parameter>\n";
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writePlugin("tex", TexturePtr(), u"/m/tex"); }), emptyText);
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writePlugin("tex", MaterialPtr(), u"/m/tex"); }), emptyText);

    EXPECT_EQ(textOf([](AssetXmlWriter& w) {
                  w.writePlugin("tex", TexturePtr(std::make_shared<ProbeTexture>()), u"/a&b/tex", "Texture");
              }),
              "<parameter type=\"plugin\" name=\"tex\" handler=\"default\" listType=\"none\" label=\"Texture\">\n"
              "  <value>/a&amp;b/tex/TexProbe<1></value>\n</parameter>\n");
    auto material = std::make_shared<ProbeMaterial>();
    material->name = u"Oak & <Ash>";
    EXPECT_EQ(textOf([&](AssetXmlWriter& w) { w.writePlugin("base", MaterialPtr(material), u"/outer/base"); }),
              "<parameter type=\"plugin\" name=\"base\" handler=\"default\" listType=\"none\" label=\"base\">\n"
              "  <value>/outer/base/Oak & <Ash></value>\n</parameter>\n");
}

TEST(AssetXmlWriter, EscapeOrder)
{
    struct Case {
        std::u16string text, escaped;
    };
    const Case escapes[] = {
        {u"a&b", u"a&amp;b"},
        {u"a&amp;b", u"a&amp;b"},  // already escaped text is not escaped twice
        {u"&amp;lt;", u"&amp;lt;"},
        {u"&lt;b&gt;", u"&lt;b&gt;"},
        {u"<tag a='1' \"q\">", u"&lt;tag a='1' \"q\"&gt;"},
        {u"&quot;", u"&amp;quot;"},
        {u"", u""},
    };
    for (const Case& c : escapes) EXPECT_EQ(AssetXmlWriter::escapeXml(c.text, true), c.escaped);
    EXPECT_EQ(AssetXmlWriter::escapeXml(u"a&amp;b", false), u"a&amp;amp;b");
    // A damaged name full of ampersands is escaped in one pass, not one copy per character.
    const std::u16string many(1 << 20, u'&');
    EXPECT_EQ(AssetXmlWriter::escapeXml(many, true).size(), 5u << 20);
    EXPECT_EQ(AssetXmlWriter::unescapeXml(AssetXmlWriter::escapeXml(many, true)), many);

    const Case unescapes[] = {
        {u"&amp;lt;", u"&lt;"},
        {u"&amp;amp;", u"&amp;"},
        {u"&lt;&gt;&amp;&quot;&apos;", u"<>&&quot;&apos;"},
        {u"&&lt;", u"&<"},
        {u"plain", u"plain"},
    };
    for (const Case& c : unescapes) EXPECT_EQ(AssetXmlWriter::unescapeXml(c.text), c.escaped);
}

TEST(AssetXmlWriter, NarrowAndWideTextAgreeAndStopAtZero)
{
    const std::string wide = textOf([](AssetXmlWriter& w) { w.writeString(u"n\u00e9", u"\u20AC\U0001F600"); });
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeString("n\xC3\xA9", "\xE2\x82\xAC\xF0\x9F\x98\x80"); }), wide);
    // Narrow text that is not UTF-8 is read as Windows-1252.
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeString("n\xE9", "\x80\xF0\x9F\x98\x80"); }),
              textOf([](AssetXmlWriter& w) { w.writeString(u"n\u00e9", u"\u20AC\u00F0\u0178\u02DC\u20AC"); }));
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeString("s", std::u16string(u"ab\0cd", 5)); }),
              textOf([](AssetXmlWriter& w) { w.writeString("s", "ab"); }));
    EXPECT_EQ(textOf([](AssetXmlWriter& w) { w.writeFileString("s", std::u16string(u"a&\0b", 4)); }),
              textOf([](AssetXmlWriter& w) { w.writeFileString("s", "a&amp;"); }));
}

TEST(AssetXmlWriter, FlushHandsOverTheTextInPieces)
{
    auto document = [](AssetXmlWriter& w) {
        w.openRoot("talmat");
        w.openAssets();
        for (int i = 0; i < 3; ++i) {
            w.openAsset(u"/m", "material", "");
            w.openPlugin("MtlProbe", "material");
            w.closePlugin();
            w.closeAsset();
        }
        w.closeAssets();
        w.closeRoot();
    };
    std::u16string text;
    std::u16string taken;
    int pieces = 0;
    AssetXmlWriter writer(text);
    writer.setFlushSink([&](std::u16string& piece) {
        taken += piece;
        piece.clear();
        ++pieces;
    });
    document(writer);
    EXPECT_EQ(pieces, 4);
    EXPECT_EQ(text, u"");
    EXPECT_EQ(wideToNarrow(taken), textOf(document));
}

// The asset XML writer: the exact text of every element and parameter form, its escaping, and the
// asset frame.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "archive/text_conversion.h"
#include "records/transform_components.h"
#include "support/xml_of.h"
#include "xml/asset_frame.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;
using TalvexTest::textOf;

namespace {

// An object of no family: what the writer and the frame learn of any object through its contract.
// Its asset is one line naming its url, so that the order of assets shows.
class Probe : public TalvexXMLSerializable {
public:
    explicit Probe(std::optional<std::u16string> reference = u"TexProbe") : reference(std::move(reference)) {}
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override
    {
        writer.writeRaw(u"[" + url + u"]\n");
    }
    const std::u16string& pluginType() const override { return typeName<u"TexProbe">(); }
    const std::u16string& assetType() const override { return typeName<u"texture">(); }
    const std::u16string* referenceName() const override { return reference ? &*reference : nullptr; }

private:
    std::optional<std::u16string> reference;
};

using Write = std::function<void(AssetXmlWriter&)>;

// The text the same calls make on a writer of UTF-8; it must be the wide text's UTF-8, byte for byte.
std::string utf8TextOf(const Write& write)
{
    std::string text;
    AssetXmlWriter writer(text);
    write(writer);
    return text;
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

// The frame of every document stands in the example library's documents; these are its escapes.
TEST(AssetXmlWriter, FrameEscapesOnlyTheUrl)
{
    EXPECT_EQ(utf8TextOf(workedDocument), textOf(workedDocument));
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

// Indentation deeper than any real document still takes two blanks a level, in both widths.
TEST(AssetXmlWriter, DeepIndentation)
{
    const Write deep = [](AssetXmlWriter& w) {
        for (int i = 0; i < 40; ++i) w.openTag("g");
        w.writeRaw("");
        w.closeTag("g");
    };
    EXPECT_EQ(textOf(deep).substr(textOf(deep).rfind("</g>") - 80), std::string(80, ' ') + "</g>\n");
    EXPECT_EQ(utf8TextOf(deep), textOf(deep));
}

// Each form's head, and its value in the inline shape, a block, a list, or nothing at all; the
// plainest forms stand in the example library's documents.
TEST(AssetXmlWriter, ParameterForms)
{
    TransformComponents tc;
    tc.x_rotation = 20, tc.y_rotation = 35.5f, tc.z_rotation = -50;
    tc.x_scale = 2, tc.z_offset = 0.125f, tc.x_mirror = 1, tc.z_mirror = -1;
    const std::string fields = block(fieldLines({{"x_rotation", "20"}, {"y_rotation", "35.5"}, {"z_rotation", "-50"},
                                                 {"x_scale", "2"}, {"y_scale", "1"}, {"z_scale", "1"},
                                                 {"x_offset", "0"}, {"y_offset", "0"}, {"z_offset", "0.125"},
                                                 {"x_mirror", "1"}, {"y_mirror", "0"}, {"z_mirror", "-1"}}));
    const auto probe = std::make_shared<Probe>();
    const auto named = std::make_shared<Probe>(u"Oak & <Ash>");
    const auto urlAlone = std::make_shared<Probe>(std::nullopt);
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
        // The url is escaped, the name the object gives behind it is not; no name, no "/".
        {[&](AssetXmlWriter& w) { w.writePlugin("tex", probe, u"/a&b/tex"); }, plain("plugin", "tex"),
         "  <value>/a&amp;b/tex/TexProbe</value>\n"},
        {[&](AssetXmlWriter& w) { w.writePlugin("base", named, u"/outer/base"); }, plain("plugin", "base"),
         "  <value>/outer/base/Oak & <Ash></value>\n"},
        {[&](AssetXmlWriter& w) { w.writePlugin("sun", urlAlone, u"/sky/sun"); }, plain("plugin", "sun"),
         "  <value>/sky/sun</value>\n"},
        {[](AssetXmlWriter& w) { w.writePlugin("tex", std::shared_ptr<Probe>(), u"/m/tex"); }, plain("plugin", "tex"), ""},
        {[](AssetXmlWriter& w) { w.writeVector("dir", {1, -2, 3e-7f}); }, plain("vector", "dir"),
         block(vectorLines("    ", "1", "-2", "3e-007"))},
        // The matrix form alone has an empty line behind its value tag.
        {[&](AssetXmlWriter& w) { w.writeMatrix("m", matrix); }, plain("matrix", "m"),
         block("\n    <matrix>\n" + matrixRows + "    </matrix>\n")},
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
        EXPECT_EQ(utf8TextOf(c.write), textOf(c.write)) << "the UTF-8 writer";
    }
}

// Heads are kept by where their name lies: a name whose room then holds other text, or the same
// name at another depth, with a label or as user data, gets its own head; names the writer cannot
// keep (not ASCII, cut by a zero) are made each time, alike.
TEST(AssetXmlWriter, KeptHeadsFollowTheirText)
{
    char room[16] = "alpha";
    const std::string text = utf8TextOf([&room](AssetXmlWriter& w) {
        for (const char* name : {"alpha", "bravo", "alpha"}) {
            std::strcpy(room, name);
            w.writeInt(room, 1);
        }
        w.writeInt(room, 2, "Label");
        w.writeInt(room, 3, {}, true);
        w.openTag("g");
        w.writeInt(room, 4);
        w.closeTag("g");
        w.writeInt(std::string_view("cut\0off", 7), 5);
        w.writeInt("caf\xE9", 6);
    });
    const auto param = [](const std::string& indent, const std::string& name, const std::string& marks, int value) {
        return indent + "<parameter type=\"integer\" name=\"" + name + "\" handler=\"default\" listType=\"none\"" +
               marks + ">\n" + indent + "  <value>" + std::to_string(value) + "</value>\n" + indent + "</parameter>\n";
    };
    EXPECT_EQ(text, param("", "alpha", " label=\"alpha\"", 1) + param("", "bravo", " label=\"bravo\"", 1) +
                        param("", "alpha", " label=\"alpha\"", 1) + param("", "alpha", " label=\"Label\"", 2) +
                        param("", "alpha", " isUserData=\"1\" label=\"alpha\"", 3) + "  <g>\n" +
                        param("  ", "alpha", " label=\"alpha\"", 4) + "  </g>\n" +
                        param("", "cut", " label=\"cut\"", 5) + param("", "caf\xC3\xA9", " label=\"caf\xC3\xA9\"", 6));
}

// Urls and wide values are encoded in runs of plain characters; whatever stops a run (a character
// to escape, one that is not ASCII, a pair, a lone half, a zero) gives the same text at any place.
TEST(AssetXmlWriter, TextIsTheSameWhereverAStopFalls)
{
    const std::u16string stops[] = {u"&", u"<", u">", u"\u00e9", u"\u20ac", u"\U0001F600", std::u16string(1, u'\xD800'),
                                    std::u16string(1, u'\0')};
    for (const std::u16string& stop : stops) {
        for (std::size_t at = 0; at < 20; ++at) {
            const std::u16string text = std::u16string(at, u'a') + stop + std::u16string(19 - at, u'b');
            const std::u16string cut = text.substr(0, text.find(u'\0'));
            std::string entry, value;
            appendWideAsNarrow(entry, AssetXmlWriter::escapeXml(cut, true), LoneSurrogates::Replaced);
            appendWideAsNarrow(value, cut, LoneSurrogates::Replaced);
            SCOPED_TRACE(wideToNarrow(text));
            EXPECT_EQ(utf8TextOf([&](AssetXmlWriter& w) { w.writeEntry(text); }), "<entry>" + entry + "</entry>\n");
            EXPECT_EQ(utf8TextOf([&](AssetXmlWriter& w) { w.writeRaw(text); }), value);
        }
    }
}

// A writer that hands its document over in pieces keeps it to itself until a flush, gathers a few
// small assets a piece, and writes the same document.
TEST(AssetXmlWriter, DeliveryAtFlushKeepsTheTextUntilTheFlush)
{
    const auto asset = [](AssetXmlWriter& w) {
        w.openAsset(u"/a", "texture", "");
        w.writeFloat("f", 0.5f);
        w.openPlugin("TexProbe", "texture");
        w.closePlugin();
        w.closeAsset();
    };
    std::string text;
    int pieces = 0;
    AssetXmlWriter writer(text, LoneSurrogates::Replaced, AssetXmlWriter::Delivery::AtFlush);
    writer.setFlushSink([&](std::string&) { ++pieces; });
    asset(writer);
    EXPECT_TRUE(text.empty());
    writer.flush();
    EXPECT_EQ(text, textOf(asset));
    EXPECT_EQ(pieces, 1);

    for (int i = 0; i < 1000; ++i) asset(writer);
    EXPECT_GT(pieces, 2);
    EXPECT_LT(pieces, 200);
    writer.flush();
    EXPECT_EQ(text.size(), 1001 * textOf(asset).size());
}

// An asset begun and ended in one step is the three openings and the three closings, at every
// level, also beyond the levels whose text is prepared, and in a document delivered at flushes.
TEST(AssetXmlWriter, AssetInOneStepAtEveryLevel)
{
    for (int level = 0; level < 12; ++level) {
        SCOPED_TRACE(level);
        const auto nested = [level](AssetXmlWriter& w, const std::function<void()>& asset) {
            for (int i = 0; i < level; ++i) w.openTag("g");
            asset();
            for (int i = 0; i < level; ++i) w.closeTag("g");
        };
        const std::string expected = textOf([&](AssetXmlWriter& w) {
            nested(w, [&] {
                w.openAsset(u"/a&b", "texture", "lay");
                w.openPlugin("TexProbe", "texture");
                w.openParameters();
                w.writeFloat("f", 0.5f);
                w.closeParameters();
                w.closePlugin();
                w.closeAsset();
            });
        });
        for (const auto delivery : {AssetXmlWriter::Delivery::EachOperation, AssetXmlWriter::Delivery::AtFlush}) {
            std::string text;
            AssetXmlWriter w(text, LoneSurrogates::Replaced, delivery);
            nested(w, [&] {
                w.beginAsset(AssetXmlWriter::UrlText{"/a&amp;b"}, "texture", "lay", "TexProbe");
                w.writeFloat("f", 0.5f);
                w.endAsset();
            });
            w.flush();
            EXPECT_EQ(text, expected);
            EXPECT_EQ(w.indentText(), u"");
        }
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

// Both widths hand over their pieces behind the plugin and the root, and keep nothing.
TEST(AssetXmlWriter, FlushHandsOverTheTextInPieces)
{
    const auto piecesOf = [](auto text) {
        std::string taken;
        int pieces = 0;
        AssetXmlWriter writer(text);
        writer.setFlushSink([&](decltype(text)& piece) {
            if constexpr (std::is_same_v<decltype(text), std::string>) taken += piece; else taken += wideToNarrow(piece);
            piece.clear();
            ++pieces;
        });
        workedDocument(writer);
        EXPECT_TRUE(text.empty());
        return std::pair(pieces, taken);
    };
    EXPECT_EQ(piecesOf(std::u16string()), std::pair(2, textOf(workedDocument)));
    EXPECT_EQ(piecesOf(std::string()), std::pair(2, textOf(workedDocument)));
}

// The children's assets stand ahead of the asset, each under the asset's url and its word, or under
// the asset's own url when the slot has no word; an empty slot writes no asset but keeps its
// parameter, with no value.
TEST(AssetFrame, ChildrenFirstThenTheAssetWithItsChildParameters)
{
    const auto child = std::make_shared<Probe>();
    const Probe self;
    const std::string text = textOf([&](AssetXmlWriter& w) {
        const std::vector<ChildSlot> slots{{"first", "first_word", child},
                                           {"empty", "empty_word", std::shared_ptr<Probe>()},
                                           {"layer", nullptr, child}};
        const AssetFrame frame(w, self, u"/m&n", "lay", slots);
        w.writeInt("between", 3);
        frame.writeChildParameter(1);
        frame.writeChildParameter(0);
        frame.close();
    });
    EXPECT_EQ(text, R"([/m&n/first_word]
[/m&n]
  <Asset layout="lay" renderer="nuva" type="texture" url="/m&amp;n" >
    <plugin>
      <nuvaplugin name="TexProbe" type="texture">
        <parameters>
          <parameter type="integer" name="between" handler="default" listType="none" label="between">
            <value>3</value>
          </parameter>
          <parameter type="plugin" name="empty" handler="default" listType="none" label="empty">
          </parameter>
          <parameter type="plugin" name="first" handler="default" listType="none" label="first">
            <value>/m&amp;n/first_word/TexProbe</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
)");
}

namespace {

// A chain of assets, each the child of the one before, each naming its child after writing it.
class Nest : public TalvexXMLSerializable {
public:
    std::shared_ptr<Nest> inner;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override
    {
        const AssetFrame frame(writer, *this, AssetUrl(url, u"n"), "", {{"inner", "w", inner}});
        frame.writeChildParameters();
        frame.close();
    }
    const std::u16string& pluginType() const override { return typeName<u"TexNest">(); }
    const std::u16string& assetType() const override { return typeName<u"texture">(); }
};

}  // namespace

// The writer keeps the urls of the frames it has open; frames opened deeper than ever before,
// while outer ones hold their children's urls, must leave those urls as they were.
TEST(AssetFrame, OuterUrlsStayWhileDeeperFramesAreWritten)
{
    std::string text;
    AssetXmlWriter writer(text);
    for (const int depth : {2, 40}) {
        text.clear();
        auto outer = std::make_shared<Nest>();
        for (int i = 1; i < depth; ++i) {
            auto next = std::make_shared<Nest>();
            next->inner = outer;
            outer = next;
        }
        outer->writeXml(writer, u"");
        std::string url;
        for (int level = 1; level < depth; ++level) {
            url += "/n/w";
            const std::string value = "<value>" + url + "/TexNest</value>";
            EXPECT_NE(text.find(value), std::string::npos) << "depth " << depth << ", level " << level;
        }
    }
}

namespace {

// An asset under the url it is given, with no word of its own.
class Leaf : public TalvexXMLSerializable {
public:
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override
    {
        AssetFrame(writer, *this, url, "", {}).close();
    }
    const std::u16string& pluginType() const override { return typeName<u"TexLeaf">(); }
    const std::u16string& assetType() const override { return typeName<u"texture">(); }
};

// The url as the writer prints it: cut at its first zero, unescaped, escaped, UTF-8.
std::string printedUrl(const std::u16string& url)
{
    std::string text;
    appendWideAsNarrow(text, AssetXmlWriter::escapeXml(url.substr(0, url.find(u'\0')), true),
                       LoneSurrogates::Replaced);
    return text;
}

}  // namespace

// A frame's url is made from its owner's text and the word's; it must read as the whole url
// printed at once, whatever either side holds: entities split by the "/", a zero, the halves of a
// pair on either side.
TEST(AssetFrame, UrlsMadeFromTheirOwnersReadAsTheWholeUrl)
{
    const std::u16string parts[] = {u"",      u"a&lt;b", u"&l", u"t;&amp;", u"x<y>", u"\u00e9\U0001F600",
                                    std::u16string(1, u'\xD800'), std::u16string(1, u'\xDC00') + u"z",
                                    std::u16string(u"p\0q", 3)};
    const auto leaf = std::make_shared<Leaf>();
    const Leaf self;
    for (const std::u16string& base : parts) {
        for (const std::u16string& word : parts) {
            SCOPED_TRACE(wideToNarrow(base) + " | " + wideToNarrow(word));
            const std::string text = utf8TextOf([&](AssetXmlWriter& w) {
                const KeptUrl owner(w, AssetUrl(base));
                const AssetFrame frame(w, self, AssetUrl(owner.text(), word), "", {{"leaf", "w", leaf}});
                frame.writeChildParameters();
                frame.close();
            });
            const std::u16string url = base + u"/" + word;
            const std::string leafUrl = printedUrl(url + u"/w");
            const std::string expected[] = {"url=\"" + leafUrl + "\"", "url=\"" + printedUrl(url) + "\"",
                                            "<value>" + leafUrl + "/TexLeaf</value>"};
            std::size_t at = 0;
            for (const std::string& part : expected) {
                at = text.find(part, at);
                ASSERT_NE(at, std::string::npos) << part << "\n" << text;
            }
        }
    }
}

// A document taken from the writer in pieces: nothing lost, nothing repeated, in order, and no
// piece taken before it is full.
#include <gtest/gtest.h>

#include <string>

#include "module/document_pieces.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;

namespace {

// Some megabytes of assets, with characters of two and three UTF-8 bytes in their urls.
void writeDocument(AssetXmlWriter& writer)
{
    writer.openRoot("talmat");
    for (int i = 0; i < 20000; ++i) {
        writer.openAsset(u"/\u00e9l\u00e9ment_\u20ac" + std::u16string(1, char16_t(u'a' + i % 26)), "material", "");
        writer.openPlugin(u"MtlLayered", "material");
        writer.openParameters();
        writer.writeFloat("value", static_cast<float>(i));
        writer.closeParameters();
        writer.closePlugin();
        writer.closeAsset();
    }
    writer.closeRoot();
}

}  // namespace

TEST(DocumentPieces, PiecesJoinIntoTheWriterText)
{
    DocumentPieces pieces;
    std::string text;
    {
        AssetXmlWriter writer(text);
        writer.setFlushSink([&pieces](std::string& t) { pieces.take(t); });
        writeDocument(writer);
    }
    pieces.take(text, true);
    EXPECT_TRUE(text.empty());
    ASSERT_GT(pieces.pieces().size(), 2u);
    for (std::size_t i = 0; i + 1 < pieces.pieces().size(); ++i)
        EXPECT_GE(pieces.pieces()[i].size(), DocumentPieces::pieceSize);
    const std::size_t size = pieces.size();

    std::string expected;
    {
        AssetXmlWriter writer(expected);
        writeDocument(writer);
    }
    const std::string whole = pieces.join();
    EXPECT_EQ(whole.size(), size);
    EXPECT_EQ(whole, expected);
    EXPECT_TRUE(pieces.pieces().empty());
}

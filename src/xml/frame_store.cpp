#include "xml/frame_store.h"

#include "archive/text_conversion.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

void AssetUrl::assignTo(std::u16string& out) const
{
    out.assign(base);
    if (form == Form::None) return;
    out += u'/';
    if (form == Form::Wide) out += wideWord;
    else appendNarrowAsWide(out, narrowWord);
}

namespace {

// The words of urls are short ASCII that needs no escaping: appended as they stand. False, with
// nothing appended, for any other text.
bool appendPlainText(std::string& out, std::u16string_view text)
{
    // Zero and every unit from 0x80 on wrap past 0x7E, and a mask holds the three to escape.
    constexpr uint64_t escaped = (uint64_t{1} << '&') | (uint64_t{1} << '<') | (uint64_t{1} << '>');
    char plain[32];
    if (text.size() > sizeof plain) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (static_cast<char16_t>(c - 1) >= 0x7F || (c < 64 && ((escaped >> c) & 1))) return false;
        plain[i] = static_cast<char>(c);
    }
    out.append(plain, text.size());
    return true;
}

}  // namespace

// Escaping never joins text across the "/" before a url word, since no entity holds one: the text
// of a url is its owner's text and the text of "/" and the word.
void FrameStore::name(std::size_t index, const AssetUrl& url)
{
    Entry& entry = *entries[index];
    const std::u16string_view base = url.baseText();
    const std::size_t baseSize = base.size();
    const Entry* owner = nullptr;
    for (std::size_t i = used; i-- > 0 && !owner;)
        if (entries[i]->url.data() == base.data() && entries[i]->url.size() == baseSize) owner = entries[i].get();
    if (!owner) {
        entry.urlText.clear();
        entry.urlCut = AssetXmlWriter::appendUrlText(entry.urlText, base, loneSurrogates);
    } else if (owner != &entry) {
        entry.urlText.assign(owner->urlText);
        entry.urlCut = owner->urlCut;
    }
    url.assignTo(entry.url);
    if (!url.hasWord() || entry.urlCut) return;
    const std::u16string_view tail = std::u16string_view(entry.url).substr(baseSize);
    if (!appendPlainText(entry.urlText, tail))
        entry.urlCut = AssetXmlWriter::appendUrlText(entry.urlText, tail, loneSurrogates);
}

namespace {

thread_local std::unique_ptr<FrameStore> spareStore;

}  // namespace

FrameStore::Lent::Lent(LoneSurrogates loneSurrogates) : store(std::move(spareStore))
{
    if (!store) store = std::make_unique<FrameStore>(loneSurrogates);
    store->used = 0;
    store->loneSurrogates = loneSurrogates;
}

FrameStore::Lent::~Lent() { spareStore = std::move(store); }

std::size_t FrameStore::take(std::size_t count)
{
    const std::size_t first = used;
    while (entries.size() < first + count) entries.push_back(std::make_unique<Entry>());
    used = first + count;
    return first;
}

}  // namespace TalvexCore

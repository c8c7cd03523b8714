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
    entry.urlCut = AssetXmlWriter::appendUrlText(entry.urlText, std::u16string_view(entry.url).substr(baseSize),
                                                 loneSurrogates);
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

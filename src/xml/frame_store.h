// FrameStore: the url text and child slots of the assets being written, kept by the writer.
#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "archive/text_conversion.h"
#include "records/serializable.h"

namespace TalvexCore {

// One child of an asset: the plugin parameter that names it, the word its url adds to the
// asset's, and the child itself. A slot with no url word hands the child the asset's own url,
// which the child extends as it does (a material's layers add their names).
struct ChildSlot {
    ChildSlot() = default;
    // The words are measured here, where a literal's length is known as the code is compiled.
    ChildSlot(std::string_view parameter, std::string_view urlWord, const TalvexXMLSerializable* child)
        : parameter(parameter), urlWord(urlWord), child(child) {}
    ChildSlot(const char* parameter, const char* urlWord, const TalvexXMLSerializable* child)
        : ChildSlot(words(parameter), words(urlWord), child) {}
    template <class T>
        requires std::derived_from<T, TalvexXMLSerializable>
    ChildSlot(const char* parameter, const char* urlWord, const std::shared_ptr<T>& child)
        : ChildSlot(parameter, urlWord, static_cast<const TalvexXMLSerializable*>(child.get())) {}
    template <class T>
        requires std::derived_from<T, TalvexXMLSerializable>
    ChildSlot(std::string_view parameter, std::string_view urlWord, const std::shared_ptr<T>& child)
        : ChildSlot(parameter, urlWord, static_cast<const TalvexXMLSerializable*>(child.get())) {}

    bool hasUrlWord() const { return urlWord.data() != nullptr; }

    std::string_view parameter;
    std::string_view urlWord;  // no text at all (not even an empty one): no url word
    const TalvexXMLSerializable* child = nullptr;  // null: no child

private:
    static std::string_view words(const char* text) { return text ? std::string_view(text) : std::string_view(); }
};

// An asset's url: its owner's url and, when a word is given, "/" and the word. A wide word is
// taken whole; a narrow one (the url words of child slots) is read as narrow text is.
class AssetUrl {
public:
    AssetUrl(const char16_t* url) : base(url) {}
    AssetUrl(std::u16string_view url) : base(url) {}
    AssetUrl(const std::u16string& url) : base(url) {}
    AssetUrl(std::u16string_view url, std::u16string_view word) : base(url), wideWord(word), form(Form::Wide) {}
    AssetUrl(std::u16string_view url, std::string_view word) : base(url), narrowWord(word), form(Form::Narrow) {}

    // Replaces `out` with the url, in the room `out` already has where it suffices.
    void assignTo(std::u16string& out) const;
    std::u16string_view baseText() const { return base; }
    bool hasWord() const { return form != Form::None; }

private:
    enum class Form { None, Wide, Narrow };
    std::u16string_view base;
    std::u16string_view wideWord;
    std::string_view narrowWord;
    Form form = Form::None;
};

// Entries are taken and given back last first, and a taken entry stays where it is until it is
// given back, so a child may hold its url by reference while deeper assets take entries. Each
// entry keeps the room of its text from one asset to the next: once the writer has been as deep
// before, naming an asset or a child allocates nothing.
// An entry also keeps its url as the XML gives it. A url that extends the url of a taken entry
// (a child's, by its slot's word) or repeats it (the child's own asset) starts from that entry's
// text, so a url is escaped and encoded once, not once for each place it appears.
class FrameStore {
public:
    struct Entry {
        ChildSlot slot;
        std::u16string url;
        std::string urlText;   // cut at the url's first zero, escaped, UTF-8
        bool urlCut = false;   // the url holds a zero: the text ends there
    };

    explicit FrameStore(LoneSurrogates loneSurrogates) : loneSurrogates(loneSurrogates) {}

    // A store lent to one writer for its life: the thread's spare one, emptied, where it has one.
    // Given back, it becomes the spare, so that the next document starts with the room of the last.
    class Lent {
    public:
        explicit Lent(LoneSurrogates loneSurrogates);
        ~Lent();
        Lent(const Lent&) = delete;
        Lent& operator=(const Lent&) = delete;
        FrameStore& operator*() const { return *store; }

    private:
        std::unique_ptr<FrameStore> store;
    };

    // Sets the url of entry `index`, and its text.
    void name(std::size_t index, const AssetUrl& url);
    // The index of the first of `count` entries taken.
    std::size_t take(std::size_t count);
    // Gives back every entry from `first` on.
    void giveBack(std::size_t first) { used = first < used ? first : used; }
    Entry& operator[](std::size_t index) { return *entries[index]; }

private:
    std::vector<std::unique_ptr<Entry>> entries;
    std::size_t used = 0;
    LoneSurrogates loneSurrogates;
};

}  // namespace TalvexCore

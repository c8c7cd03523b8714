// PopulatedText: a growing run of bytes in memory that the system maps many pages at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TalvexCore {

// Memory touched for the first time, page by page, can cost far more than writing the bytes into
// it; where the system can map pages ahead in bulk, the text grows into such pages. Elsewhere it is
// a plain string.
class PopulatedText {
public:
    PopulatedText() = default;
    PopulatedText(const PopulatedText&) = delete;
    PopulatedText& operator=(const PopulatedText&) = delete;
    ~PopulatedText();

    // Throws std::bad_alloc when the memory cannot be had.
    void append(std::string_view bytes);
    // The same for a text that is then left empty; a first small text is kept with no copy.
    void take(std::string& text);
    std::string_view view() const;

private:
    void grow(std::size_t needed);

    char* base = nullptr;        // the reserved region, mapped ahead up to `populated`
    std::size_t reserved = 0;
    std::size_t populated = 0;
    std::size_t used = 0;
    std::string fallback;        // a small text, or any text where the region cannot be had
    bool plain = false;
};

}  // namespace TalvexCore

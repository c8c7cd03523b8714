// ParameterHeads: the text of a parameter up to its value, made once and copied from then on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace TalvexCore {

// What a parameter's head is made of: its indentation, the opening of its form up to the name's
// value, the name, the handler up to the list type's value, "none", the label (the name when none
// is given) and, for a value on the same line, the value's indentation and tag.
struct ParameterHead {
    std::string_view opening;
    std::string_view handler;
    std::string_view name;
    std::string_view label;
    int32_t depth = 0;
    bool isUserData = false;
    bool withValue = false;
};

// Most lines of a document repeat a parameter head seen before: the same name of the same class at
// the same depth. Heads are kept by where their name and label text lie, and each is checked
// against the text it was made from, so a name whose room is reused for other text is made anew.
// Only heads of ASCII names and labels are kept; for any other the answer is empty and the writer
// makes the head itself. The heads of one thread are shared by its writers.
class ParameterHeads {
public:
    // Room of each head's text: a head is copied whole, room and all, and its size then counted.
    static constexpr std::size_t textRoom = 224;

    static ParameterHeads& ofThisThread();
    // The head's text, with `textRoom` bytes readable behind its start, valid until the next call;
    // empty when it is not one to keep.
    std::string_view find(const ParameterHead& head)
    {
        const Key key{head.opening.data(), head.handler.data(), head.name.data(), head.label.data(),
                      head.name.size(),    head.label.size(),   head.depth,
                      (head.isUserData ? 1u : 0u) | (head.withValue ? 2u : 0u)};
        const auto address = [](const char* text) { return reinterpret_cast<uintptr_t>(text); };
        const uint64_t hash = address(key.name) ^ (address(key.label) << 7) ^ (address(key.opening) << 3) ^
                              (address(key.handler) << 11) ^ (static_cast<uint64_t>(key.depth) << 2) ^ key.marks;
        static_assert(slotCount == 1u << (64 - 54));
        Slot* const pair = &slots[((hash * 0x9E3779B97F4A7C15ull) >> 54) & ~uint64_t(1)];
        if (holds(pair[0], key)) return {pair[0].text, pair[0].size};
        if (holds(pair[1], key)) return {pair[1].text, pair[1].size};
        return makeIn(pair, key, head);
    }

private:
    // Pairs of slots: a head lives in either slot of its pair; a new head goes first, the one it
    // displaces second.
    static constexpr std::size_t slotCount = 1024;
    // What a kept head was made from: where its texts lie, their sizes, its depth and marks.
    struct Key {
        const char* opening = nullptr;  // null: not made yet
        const char* handler = nullptr;
        const char* name = nullptr;
        const char* label = nullptr;
        std::size_t nameSize = 0;
        std::size_t labelSize = 0;
        int32_t depth = 0;
        uint32_t marks = 0;  // user data, value behind
        bool operator==(const Key&) const = default;
    };
    struct Slot {
        Key key;
        uint16_t nameAt = 0;
        uint16_t labelAt = 0;
        uint16_t size = 0;
        char text[textRoom];
    };
    // Names are short: compared eight bytes at a time, the last eight overlapping, with no call.
    static bool sameText(const char* kept, const char* given, std::size_t size)
    {
        if (size < 8) {
            for (std::size_t i = 0; i < size; ++i)
                if (kept[i] != given[i]) return false;
            return true;
        }
        const auto word = [](const char* at) {
            uint64_t w;
            std::memcpy(&w, at, 8);
            return w;
        };
        for (std::size_t i = 0; i + 8 < size; i += 8)
            if (word(kept + i) != word(given + i)) return false;
        return word(kept + size - 8) == word(given + size - 8);
    }
    static bool holds(const Slot& slot, const Key& key)
    {
        return slot.key == key && sameText(slot.text + slot.nameAt, key.name, key.nameSize) &&
               (key.labelSize == 0 || sameText(slot.text + slot.labelAt, key.label, key.labelSize));
    }
    // Makes the head in the first slot of the pair, the head there moving to the second.
    std::string_view makeIn(Slot* pair, const Key& key, const ParameterHead& head);
    static bool make(Slot& slot, const Key& key, const ParameterHead& head);

    // Only the keys are set; a slot's text is written when its head is made.
    std::unique_ptr<Slot[]> slots{new Slot[slotCount]};
};

}  // namespace TalvexCore

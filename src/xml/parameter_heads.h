// ParameterHeads: the text of a parameter up to its value, made once and copied from then on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace TalvexCore {

// A parameter form: the opening up to the name's value, the handler up to the list type's value,
// and a number that tells the form from every other.
struct HeadForm {
    std::string_view opening;
    std::string_view handler;
    uint8_t code = 0;
};

// What a parameter's head is made of: its indentation, its form, the name, "none", the label (the
// name when none is given) and, for a value on the same line, the value's indentation and tag.
struct ParameterHead {
    const HeadForm& form;
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
    [[gnu::always_inline]] std::string_view find(const ParameterHead& head)
    {
        // Sizes and depth beyond sixteen bits make no head that fits; such heads are not kept.
        if ((head.name.size() | head.label.size() | static_cast<uint32_t>(head.depth)) > 0xFFFFu) return {};
        const Key key{head.name.data(), head.label.data(),
                      head.name.size() | (head.label.size() << 16) | (uint64_t{static_cast<uint32_t>(head.depth)} << 32) |
                          (uint64_t{head.form.code} << 48) | (uint64_t{head.isUserData} << 56) |
                          (uint64_t{head.withValue} << 57)};
        const uint64_t hash = (reinterpret_cast<uintptr_t>(key.name) + (reinterpret_cast<uintptr_t>(key.label) << 7)) ^
                              (key.shape * 0xC2B2AE3D27D4EB4Full);
        static_assert(slotCount == 1u << (64 - 54));
        Slot* const pair = &slots[((hash * 0x9E3779B97F4A7C15ull) >> 54) & ~uint64_t(1)];
        if (holds(pair[0], key, head)) return {pair[0].text, pair[0].size};
        if (holds(pair[1], key, head)) return {pair[1].text, pair[1].size};
        return makeIn(pair, key, head);
    }

private:
    // Pairs of slots: a head lives in either slot of its pair; a new head goes first, the one it
    // displaces second.
    static constexpr std::size_t slotCount = 1024;
    // What a kept head was made from: where its name and label lie, and its shape: their sizes, the
    // depth, the form and the marks (user data, value behind), packed in one word.
    struct Key {
        const char* name = nullptr;
        const char* label = nullptr;
        uint64_t shape = ~uint64_t{0};  // no head has this shape: not made yet
        bool operator==(const Key&) const = default;
    };
    struct Slot {
        Key key;
        uint16_t nameAt = 0;
        uint16_t labelAt = 0;
        uint16_t size = 0;
        char text[textRoom];
    };
    // Names are short: compared eight bytes at a time, the last eight overlapping, with no call;
    // below eight, four and four.
    [[gnu::always_inline]] static bool sameText(const char* kept, const char* given, std::size_t size)
    {
        if (size < 8) {
            if (size < 4) {
                for (std::size_t i = 0; i < size; ++i)
                    if (kept[i] != given[i]) return false;
                return true;
            }
            uint32_t a, b, c, d;
            std::memcpy(&a, kept, 4);
            std::memcpy(&b, given, 4);
            std::memcpy(&c, kept + size - 4, 4);
            std::memcpy(&d, given + size - 4, 4);
            return ((a ^ b) | (c ^ d)) == 0;
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
    [[gnu::always_inline]] static bool holds(const Slot& slot, const Key& key, const ParameterHead& head)
    {
        return slot.key == key && sameText(slot.text + slot.nameAt, head.name.data(), head.name.size()) &&
               (head.label.empty() || sameText(slot.text + slot.labelAt, head.label.data(), head.label.size()));
    }
    // Makes the head in the first slot of the pair, the head there moving to the second.
    std::string_view makeIn(Slot* pair, const Key& key, const ParameterHead& head);
    static bool make(Slot& slot, const Key& key, const ParameterHead& head);

    // Only the keys are set; a slot's text is written when its head is made.
    std::unique_ptr<Slot[]> slots{new Slot[slotCount]};
};

}  // namespace TalvexCore

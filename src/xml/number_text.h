// The text of numbers in asset XML, the same in every locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace TalvexCore {

// At most six significant digits, fixed or exponent form as %g picks, with an exponent of at
// least three digits: 0.5, 1, 1.23457e+006, 1e-005.
std::string formatFloat(double value);
// The same text written at `out`, which has room for floatTextSize bytes; answers its length.
inline constexpr std::size_t floatTextSize = 48;
std::size_t formatFloat(char* out, double value);
void appendFloat(std::u16string& out, double value);
void appendFloat(std::string& out, double value);
void appendInt(std::u16string& out, int32_t value);
void appendInt(std::string& out, int32_t value);

// Texts of floats already written, kept by their bits: most values of a document recur (0, 1, the
// defaults), and copying a kept text is cheaper than formatting it again. One table per thread.
class FloatTexts {
public:
    static constexpr std::size_t textRoom = 16;  // the longest text, "-1.23457e-045", and more

    static FloatTexts& ofThisThread();
    // The text of `value` at `out`, which has room for textRoom bytes; answers its length.
    std::size_t write(char* out, float value)
    {
        uint32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        Slot& slot = slots[(bits * 0x9E3779B1u) >> (32 - slotBits)];
        if (slot.size == 0 || slot.bits != bits) make(slot, bits, value);
        std::memcpy(out, slot.text, textRoom);
        return slot.size;
    }

private:
    static constexpr unsigned slotBits = 8;
    struct Slot {
        uint32_t bits = 0;
        uint32_t size = 0;  // 0: empty
        char text[textRoom];
    };
    static void make(Slot& slot, uint32_t bits, float value);

    Slot slots[std::size_t{1} << slotBits];
};

}  // namespace TalvexCore

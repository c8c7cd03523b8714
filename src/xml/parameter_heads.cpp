#include "xml/parameter_heads.h"

#include <cstring>

namespace TalvexCore {

namespace {

// ASCII other than zero, which every writer prints as it stands.
bool plainAscii(std::string_view text)
{
    for (const char c : text)
        if (static_cast<unsigned char>(c - 1) >= 0x7F) return false;
    return true;
}

}  // namespace

ParameterHeads& ParameterHeads::ofThisThread()
{
    thread_local ParameterHeads heads;
    return heads;
}

std::string_view ParameterHeads::makeIn(Slot* pair, const Key& key, const ParameterHead& head)
{
    pair[1] = pair[0];
    if (!make(pair[0], key, head)) return {};
    return {pair[0].text, pair[0].size};
}

bool ParameterHeads::make(Slot& slot, const Key& key, const ParameterHead& head)
{
    slot.key = Key{};
    if (head.depth < 0 || head.name.empty() || !plainAscii(head.name) || !plainAscii(head.label)) return false;
    const std::string_view label = head.label.empty() ? head.name : head.label;
    const std::string_view labelOpening = head.isUserData ? "\" isUserData=\"1\" label=\"" : "\" label=\"";
    const std::size_t indent = 2 * static_cast<std::size_t>(head.depth);
    const std::size_t size = indent + head.form.opening.size() + head.name.size() + head.form.handler.size() + 4 +
                             labelOpening.size() + label.size() + 3 + (head.withValue ? indent + 2 + 7 : 0);
    if (size > textRoom) return false;

    char* out = slot.text;
    const auto append = [&out](std::string_view text) {
        std::memcpy(out, text.data(), text.size());
        out += text.size();
    };
    const auto blanks = [&out](std::size_t count) {
        std::memset(out, ' ', count);
        out += count;
    };
    blanks(indent);
    append(head.form.opening);
    slot.nameAt = static_cast<uint16_t>(out - slot.text);
    append(head.name);
    append(head.form.handler);
    append("none");
    append(labelOpening);
    slot.labelAt = static_cast<uint16_t>(out - slot.text);
    append(label);
    append("\">\n");
    if (head.withValue) {
        blanks(indent + 2);
        append("<value>");
    }
    slot.size = static_cast<uint16_t>(out - slot.text);
    slot.key = key;
    return true;
}

}  // namespace TalvexCore

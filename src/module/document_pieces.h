// DocumentPieces: a document taken from the writer in pieces of about a mebibyte, so that a large
// document is held about once, never with the slack and the copies of a string that doubles.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace TalvexCore {

class DocumentPieces {
public:
    static constexpr std::size_t pieceSize = std::size_t(1) << 20;

    // The writer's flush sink: once the text has grown to a piece, it is taken whole (every bit of
    // it when `last`), and the writer goes on in a fresh string. The writer flushes between
    // operations, so a piece never parts a character.
    void take(std::string& text, bool last = false);

    const std::vector<std::string>& pieces() const { return taken; }
    std::vector<std::string>& pieces() { return taken; }
    std::size_t size() const { return total; }
    // The whole document in one string; each piece is freed as soon as it is copied.
    std::string join();

private:
    std::vector<std::string> taken;
    std::size_t total = 0;
};

}  // namespace TalvexCore

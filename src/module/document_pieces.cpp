#include "module/document_pieces.h"

namespace TalvexCore {

void DocumentPieces::take(std::string& text, bool last)
{
    if (text.empty() || (!last && text.size() < pieceSize)) return;
    total += text.size();
    taken.push_back(std::move(text));
    text = std::string();
    // Room for a piece and the asset that ends it, so that the string seldom grows.
    if (!last) text.reserve(pieceSize + pieceSize / 4);
}

std::string DocumentPieces::join()
{
    if (taken.size() == 1) {
        std::string whole = std::move(taken.front());
        taken.clear();
        total = 0;
        return whole;
    }
    std::string whole;
    whole.reserve(total);
    for (std::string& piece : taken) {
        whole += piece;
        std::string().swap(piece);
    }
    taken.clear();
    total = 0;
    return whole;
}

}  // namespace TalvexCore

#ifndef ZO_TESSERA_TESTS_PARSING_PIECEBUFFER_H
#define ZO_TESSERA_TESTS_PARSING_PIECEBUFFER_H

#include <algorithm>
#include <functional>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

/// Shows one piece of text at a time as being at hand, as a socket or a terminal does. At an empty
/// piece, and after the last one, nothing is at hand; asked again, it goes on behind the empty one.
class PieceBuffer : public std::streambuf {
public:
    explicit PieceBuffer(std::vector<std::string> pieces) : m_pieces(std::move(pieces)) {}

    /// The numbers of characters that readers asked for.
    std::vector<std::streamsize> asked;
    /// What is told of the characters at hand after the last piece: 0 for none yet, -1 for never.
    std::streamsize atHandAfterAll = 0;
    /// Called, when set, each time a reader finds that all pieces are read.
    std::function<void()> afterAll;

protected:
    std::streamsize showmanyc() override {
        if (m_piece == m_pieces.size()) {
            if (afterAll) {
                afterAll();
            }
            return atHandAfterAll;
        }
        if (m_pieces[m_piece].empty()) {
            ++m_piece;
            return 0;
        }
        return static_cast<std::streamsize>(m_pieces[m_piece].size());
    }

    std::streamsize xsgetn(char* to, std::streamsize count) override {
        asked.push_back(count);
        std::string& piece = m_pieces.at(m_piece);
        const size_t given = piece.copy(to, static_cast<size_t>(count));
        piece.erase(0, given);
        if (piece.empty()) {
            ++m_piece;
        }
        return static_cast<std::streamsize>(given);
    }

private:
    std::vector<std::string> m_pieces;
    size_t m_piece = 0;
};

#endif

#ifndef ZO_TESSERA_FUZZ_INPUT_H
#define ZO_TESSERA_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// An input of the fuzzer: a JSON text and, behind its last zero byte, a script for what is done
/// with it. A plain JSON file is an input with an empty script.
struct Input {
    Input(const uint8_t* data, size_t size) : m_text(reinterpret_cast<const char*>(data), size) {
        const size_t end = m_text.rfind('\0');
        if (end != std::string_view::npos) {
            m_script = m_text.substr(end + 1);
            m_text = m_text.substr(0, end);
        }
    }

    /// The byte of the script at `place`, or 0 behind its end: none in it is.
    size_t scripted(size_t place) const {
        return place < m_script.size() ? static_cast<unsigned char>(m_script[place]) : 0;
    }

    std::string_view m_text;
    std::string_view m_script;
};

/// The text in pieces of the lengths that the script gives from `place` on, over and over: of one
/// byte each when it gives none. The greatest byte stands for an empty piece before one of a byte.
inline std::vector<std::string_view> inPieces(const Input& input, size_t place) {
    constexpr size_t emptyPiece = 255;
    std::vector<std::string_view> pieces;
    size_t next = place;
    for (size_t begin = 0; begin < input.m_text.size();) {
        size_t length = input.scripted(next++);
        if (length == 0) {
            next = place + 1;
            length = input.scripted(place);
        }
        if (length == 0 || length == emptyPiece) {
            if (length == emptyPiece) {
                pieces.push_back(input.m_text.substr(begin, 0));
            }
            length = 1;
        }
        pieces.push_back(input.m_text.substr(begin, length));
        begin += pieces.back().size();
    }
    return pieces;
}

#endif

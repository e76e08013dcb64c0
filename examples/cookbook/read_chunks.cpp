// Reads a document whose text arrives in chunks, such as from a network.

#include <functional>
#include <iostream>
#include <istream>
#include <queue>
#include <streambuf>
#include <string>
#include <utility>

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

/// Asks for the next chunk when the last one is used up. An empty one is the end of the text.
class ChunkBuffer : public std::streambuf {
public:
    explicit ChunkBuffer(std::function<std::string()> next) : m_next(std::move(next)) {}

protected:
    int_type underflow() override {
        m_chunk = m_next();
        setg(m_chunk.data(), m_chunk.data(), m_chunk.data() + m_chunk.size());
        return m_chunk.empty() ? traits_type::eof() : traits_type::to_int_type(*gptr());
    }

private:
    std::function<std::string()> m_next;
    std::string m_chunk;
};

}  // namespace

int main() {
    std::queue<std::string> network({R"({"title": "Cu)", R"(p", "price": 1.)", "50}"});
    const auto receive = [&network] {
        std::string chunk;
        if (!network.empty()) {
            chunk.swap(network.front());
            network.pop();
        }
        return chunk;
    };

    ChunkBuffer buffer(receive);
    std::istream in(&buffer);
    const Dom document = readDocument(in);
    writeDocument(std::cout, document);
}

#include <zo/Tessera/readDocument.h>

#include <cerrno>
#include <cstdio>
#include <istream>
#include <memory>
#include <string>

#include <zo/Tessera/Exception.h>

#include "documents/DocumentReader.h"
#include "support/errorText.h"

namespace zo::Tessera {

namespace {

constexpr size_t k_pieceLength = size_t{64} * 1024;

[[noreturn]] void refuseSource(const std::string& message) {
    throw ParseException(message, -1, -1, -1, -1);
}

/// Reads all that `readPiece(data, length)` gives, which is less than asked for at the end only.
template <class ReadPiece>
Dom readPieces(DocumentReader& reader, const ReadPiece& readPiece) {
    std::string text;  // what is read and not parsed yet
    bool atEnd = false;
    while (!atEnd) {
        const size_t kept = text.size();
        text.resize(kept + k_pieceLength);
        const size_t length = readPiece(text.data() + kept, k_pieceLength);
        text.resize(kept + length);
        atEnd = length < k_pieceLength;
        if (atEnd || text.size() >= reader.amountAtOnce()) {
            text.erase(0, reader.read(text, atEnd));
        }
    }
    return reader.finish();
}

/// While it lives, a stream does not throw because its end was reached.
class EndIsNoFailure {
public:
    explicit EndIsNoFailure(std::istream& in) : m_in(in), m_exceptions(in.exceptions()) {
        m_in.exceptions(m_exceptions & std::ios::badbit);
    }
    EndIsNoFailure(const EndIsNoFailure&) = delete;
    EndIsNoFailure& operator=(const EndIsNoFailure&) = delete;
    ~EndIsNoFailure() {
        try {
            m_in.exceptions(m_exceptions);
        } catch (const std::ios::failure&) {
            // They are set. That they find the stream at its end is what was asked for.
        }
    }

private:
    std::istream& m_in;
    std::ios::iostate m_exceptions;
};

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

Dom readDocument(std::string_view text, const ReadOptions& options) {
    DocumentReader reader(options, std::string());
    reader.read(text, true);
    return reader.finish();
}

Dom readDocument(std::istream& in, const ReadOptions& options) {
    if (in.fail()) {
        refuseSource("Cannot read the stream");
    }
    const EndIsNoFailure scope(in);
    DocumentReader reader(options, std::string());
    return readPieces(reader, [&in](char* data, size_t length) {
        in.read(data, static_cast<std::streamsize>(length));
        if (in.bad()) {
            refuseSource("Cannot read the stream");
        }
        if (in.eof()) {
            in.clear(std::ios::eofbit);
        }
        return static_cast<size_t>(in.gcount());
    });
}

Dom readDocumentFile(const std::filesystem::path& file, const ReadOptions& options) {
    const std::string name = file.string();
    const auto refuseFile = [&name](int error) {
        refuseSource("Cannot read \"" + name + "\": " + errorText(error));
    };
    if (name.find('\0') != std::string::npos) {
        refuseFile(EINVAL);
    }
    DocumentReader reader(options, name);
    const std::unique_ptr<std::FILE, FileCloser> stream(std::fopen(name.c_str(), "rbe"));
    if (!stream) {
        refuseFile(errno);
    }
    return readPieces(reader, [&](char* data, size_t length) {
        const size_t read = std::fread(data, 1, length, stream.get());
        if (std::ferror(stream.get()) != 0) {
            refuseFile(errno);
        }
        return read;
    });
}

}  // namespace zo::Tessera

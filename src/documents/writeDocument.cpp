#include <zo/Tessera/writeDocument.h>

#include <ostream>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "documents/documentText.h"
#include "documents/replaceFile.h"

namespace zo::Tessera {

namespace {

std::ostream& put(std::ostream& out, const std::string& text) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    // A stream at its end takes nothing either, and some say no more of it.
    if (!out.good()) {
        throw Exception("The stream failed while a document was written");
    }
    return out;
}

}  // namespace

std::ostream& writeDocument(std::ostream& out, const Dom& document, const WriteOptions& options) {
    return put(out, writeDocument(document, options));
}

std::ostream& writeDocument(std::ostream& out, const Element& root, const WriteOptions& options) {
    return put(out, writeDocument(root, options));
}

std::string writeDocument(const Dom& document, const WriteOptions& options) {
    const Element* const root = document.root();
    if (!root) {
        throw Exception("Cannot write a document without a root");
    }
    const bool includeMeta = options.includeMeta.value_or(document.includeMeta());
    return documentText(*root, options, includeMeta ? nullptr : &document.metaKey());
}

std::string writeDocument(const Element& root, const WriteOptions& options) {
    return documentText(root, options);
}

void writeDocumentFile(const std::filesystem::path& file, const Dom& document,
                       const WriteOptions& options) {
    replaceFile(file, writeDocument(document, options));
}

void writeDocumentFile(const std::filesystem::path& file, const Element& root,
                       const WriteOptions& options) {
    replaceFile(file, writeDocument(root, options));
}

}  // namespace zo::Tessera

// Writes a document compactly, and in other layouts.

#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    const Dom document = readDocument(R"({"title": "Größe", "sizes": [1, 2.50, 3], "done": true})");

    WriteOptions compact;
    compact.compact = true;
    writeDocument(std::cout, document, compact);

    // As a text to send, without a line break behind it.
    compact.finalNewline = false;
    compact.escapeNonAscii = true;
    const std::string text = writeDocument(document, compact);
    std::cout << '<' << text << ">\n";

    // To be read by people.
    WriteOptions tidy;
    tidy.indent = "  ";
    tidy.shortArrayWidth = 40;
    tidy.sortKeys = true;
    writeDocument(std::cout, document, tidy);

    // A part of it.
    writeDocument(std::cout, document.root()->get("sizes"), tidy);
}

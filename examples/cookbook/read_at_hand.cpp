// Reads what standard input has at hand, and waits for no more.

#include <iostream>

#include <zo/Tessera.h>

#include "standardInput.h"

using namespace zo::Tessera;

int main() {
    std::ios::sync_with_stdio(false);  // before anything is read or written
    pipeIntoStandardInput(R"({"title": "Cup", "tags": ["new")");

    // Beware: that the text is not whole raises nothing.
    Dom document;
    std::cin >> document;
    writeDocument(std::cout, document);
}

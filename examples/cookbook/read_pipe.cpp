// Reads a document from standard input, which is a pipe.

#include <iostream>

#include <zo/Tessera.h>

#include "standardInput.h"

using namespace zo::Tessera;

int main() {
    pipeIntoStandardInput(R"({"title": "Cup", "price": 1.50})");

    // Beware: tied to stdio, as it is at first, std::cin has nothing at hand.
    Dom nothing;
    std::cin >> nothing;
    std::cout << ">> has read " << (nothing.root() == nullptr ? "nothing" : "something") << '\n';

    // This reads to the end, and waits for what is still to come.
    const Dom document = readDocument(std::cin);
    writeDocument(std::cout, document);
}

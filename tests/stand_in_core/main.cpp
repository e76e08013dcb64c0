// Uses what the core library offers, through Tessera and beside it.

#include <iostream>

#include <zo/DecNumber.h>
#include <zo/Exception.h>
#include <zo/Tessera.h>

#include "applicationCore.h"

using namespace zo::Tessera;

int main() {
    std::cout << coreName() << '\n';
    const Dom document = readDocument(R"({"price": 1.50})");
    document.root()->get("price").getNumberValue().value().toDecNumber().writeTo(std::cout);
    std::cout << '\n';
    try {
        readDocument("[1,");
    } catch (const zo::Exception& error) {
        std::cout << error.what() << '\n';
    }
}

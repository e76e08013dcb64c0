// Reads, makes, compares and writes numbers without losing a digit.

#include <iostream>
#include <string>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

const BasicNumber& numberAt(const Element& root, const Path& path) {
    return root.get(path).getNumberValue().value();
}

zo::DecNumber decimalAt(const Element& root, const Path& path) {
    return zo::DecNumber(numberAt(root, path).as<std::string>());
}

}  // namespace

int main() {
    Dom document = readDocument(R"({
        "id": 9007199254740993,
        "price": 1.10,
        "pi": 3.141592653589793238462643383279502884197
    })");
    Element& root = *document.root();

    // A type gets the value if it has it, and nothing else.
    std::cout << root.get("id").as<long long>() << '\n';
    if (!root.get("price").tryAs<int>()) {
        std::cout << "the price is not whole\n";
    }

    // The text has every digit.
    std::cout << numberAt(root, "pi").as<std::string>() << '\n';

    // A number made of text has any digits that you like.
    BasicNumber fee;
    fee.set("0.100000000000000000000000000001");
    root.set("fee", value(fee));

    // A number made of a double: the fewest digits that read back to it.
    root.set("third", exactValue(1.0 / 3));
    std::cout << numberAt(root, "third").toString() << ", not "
              << value(1.0 / 3)->getNumberValue().value().toString() << '\n';

    // Exact comparison. As doubles the two would be equal.
    const bool isMore = decimalAt(root, "fee").compare(zo::DecNumber("0.1")) > 0;
    std::cout << "the fee is " << (isMore ? "more than 0.1" : "0.1 at most") << '\n';

    writeDocument(std::cout, document);
}

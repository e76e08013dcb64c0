// Handles each kind of error by its class.

#include <iostream>
#include <string>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

/// Runs what throws. The classes further down are the bases of those above them.
template <class Action>
void attempt(const Action& action) {
    try {
        action();
    } catch (const ParseException& error) {
        std::cout << "line " << error.line() << ", column " << error.column() << ':'
                  << error.message() << '\n';
    } catch (const PathNotFound& error) {
        std::cout << '"' << *error.elementPath() << "\" has no " << error.key() << " of "
                  << error.path() << '\n';
    } catch (const TypeException<EType>& error) {
        std::cout << '"' << *error.elementPath() << "\" is of kind " << error.found() << ", not "
                  << error.requested() << '\n';
    } catch (const ValueOutOfRange<BasicNumber, int>& error) {
        std::cout << error.value().as<std::string>() << " is no whole number from " << error.min()
                  << " to " << error.max() << '\n';
    } catch (const zo::Tessera::Exception& error) {
        std::cout << error.what() << '\n';
    } catch (const zo::Exception& error) {
        std::cout << "of the core library: " << error.what() << '\n';
    }
}

}  // namespace

int main() {
    Dom document = readDocument(R"({"name": "Ada", "age": 36.5, "tags": []})");
    Element& root = *document.root();

    attempt([] { readDocument("{\"name\":\n }"); });
    attempt([&] { root.get("name..first"); });
    attempt([&] { root.get("tags[0].text"); });
    attempt([&] { root.get("name").as<int>(); });
    attempt([&] { root.get("age").as<int>(); });
    attempt([&] { root.at("size"); });
    attempt([] { writeDocument(*value("\xFF")); });
    attempt([] { zo::DecNumber("ten"); });
}

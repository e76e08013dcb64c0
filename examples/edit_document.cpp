// Reads a JSON document, looks into it, changes it, writes it back, and proves that nothing was
// lost on the way.
//
//     edit_document [INPUT [OUTPUT]]
//
// Without INPUT it takes the document that stands beside this program's source; without OUTPUT it
// writes to standard output. Any document will do whose root is an object or an array that holds
// something.

#include <zo/Tessera.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace zo::Tessera;

namespace {

constexpr const char* k_newNumber = "20.260";

/// The children of an array or an object; none of a scalar.
std::vector<Element*> childrenOf(Element& element) {
    std::vector<Element*> children;
    if (element.type() == etArray) {
        children.assign(element.getArrayValue().begin(), element.getArrayValue().end());
    } else if (element.type() == etObject) {
        for (const auto& member : element.getObjectValue()) {
            children.push_back(member.second);
        }
    }
    return children;
}

/// Every element of the tree in document order, the root first.
std::vector<Element*> allElements(Element& root) {
    std::vector<Element*> all;
    std::vector<Element*> waiting{&root};
    while (!waiting.empty()) {
        Element* const element = waiting.back();
        waiting.pop_back();
        all.push_back(element);
        const std::vector<Element*> children = childrenOf(*element);
        waiting.insert(waiting.end(), children.rbegin(), children.rend());
    }
    return all;
}

/// The exact text of each number, in document order.
std::vector<std::string> numberTexts(Element& root) {
    std::vector<std::string> texts;
    for (Element* element : allElements(root)) {
        if (element->type() == etNumber) {
            texts.push_back(element->getNumberValue().value().toString());
        }
    }
    return texts;
}

std::string textOf(const Dom& document) {
    std::ostringstream out;
    out << document;
    return out.str();
}

bool equalTrees(const Dom& left, const Dom& right) {
    try {
        return left == right;
    } catch (const ValueOutOfRange<std::string, std::string>&) {
        // Integers of 20 digits are not comparable as numbers; their texts are.
        return textOf(left) == textOf(right);
    }
}

Dom readDocument(std::istream& in) {
    Dom document;
    in >> document;
    if (!document.root()) {
        throw std::runtime_error("there is no document in the input");
    }
    return document;
}

/// Shows kinds and sizes, four levels and eight children of each.
void showShape(Element& element, const std::string& indent) {
    constexpr size_t deepest = 6;
    constexpr size_t widest = 8;
    std::cout << indent << (element.parent() ? element.key() : "(root)") << ": " << element.type();
    const std::vector<Element*> children = childrenOf(element);
    if (!children.empty()) {
        std::cout << ", " << children.size() << " inside";
    }
    std::cout << '\n';
    for (size_t i = 0; i < children.size() && indent.size() < deepest; ++i) {
        if (i == widest) {
            std::cout << indent << "  ... and " << children.size() - widest << " more\n";
            break;
        }
        showShape(*children[i], indent + "  ");
    }
}

/// Changes the first string and the first number of the document. Returns whether it has a number.
bool changeValues(Element& root) {
    bool stringChanged = false;
    for (Element* element : allElements(root)) {
        const std::string path = element->path(nullptr);
        if (element->type() == etString && !stringChanged) {
            std::string& text = *element;
            std::cout << path << ": \"" << text << '"';
            text += " (checked)";
            std::cout << " becomes \"" << text << "\"\n";
            stringChanged = true;
        } else if (element->type() == etNumber) {
            BasicNumber changed;
            changed.set(k_newNumber);
            std::cout << path << ": " << element->getNumberValue().value().toString();
            element->setNumberValue(changed);
            std::cout << " becomes " << changed.toString() << '\n';
            return true;
        }
    }
    return false;
}

/// Adds a note, as a member of an object or an item of an array, and replaces a member inside of
/// it. Returns the note's path.
Path addNote(Element& root) {
    const Path place = root.type() == etObject ? "edit_document" : "[*]";
    Path note = root.tryUpdate(place, object()).path(nullptr);
    root.tryUpdate(note + ".checked.by", value("edit_document"));
    root.tryUpdate(note + ".reviewed", value());
    std::cout << note << ": added, with " << root.get(note).size() << " members\n";

    Element::createBoolean(true, &root.get(note), "reviewed");
    const bool reviewed = root.get(note + ".reviewed");
    std::cout << note << ": its member \"reviewed\" replaced by " << std::boolalpha << reviewed
              << '\n';
    return note;
}

/// Nothing converts between kinds: the exception says which element is meant, and what it is.
void showWrongKind(Element& root) {
    for (Element* element : allElements(root)) {
        const EType kind = element->type();
        if (kind == etBoolean || kind == etNumber || kind == etString) {
            try {
                std::cout << element->getArrayValue().size() << '\n';
            } catch (const TypeException<EType>& error) {
                std::cout << error.what() << '\n';
            }
            return;
        }
    }
}

/// Whether the text reads back to an equal tree whose numbers have the texts that are expected.
bool provesLossless(const std::string& text, const Dom& document, const Path& note,
                    const std::vector<std::string>& expectedNumbers) {
    std::istringstream in(text);
    Dom again = readDocument(in);
    const bool equal = equalTrees(again, document);
    const bool numbersKept = numberTexts(*again.root()) == expectedNumbers;
    const std::string& checker = again.root()->get(note + ".checked.by");
    std::cout << "reading it again gives an equal tree: " << (equal ? "yes" : "NO") << '\n'
              << "numbers with the text they had or were given: "
              << (numbersKept ? "all of " : "NOT all of ") << expectedNumbers.size() << '\n'
              << note << ".checked.by: \"" << checker << "\"\n";
    return equal && numbersKept;
}

bool editDocument(std::istream& in, std::ostream& out) {
    Dom document = readDocument(in);
    Element& root = *document.root();
    if (childrenOf(root).empty()) {
        throw std::runtime_error("the root must be an object or an array that holds something");
    }
    std::vector<std::string> numbers = numberTexts(root);

    std::cout << "--- shape\n";
    showShape(root, "");
    std::cout << "--- a wrong kind asked for\n";
    showWrongKind(root);
    std::cout << "--- changes\n";
    if (changeValues(root)) {
        numbers.front() = k_newNumber;
    }
    const Path note = addNote(root);

    std::cout << "--- written back\n" << std::flush;
    const std::string text = textOf(document);
    out << text << std::flush;
    if (!out) {
        throw std::runtime_error("cannot write the output");
    }
    std::cout << "--- proof\n";
    return provesLossless(text, document, note, numbers);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const std::string inputName = argc > 1 ? argv[1] : EXAMPLE_DOCUMENT;
        std::ifstream input(inputName);
        if (!input) {
            throw std::runtime_error("cannot open " + inputName);
        }
        if (argc <= 2) {
            return editDocument(input, std::cout) ? 0 : 1;
        }
        std::ofstream output(argv[2]);
        return editDocument(input, output) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "edit_document: " << error.what() << '\n';
        return 1;
    }
}

// Reads a JSON document, looks into it, changes it, writes it back, and proves that nothing was
// lost on the way.
//
//     edit_document [INPUT [OUTPUT]]
//
// Without INPUT it takes the document that stands beside this program's source; without OUTPUT it
// writes to standard output. Any document will do whose root is an object or an array that holds
// something.

#include <zo/Tessera.h>

#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace zo::Tessera;

namespace {

constexpr const char* k_newNumber = "20.260";

bool isContainer(const Element& element) {
    return element.type() == etObject || element.type() == etArray;
}

/// The exact text of each number, in document order.
std::vector<std::string> numberTexts(const Element& root) {
    std::vector<std::string> texts;
    visit(root, [&](const Element& element, const Path&) {
        if (element.type() == etNumber) {
            texts.push_back(element.getNumberValue().value().as<std::string>());
        }
        return evGoOn;
    });
    return texts;
}

/// Shows kinds and sizes, four levels and eight children of each.
void showShape(const Element& root) {
    constexpr size_t deepest = 4;
    constexpr size_t widest = 8;
    std::vector<size_t> seen{0};  // the children so far, of each container around
    const auto enter = [&](const Element& element, const Path&) {
        const std::string indent(2 * (seen.size() - 1), ' ');
        const size_t place = seen.back()++;
        seen.push_back(0);
        if (place >= widest) {
            std::cout << (place == widest ? indent + "...\n" : "");
            return evSkip;
        }
        std::cout << indent << (element.parent() ? element.key() : "(root)") << ": "
                  << element.type();
        if (isContainer(element)) {
            std::cout << ", " << element.size() << " inside";
        }
        std::cout << '\n';
        return seen.size() <= deepest ? evGoOn : evSkip;
    };
    visit(root, enter, [&](const Element&, const Path&) {
        seen.pop_back();
        return evGoOn;
    });
}

/// Nothing converts between kinds: the exception says which element is meant, and what it is.
void showWrongKind(const Element& root) {
    visit(root, [](const Element& element, const Path&) {
        if (isContainer(element) || element.type() == etNull) {
            return evGoOn;
        }
        try {
            std::cout << element.getArrayValue().size() << '\n';
        } catch (const TypeException<EType>& error) {
            std::cout << error.what() << '\n';
        }
        return evStop;
    });
}

/// Changes the first string and the first number of the document. Returns whether it has a number.
bool changeValues(Element& root) {
    bool stringChanged = false;
    const bool walkedAll = visit(root, [&](Element& element, const Path& path) {
        if (element.type() == etString && !stringChanged) {
            std::string& text = element.getStringValue().value();
            std::cout << path << ": \"" << text << '"';
            text += " (checked)";
            std::cout << " becomes \"" << text << "\"\n";
            stringChanged = true;
        } else if (element.type() == etNumber) {
            BasicNumber& number = element.getNumberValue().value();
            std::cout << path << ": " << number.as<std::string>();
            number.set(k_newNumber);
            std::cout << " becomes " << number.as<std::string>() << '\n';
            return evStop;
        }
        return evGoOn;
    });
    return !walkedAll;
}

/// Adds a note, as a member of an object or an item of an array, and replaces a member inside of
/// it. Returns the note's path.
Path addNote(Element& root) {
    const Path place = root.type() == etObject ? "edit_document" : "[*]";
    Element& note = root.set(place, object());
    note.set("checked.by", value("edit_document"));
    note.set("reviewed", value());
    std::cout << note.path(nullptr) << ": added, with " << note.size() << " members\n";

    note.set("reviewed", value(true));
    std::cout << note.path(nullptr) << ": its member \"reviewed\" replaced by " << std::boolalpha
              << note.get("reviewed").as<bool>() << '\n';
    return note.path(nullptr);
}

/// Whether the text reads back to the same document, whose numbers have the texts that are
/// expected.
bool provesLossless(const std::string& text, const Path& note,
                    const std::vector<std::string>& expectedNumbers) {
    const Dom again = readDocument(text);
    const bool same = writeDocument(again) == text;
    const bool numbersKept = numberTexts(*again.root()) == expectedNumbers;
    std::cout << "reading it again gives the same document: " << (same ? "yes" : "NO") << '\n'
              << "numbers with the text they had or were given: "
              << (numbersKept ? "all of " : "NOT all of ") << expectedNumbers.size() << '\n'
              << note << ".checked.by: \""
              << again.root()->get(note + ".checked.by").as<std::string>() << "\"\n";
    return same && numbersKept;
}

/// `output` may be null.
bool editDocument(const char* input, const char* output) {
    Dom document = readDocumentFile(input);
    Element& root = *document.root();
    if (!isContainer(root) || root.size() == 0) {
        throw std::runtime_error("the root must be an object or an array that holds something");
    }
    std::vector<std::string> numbers = numberTexts(root);

    std::cout << "--- shape\n";
    showShape(root);
    std::cout << "--- a wrong kind asked for\n";
    showWrongKind(root);
    std::cout << "--- changes\n";
    if (changeValues(root)) {
        numbers.front() = k_newNumber;
    }
    const Path note = addNote(root);

    std::cout << "--- written back\n";
    if (output != nullptr) {
        writeDocumentFile(output, document);
    } else {
        writeDocument(std::cout, document);
    }
    std::cout << "--- proof\n";
    return provesLossless(writeDocument(document), note, numbers);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const char* const input = argc > 1 ? argv[1] : EXAMPLE_DOCUMENT;
        const char* const output = argc > 2 ? argv[2] : nullptr;
        return editDocument(input, output) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "edit_document: " << error.what() << '\n';
        return 1;
    }
}

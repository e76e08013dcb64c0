#include "documents/documentText.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/PathGenerator.h>
#include <zo/Tessera/TBasicElement.h>
#include <zo/Tessera/writeDocument.h>

#include "documents/OpenContainer.h"
#include "documents/jsonText.h"
#include "support/utf8Text.h"

namespace zo::Tessera {

namespace {

void checkIndent(const std::string& indent) {
    if (indent.find_first_not_of(" \t") != std::string::npos) {
        throw Exception("Indentation may consist of blanks and tabs only");
    }
}

bool isFilledContainer(const Element& element) {
    switch (element.type()) {
        case etObject: {
            const Object& object = element.getObjectValue();
            return object.begin() != object.end();
        }
        case etArray: {
            const Array& array = element.getArrayValue();
            return array.begin() != array.end();
        }
        default:
            return false;
    }
}

/// What becomes of an element that has no JSON form.
enum ERefusal { rfThrown, rfShown };

/// Lays out a tree without recursion.
class TextBuilder {
public:
    TextBuilder(const WriteOptions& options, const std::string* skippedKey, ERefusal refusal)
        : m_options(options), m_skippedKey(skippedKey), m_refusal(refusal) {}

    std::string build(const Element& root) {
        put(root);
        // All that stands before the open containers' children at hand is written, and these are.
        while (!m_open.empty()) {
            OpenContainer& container = m_open.back();
            const bool more = container.next();
            if (container.start() && (isTooLong(container) || (more && isFilled(container)))) {
                m_text.resize(*container.start() + 1);
                container = container.onManyLines();
            } else if (more) {
                putChild(container);
            } else {
                close();
            }
        }
        if (m_options.finalNewline) {
            m_text += '\n';
        }
        return std::move(m_text);
    }

private:
    /// Whether an array outgrows its line with the bracket that is still to come.
    bool isTooLong(const OpenContainer& array) const {
        return m_text.size() + 1 - *array.start() > m_options.shortArrayWidth;
    }

    static bool isFilled(const OpenContainer& container) {
        return isFilledContainer(container.child());
    }

    void putChild(const OpenContainer& container) {
        const bool first = container.count() == 1;
        if (!first) {
            m_text += ',';
        }
        if (!container.start()) {
            startLine();
        } else if (!first) {
            m_text += ' ';
        }
        if (const std::string* const key = container.key()) {
            putString(*key, container.child(), "the key is not UTF-8");
            m_text += m_options.compact ? ":" : ": ";
        }
        put(container.child());
    }

    void put(const Element& element) {
        switch (element.type()) {
            case etNull:
                m_text += "null";
                break;
            case etBoolean:
                m_text += element.getBooleanValue().value() ? "true" : "false";
                break;
            case etNumber:
                putNumber(element);
                break;
            case etString:
                putString(element.getStringValue().value(), element, "the string is not UTF-8");
                break;
            case etObject:
                open(element.getObjectValue());
                break;
            case etArray:
                open(element.getArrayValue());
                break;
            default:
                refuse(element, "JSON has no such kind of element");
        }
    }

    void putNumber(const Element& element) {
        const std::optional<std::string> text =
            element.getNumberValue().value().tryAs<std::string>();
        if (!text) {
            refuse(element, "JSON has no such number");
        } else if (!isJsonNumber(*text)) {
            refuse(element, "the text \"" + *text + "\" is no JSON number");
        } else {
            m_text += *text;
        }
    }

    void putString(const std::string& text, const Element& element, const char* refusal) {
        if (findInvalidUtf8(text) == std::string::npos) {
            appendJsonString(m_text, text, m_options.escapeNonAscii);
        } else if (m_options.replaceInvalidUtf8) {
            appendJsonString(m_text, withoutInvalidUtf8(text), m_options.escapeNonAscii);
        } else {
            refuse(element, refusal);
        }
    }

    void open(const Object& object) {
        const std::string* const skippedKey = m_open.empty() ? m_skippedKey : nullptr;
        m_open.emplace_back(object, m_options.sortKeys, skippedKey);
        m_text += '{';
    }

    void open(const Array& array) {
        const bool mayBeShort = m_options.shortArrayWidth > 0 && !m_options.compact;
        m_open.emplace_back(array, mayBeShort ? std::optional(m_text.size()) : std::nullopt);
        m_text += '[';
    }

    void close() {
        const OpenContainer container = std::move(m_open.back());
        m_open.pop_back();
        if (container.count() > 0 && !container.start()) {
            startLine();
        }
        m_text += container.keyed() ? '}' : ']';
    }

    void startLine() {
        if (m_options.compact) {
            return;
        }
        const size_t levels = std::min(m_open.size(), WriteOptions::k_deepestIndent);
        const size_t length = 1 + levels * m_options.indent.size();
        while (m_lineStart.size() < length) {
            m_lineStart += m_options.indent;
        }
        m_text.append(m_lineStart, 0, length);
    }

    void refuse(const Element& element, const std::string& reason) {
        if (m_refusal == rfThrown) {
            throw Exception("Cannot write element \"" + pathAtHand() + "\": " + reason, &element);
        }
        m_text += '<' + withoutInvalidUtf8(reason) + '>';
    }

    std::string pathAtHand() const {
        std::string path;
        PathGenerator generator(path);
        for (const OpenContainer& container : m_open) {
            container.writePlace(generator);
        }
        return path;
    }

    const WriteOptions& m_options;
    const std::string* m_skippedKey;
    ERefusal m_refusal;
    std::vector<OpenContainer> m_open;  // from the outermost inward
    std::string m_lineStart = "\n";     // and as many indents as any line had so far
    std::string m_text;
};

}  // namespace

std::string documentText(const Element& root, const WriteOptions& options,
                         const std::string* skippedKey) {
    if (!options.compact) {
        checkIndent(options.indent);
    }
    return TextBuilder(options, skippedKey, rfThrown).build(root);
}

std::string shownText(const Element& root) {
    WriteOptions options;
    options.compact = true;
    options.replaceInvalidUtf8 = true;
    options.finalNewline = false;
    return TextBuilder(options, nullptr, rfShown).build(root);
}

}  // namespace zo::Tessera

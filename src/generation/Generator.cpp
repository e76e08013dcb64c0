#include <zo/Tessera/Generator.h>

#include <exception>
#include <ostream>
#include <sstream>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "containers/Children.h"
#include "generation/YajlGenerator.h"

namespace zo::Tessera {

namespace {

/// Emits trees without recursion.
class TreePrinter {
public:
    explicit TreePrinter(YajlGenerator& generator) : m_generator(generator) {}

    int print(const Element& element) {
        emit(element);
        return finish();
    }

    int print(const Array& array) {
        open(array);
        return finish();
    }

    /// Leaves out the member `skippedKey`, if given, of the object itself.
    int print(const Object& object, const std::string* skippedKey = nullptr) {
        m_skippedKey = skippedKey;
        open(object);
        return finish();
    }

private:
    void emit(const Element& element) {
        switch (element.type()) {
            case etNull:
                m_status = m_generator.null();
                break;
            case etBoolean:
                m_status = m_generator.boolean(element.getBooleanValue().value());
                break;
            case etNumber:
                m_status = m_generator.number(element.getNumberValue().value().text());
                break;
            case etString:
                m_status = m_generator.string(element.getStringValue().value());
                break;
            case etObject:
                open(element.getObjectValue());
                break;
            case etArray:
                open(element.getArrayValue());
                break;
            case etEmpty:
                break;
        }
    }

    void open(const Array& array) {
        m_open.emplace_back(array);
        m_status = m_generator.openArray();
    }

    void open(const Object& object) {
        m_open.emplace_back(object);
        m_status = m_generator.openMap();
    }

    int finish() {
        // All that stands before the open containers' current children is emitted.
        while (!m_open.empty()) {
            Children& children = m_open.back();
            if (children.atEnd()) {
                m_status = children.keyed() ? m_generator.closeMap() : m_generator.closeArray();
                m_open.pop_back();
                continue;
            }
            const Element& child = children.element();
            const std::string* const key = children.keyed() ? &children.key() : nullptr;
            children.advance();
            if (key && isSkipped(*key)) {
                continue;
            }
            if (key) {
                m_status = m_generator.string(*key);
            }
            emit(child);
        }
        return m_status;
    }

    bool isSkipped(const std::string& key) const {
        return m_skippedKey != nullptr && m_open.size() == 1 && key == *m_skippedKey;
    }

    YajlGenerator& m_generator;
    const std::string* m_skippedKey = nullptr;
    std::vector<Children> m_open;  // from the outermost inward
    int m_status = yajl_gen_status_ok;
};

}  // namespace

struct Generator::Private {
    std::string m_indent;  // stays empty; yajl refers to it
    YajlGenerator m_gen{m_indent.c_str()};
};

Generator::Generator(std::ostream* out) : m_out(out), m_private(std::make_unique<Private>()) {
    setIndent("    ");
}

// NOLINTNEXTLINE(bugprone-exception-escape): pending text that nobody can receive is an error.
Generator::~Generator() noexcept(false) {
    try {
        flush();
    } catch (...) {
        if (std::uncaught_exceptions() == 0) {
            throw;
        }
    }
}

void Generator::setIndent(const std::string& indent) {
    m_private->m_gen.setBeautify(!indent.empty());
}

void Generator::flush() {
    YajlGenerator& generator = m_private->m_gen;
    if (generator.hasText()) {
        if (!m_out) {
            throw Exception("Generator: output stream not set!");
        }
        generator.writeText([this](const char* data, size_t length) {
            m_out->write(data, static_cast<std::streamsize>(length));
        });
    }
    generator.clear();
}

int Generator::gen_null() {
    return m_private->m_gen.null();
}

int Generator::gen_bool(bool value) {
    return m_private->m_gen.boolean(value);
}

int Generator::gen_integer(long value) {
    return m_private->m_gen.integer(value);
}

int Generator::gen_double(double value) {
    return m_private->m_gen.real(value);
}

int Generator::gen_number(const BasicNumber& number) {
    return m_private->m_gen.number(number.text());
}

int Generator::gen_string(const std::string& text) {
    return m_private->m_gen.string(text);
}

int Generator::printString(const std::string& text) {
    return gen_string(text);
}

int Generator::gen_object_open() {
    return m_private->m_gen.openMap();
}

int Generator::gen_object_close() {
    return m_private->m_gen.closeMap();
}

int Generator::gen_array_open() {
    return m_private->m_gen.openArray();
}

int Generator::gen_array_close() {
    return m_private->m_gen.closeArray();
}

int Generator::print(const Element& element) {
    return TreePrinter(m_private->m_gen).print(element);
}

int Generator::print(const Dom& dom) {
    const Element* const root = dom.root();
    if (!root) {
        throw Exception("Generator: document has no root!");
    }
    if (root->type() == etObject && !dom.includeMeta()) {
        return TreePrinter(m_private->m_gen).print(root->getObjectValue(), &dom.metaKey());
    }
    return print(*root);
}

int Generator::printObject(const Object& object) {
    return TreePrinter(m_private->m_gen).print(object);
}

int Generator::printArray(const Array& array) {
    return TreePrinter(m_private->m_gen).print(array);
}

template <class Value>
std::ostream& Generator::encodeToStream(std::ostream& out, const Value& value) {
    m_out = &out;
    print(value);
    flush();
    return out;
}

template <class Value>
void Generator::encodeToString(std::string& out, const Value& value) {
    // However this ends, the generator must not refer to the stream that ends here.
    struct Scope {
        std::ostream*& m_stream;
        ~Scope() { m_stream = nullptr; }
    };
    std::ostringstream text(out);
    text.exceptions(std::ios::badbit);
    const Scope scope{m_out};
    encodeToStream(text, value);
    out = text.str();
}

std::ostream& Generator::encode(std::ostream& out, const Dom& dom) {
    return encodeToStream(out, dom);
}

std::ostream& Generator::encode(std::ostream& out, const Element& element) {
    return encodeToStream(out, element);
}

void Generator::encode(std::string& out, const Dom& dom) {
    encodeToString(out, dom);
}

void Generator::encode(std::string& out, const Element& element) {
    encodeToString(out, element);
}

std::string Generator::encode(const Dom& dom) {
    std::string out;
    encodeToString(out, dom);
    return out;
}

std::string Generator::encode(const Element& element) {
    std::string out;
    encodeToString(out, element);
    return out;
}

std::ostream& operator<<(std::ostream& out, const Dom& dom) {
    Generator generator(nullptr);
    return generator.encode(out, dom);
}

}  // namespace zo::Tessera

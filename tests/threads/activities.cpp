#include "threads/activities.h"

#include <locale>
#include <memory>
#include <sstream>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>
#include <zo/convert.h>

#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

std::string convertNumbers() {
    BasicNumber number;
    number.set("65.75");
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << number.toDouble() << ' ' << number.toFloat() << ' ' << number.toChar() << ' '
        << number.toUChar() << ' ' << number.toShort() << ' ' << number.toUShort() << ' '
        << number.toInt() << ' ' << number.toUInt() << ' ' << number.toLong() << ' '
        << number.toULong() << ' ' << number.toLongLong() << ' ' << number.toULongLong();
    number.set(0.1);
    out << ' ' << number.toString() << ' ' << number.compare(0.5) << ' ';
    return number.toDecNumber().writeTo(out).good() ? out.str() : "";
}

/// Takes numbers as the tokeniser converts them.
class Summer : public CallbackParserListener {
public:
    int cb_null() override { return 1; }
    int cb_boolean(bool) override { return 1; }
    int cb_number(const char*, size_t) override { return 0; }
    int cb_string(const char*, size_t) override { return 1; }
    int cb_start_map() override { return 1; }
    int cb_map_key(const char*, size_t) override { return 1; }
    int cb_end_map() override { return 1; }
    int cb_start_array() override { return 1; }
    int cb_end_array() override { return 1; }
    int cb_error(const char*) override { return 0; }
    int cb_integer(long long value) override { return add(static_cast<double>(value)); }
    int cb_double(double value) override { return add(value); }
    bool use_number_callback() override { return false; }

    double sum = 0;

private:
    int add(double value) {
        sum += value;
        return 1;
    }
};

std::string convertWhileParsing() {
    Summer listener;
    std::istringstream in(R"({"a":[1,2.5,-3],"b":1e2, "c":0.25})");
    CallbackParser(&listener).parse(in);
    BasicNumber sum;
    sum.set(zo::DecNumber(listener.sum));
    return sum.toString();
}

std::string editDocument() {
    Dom document;
    std::istringstream in(R"({"name":"Ada","list":[1,2.50,true,null],"none":{}})");
    in >> document;
    Element& root = *document.root();
    root.tryUpdate("name", *value("Grace \xE2\x82\xAC"));
    root.tryUpdate("list[*]", *value(-7));
    root.tryUpdate("made.on.the.way", *value(0.5));
    root.insertElement("own.name", object());
    root.removeElement(*value(1), "", "list");
    const Dom copy(document);
    root.get("name").setStringValue("Ada");
    return compact(*copy.root()) + (copy == document ? " equal" : " different");
}

std::string convertPaths() {
    const std::unique_ptr<Element> root = parsed(
        R"({"meta":{"schema":{"properties":{"a":{"items":{"default":4}}}}},"a":[{"x.y":1}]})");
    const Element& leaf = root->at("a").at(0).at("x.y");
    return Path::toSchemaPath("list[3].x") + " " +
           Path::fromSchemaPath("meta.schema.properties.list.items.properties.x") + " " +
           leaf.path(nullptr) + " " + leaf.schemaPath(nullptr) + " " +
           compact(root->getDefault("a[7]"));
}

BasicNumber numberFrom(const char* text) {
    BasicNumber number;
    number.set(text);
    return number;
}

std::string throwExceptions() {
    const std::unique_ptr<Element> list = parsed("[true]");
    std::ostringstream out;
    out << thrown<Exception>([] { Element::createNull(nullptr); }) << '\n'
        << thrown<TypeException<EType>>([&list] { list->at(0).getArrayValue(); }) << '\n'
        << thrown<ParseException>([] { Path::toSchemaPath("a..b"); }) << '\n'
        << thrown<ValueOutOfRange<std::string, std::string>>([] { numberFrom("1e400").type(); })
        << '\n'
        << thrown<ValueOutOfRange<BasicNumber, short>>([] { numberFrom("70000").toShort(); })
        << '\n'
        << thrown<zo::RuntimeError>([] { zo::DecNumber("no number"); });
    return out.str();
}

std::string missPath() {
    const std::unique_ptr<Element> root = parsed(R"({"a":{"b":[]}})");
    try {
        root->get("a.b[2].c");
    } catch (const PathNotFound& missing) {
        const std::string text = missing.what();
        return *missing.elementPath() + " lacks " + missing.key() + ": " +
               text.substr(0, text.find(" Current element"));
    }
    return "";
}

std::string refuseText() {
    Dom document;
    return thrown<ParseException>([&document] { DomParser().parse(document, "]"); });
}

std::string writeText() {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_array_open();
    generator.gen_integer(-1);
    generator.gen_double(0.5);
    generator.printString("\t\"");
    generator.gen_array_close();
    generator.flush();
    return out.str();
}

std::string convertText() {
    return zo::convert(zo::wconvert("\xC3\xA4 \xF0\x9F\x98\x80 \xFF")) +
           zo::convert(std::wstring(1, static_cast<wchar_t>(0xD800)));
}

std::string nameAndShow() {
    std::wostringstream wide;
    wide << etArray << BasicNumber::ebDouble;
    parsed(R"({"a":1.5})")->writeTo(wide);
    return zo::convert(wide.str());
}

std::string copyConstants() {
    std::unique_ptr<Element> root = object();
    root->insertElement(Path::k_meta, Object::k_empty);
    root->insertElement(Path::k_metaArrayItem, Array::k_empty);
    root->insertElement(Path::k_default, *value(BasicNumber::k_limits.maxDouble));
    root->insertElement("", *value(Dom::k_defaultMetaKey + Path::k_noName));
    return compact(*root);
}

}  // namespace

std::string compact(const Element& element) {
    Generator generator(nullptr);
    generator.setIndent("");
    return generator.encode(element);
}

const std::vector<Activity>& activities() {
    static const std::vector<Activity> all = {
        {convertNumbers, "65.75 65.75 A A 65 65 65 65 65 65 65 65 0.1 -1 0.1"},
        {convertWhileParsing, "100.75"},
        {editDocument,
         "{\"name\":\"Grace \xE2\x82\xAC\",\"list\":[2.50,true,null,-7],\"none\":{},"
         "\"made\":{\"on\":{\"the\":{\"way\":0.5}}},\"own.name\":{}} different"},
        {convertPaths,
         "meta.schema.properties.list.items.properties.x list[*].x a[0].x\\.y "
         "meta.schema.properties.a.items.properties.x\\.y 4"},
        {throwExceptions,
         "Null pointer exception: parent may not be null\n"
         "Json type mismatch! Requestet Json type: etArray Got Json type: etBoolean "
         "Current element: \"[0]\"\n"
         "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 "
         "parser state esObjectInit\n"
         "Value out of range! Value: 1e400 Min:  Max: \n"
         "Value out of range! Value: 70000 Min: -32768 Max: 32767\n"
         "Not a decimal number: \"no number\""},
        {missPath, "a.b lacks [2]: Path \"a.b[2].c\" not found! Key \"[2]\"."},
        {refuseText,
         "parse error: unallowed token at this point in JSON text\n"
         "                                       ]\n"
         "                     (right here) ------^\n"},
        {writeText, "[\n-1,\n0.5,\n\"\\t\\\"\"\n]\n"},
        {convertText, "\xC3\xA4 \xF0\x9F\x98\x80 \xEF\xBF\xBD\xEF\xBF\xBD"},
        {nameAndShow, "etArrayebDouble{ a : 1.5, }"},
        {copyConstants, R"({"meta":{},"items":[],"default":"","":"meta"})"},
    };
    return all;
}

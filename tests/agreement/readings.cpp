#include "agreement/readings.h"

#include <charconv>
#include <iomanip>
#include <iterator>
#include <limits>
#include <locale>
#include <memory>
#include <sstream>

#include <nlohmann/json.hpp>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>

#include "support/parsed.h"

using namespace zo::Tessera;
using Theirs = nlohmann::ordered_json;

namespace {

void show(std::ostream& out, double value) {
    char text[32];
    const double unsignedZero = value == 0 ? 0 : value;
    out << std::string(text, std::to_chars(std::begin(text), std::end(text), unsignedZero,
                                           std::chars_format::scientific)
                                 .ptr);
}

void show(std::ostream& out, const BasicNumber& number) {
    switch (number.type()) {
        case BasicNumber::ebLongLong:
            out << number.toLongLong();
            break;
        case BasicNumber::ebULongLong:
            out << number.toULongLong();
            break;
        default:
            // A double is only converted from its smallest normal value on.
            show(out, number.compare(std::numeric_limits<double>::min()) < 0
                          ? static_cast<double>(number.toDecNumber())
                          : number.toDouble());
    }
}

void show(std::ostream& out, const Element& element) {
    const char* separator = "";
    switch (element.type()) {
        case etObject:
            out << '{';
            for (const auto& [key, member] : element.getObjectValue()) {
                out << separator << std::quoted(key) << ':';
                show(out, *member);
                separator = ",";
            }
            out << '}';
            break;
        case etArray:
            out << '[';
            for (const Element* const item : element.getArrayValue()) {
                out << separator;
                show(out, *item);
                separator = ",";
            }
            out << ']';
            break;
        case etString:
            out << std::quoted(element.getStringValue().value());
            break;
        case etNumber:
            show(out, element.getNumberValue().value());
            break;
        case etBoolean:
            out << (element.getBooleanValue().value() ? "true" : "false");
            break;
        default:
            out << "null";
    }
}

void show(std::ostream& out, const Theirs& value) {
    const char* separator = "";
    if (value.is_object()) {
        out << '{';
        for (const auto& [key, member] : value.items()) {
            out << separator << std::quoted(key) << ':';
            show(out, member);
            separator = ",";
        }
        out << '}';
    } else if (value.is_array()) {
        out << '[';
        for (const Theirs& item : value) {
            out << separator;
            show(out, item);
            separator = ",";
        }
        out << ']';
    } else if (value.is_string()) {
        out << std::quoted(value.get_ref<const std::string&>());
    } else if (value.is_number_unsigned()) {
        out << value.get<unsigned long long>();
    } else if (value.is_number_integer()) {
        out << value.get<long long>();
    } else if (value.is_number_float()) {
        show(out, value.get<double>());
    } else if (value.is_boolean()) {
        out << (value.get<bool>() ? "true" : "false");
    } else {
        out << "null";
    }
}

template <class Value>
std::string shown(const Value& value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    show(out, value);
    return out.str();
}

}  // namespace

std::string ourReading(const std::string& text) {
    try {
        const std::unique_ptr<Element> root = parsed(text);
        return root ? shown(*root) : "nothing";
    } catch (const ParseException&) {
        return "refused";
    }
}

std::string theirReading(const std::string& text) {
    const Theirs value = Theirs::parse(text, nullptr, false);
    return value.is_discarded() ? "refused" : shown(value);
}

std::string writtenByUs(const std::string& text) {
    return Generator(nullptr).encode(*parsed(text));
}

std::string writtenByThem(const std::string& text) {
    return Theirs::parse(text).dump();
}

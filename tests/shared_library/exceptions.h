#ifndef ZO_TESSERA_TESTS_SHARED_LIBRARY_EXCEPTIONS_H
#define ZO_TESSERA_TESTS_SHARED_LIBRARY_EXCEPTIONS_H

#include <exception>
#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

#include <zo/DecNumber.h>
#include <zo/Exception.h>
#include <zo/Tessera.h>

/// One exception class. Whoever includes this, the program or the plug-in, has functions of its own
/// that throw and catch.
struct EdgeException {
    const char* name;
    const std::type_info* type;
    /// Throws it: by a call of the library where the library throws it, otherwise as `make` does.
    void (*provoke)();
    /// Throws one made on this side.
    void (*make)();
    /// Whether `action` throws it, as a handler on this side sees it, `dynamic_cast` and `typeid`.
    bool (*arrivesFrom)(const std::function<void()>& action);
};

template <class Expected>
bool arrivesAs(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& base) {
        const auto* const derived = dynamic_cast<const Expected*>(&base);
        if (derived == nullptr || typeid(base) != typeid(Expected)) {
            return false;
        }
        try {
            throw;
        } catch (const Expected& own) {
            return &own == derived;
        } catch (...) {
            return false;
        }
    }
    return false;
}

template <class Expected>
EdgeException edgeException(const char* name, void (*provoke)(), void (*make)()) {
    return {name, &typeid(Expected), provoke, make, &arrivesAs<Expected>};
}

/// The conversions to `T`.
template <class T>
EdgeException edgeOutOfRange(const char* name) {
    using zo::Tessera::BasicNumber;
    using OutOfRange = zo::Tessera::ValueOutOfRange<BasicNumber, T>;
    return edgeException<OutOfRange>(
        name,
        [] {
            BasicNumber number;
            number.set(-1e300);
            T out = 0;
            number.getValue(out);
        },
        [] { throw OutOfRange(BasicNumber(), T(), T()); });
}

/// Every exception class that the headers name.
inline std::vector<EdgeException> edgeExceptions() {
    using namespace zo::Tessera;
    using TextOutOfRange = ValueOutOfRange<std::string, std::string>;
    const auto makeBase = [] { throw zo::Exception("made"); };
    const auto makeKeyNotFound = [] { throw KeyNotFound(nullptr, "key"); };
    return {
        edgeException<zo::Exception>("zo::Exception", makeBase, makeBase),
        edgeException<zo::RuntimeError>(
            "zo::RuntimeError", [] { zo::DecNumber("no number"); },
            [] { throw zo::RuntimeError("made"); }),
        edgeException<Exception>(
            "Exception", [] { Element::createNull(nullptr); }, [] { throw Exception("made"); }),
        edgeException<TypeException<EType>>(
            "TypeException<EType>", [] { value(1)->getObjectValue(); },
            [] { throw TypeException<EType>(nullptr, etNull, etArray); }),
        edgeException<ParseException>(
            "ParseException", [] { Path::toSchemaPath("a..b"); },
            [] { throw ParseException("made", 1, 2, 3, 4); }),
        edgeException<PathNotFound>(
            "PathNotFound", [] { object()->get("missing"); },
            [] { throw PathNotFound(nullptr, "path", "key"); }),
        edgeException<KeyNotFound>("KeyNotFound", makeKeyNotFound, makeKeyNotFound),
        edgeException<TextOutOfRange>(
            "ValueOutOfRange<std::string, std::string>",
            [] {
                BasicNumber number;
                number.set("1e400");
                number.type();
            },
            [] { throw TextOutOfRange("text", "", ""); }),
        edgeOutOfRange<char>("ValueOutOfRange<BasicNumber, char>"),
        edgeOutOfRange<unsigned char>("ValueOutOfRange<BasicNumber, unsigned char>"),
        edgeOutOfRange<short>("ValueOutOfRange<BasicNumber, short>"),
        edgeOutOfRange<unsigned short>("ValueOutOfRange<BasicNumber, unsigned short>"),
        edgeOutOfRange<int>("ValueOutOfRange<BasicNumber, int>"),
        edgeOutOfRange<unsigned int>("ValueOutOfRange<BasicNumber, unsigned int>"),
        edgeOutOfRange<long>("ValueOutOfRange<BasicNumber, long>"),
        edgeOutOfRange<unsigned long>("ValueOutOfRange<BasicNumber, unsigned long>"),
        edgeOutOfRange<long long>("ValueOutOfRange<BasicNumber, long long>"),
        edgeOutOfRange<unsigned long long>("ValueOutOfRange<BasicNumber, unsigned long long>"),
        edgeOutOfRange<float>("ValueOutOfRange<BasicNumber, float>"),
        edgeOutOfRange<double>("ValueOutOfRange<BasicNumber, double>"),
    };
}

/// What the plug-in offers, under the name `edgePlugin`.
struct EdgePlugin {
    std::vector<EdgeException> exceptions;
    /// The plug-in's own parser tells the listener of the text.
    void (*parse)(zo::Tessera::CallbackParserListener& listener, const std::string& text);
    /// The kind of the element, as the plug-in's `dynamic_cast` sees it.
    std::string (*kindOf)(const zo::Tessera::Element& element);
    /// An array that the plug-in made.
    zo::Tessera::Element* (*makeArray)();
};

#endif

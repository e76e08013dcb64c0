#ifndef ZO_TESSERA_PRINTTO_H
#define ZO_TESSERA_PRINTTO_H

#include <iosfwd>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Dom;
class Null;

/// \name Values in a test's messages
/// GoogleTest and GoogleMock find these by themselves, by these names, for the values that
/// `EXPECT_EQ`, `EXPECT_THAT` and their like show when they fail, and for
/// `testing::PrintToString`. Elsewhere they may be called.
///
///     EXPECT_EQ(left.compare(right), 0) << testing::PrintToString(left);
///
/// An element is shown as JSON text on one line, whole and at any depth. Where there is no JSON
/// form for a part, such as a NaN, the reason stands in its place, between "<" and ">"; what is not
/// UTF-8 is shown as U+FFFD. Nothing of what is shown is changed, its caches included. Linear.
///
/// They throw nothing of their own: what cannot be shown is shown as the exception's text between
/// "<" and ">". What the stream throws, if it was told to, passes.
///
/// GoogleTest shows a `std::unique_ptr` with what it points to, and any other pointer as an
/// address. A class of your own that derives from one of these needs its own `PrintTo`, which may
/// call the one for `Element`.
/// @{
ZO_TESSERA_EXPORT void PrintTo(const Element& element, std::ostream* out);
ZO_TESSERA_EXPORT void PrintTo(const Null& element, std::ostream* out);
ZO_TESSERA_EXPORT void PrintTo(const TBasicElement<bool>& element, std::ostream* out);
ZO_TESSERA_EXPORT void PrintTo(const TBasicElement<BasicNumber>& element, std::ostream* out);
ZO_TESSERA_EXPORT void PrintTo(const TBasicElement<std::string>& element, std::ostream* out);
ZO_TESSERA_EXPORT void PrintTo(const Object& element, std::ostream* out);
ZO_TESSERA_EXPORT void PrintTo(const Array& element, std::ostream* out);
/// As an element that holds the number.
ZO_TESSERA_EXPORT void PrintTo(const BasicNumber& number, std::ostream* out);
/// The text between quotes, with JSON's escapes.
ZO_TESSERA_EXPORT void PrintTo(const Path& path, std::ostream* out);
/// The root, its meta member included, or "<no root>"; then the settings that are not those of a
/// new document, such as `{"a":1} <includeMeta: false> <metaKey: "info">`.
ZO_TESSERA_EXPORT void PrintTo(const Dom& document, std::ostream* out);
/// @}

}  // namespace zo::Tessera

#endif

#ifndef ZO_TESSERA_FACTORIES_H
#define ZO_TESSERA_FACTORIES_H

/// \file
/// A part of `zo/Tessera/Element.h`, which includes it.

#include <memory>
#include <string>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

class BasicNumber;
class Element;

/// \name Making detached elements
/// Each returns a new element without a parent, owned by the caller. Texts are UTF-8 by custom, and
/// their bytes are kept as they are.
/// @{
ZO_TESSERA_EXPORT std::unique_ptr<Element> value();  ///< null
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(bool boolean);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(const BasicNumber& number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(int number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(unsigned int number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(long number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(unsigned long number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(long long number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(unsigned long long number);
/// `BasicNumber::toString`, and with it the stream operator of a `Dom`, show 6 significant digits;
/// `exactValue` keeps all.
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(double number);
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(const std::string& text);
/// The text up to its terminating zero. A null pointer throws `zo::Tessera::Exception` "Null
/// pointer exception: text may not be null".
ZO_TESSERA_EXPORT std::unique_ptr<Element> value(const char* text);
/// A number whose text reads back to `number`: see `BasicNumber::setExact`.
ZO_TESSERA_EXPORT std::unique_ptr<Element> exactValue(double number);
/// Any other pointer would be taken for a boolean.
template <class T>
std::unique_ptr<Element> value(const T* pointer) = delete;
ZO_TESSERA_EXPORT std::unique_ptr<Element> object();
ZO_TESSERA_EXPORT std::unique_ptr<Element> array();
/// @}

}  // namespace zo::Tessera

#endif

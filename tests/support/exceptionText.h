#ifndef ZO_TESSERA_TESTS_SUPPORT_EXCEPTIONTEXT_H
#define ZO_TESSERA_TESTS_SUPPORT_EXCEPTIONTEXT_H

#include <gtest/gtest.h>

#include <string>

#include <zo/Tessera/Exception.h>

#include "support/classicText.h"

/// The whole text, which replaces what stood in the string; `what()` is checked to agree.
inline std::string textOf(const zo::Exception& exception) {
    std::string text = "replaced";
    exception.generateWhat(text);
    EXPECT_STREQ(exception.what(), text.c_str());
    return text;
}

/// A text's last part: the address of the stored path, as callers have always seen it.
inline std::string addressPart(const zo::Tessera::Exception& exception) {
    return classicText(" Current element: \"", static_cast<const void*>(exception.elementPath()),
                       '"');
}

#endif

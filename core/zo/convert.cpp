#include <zo/convert.h>

#include <iterator>
#include <string_view>

#include <utf8.h>

#include <zo/Exception.h>

namespace zo {

namespace {

static_assert(sizeof(wchar_t) == sizeof(char32_t), "a wchar_t is taken for one code point");

constexpr char32_t k_replacement = 0xFFFD;

char32_t codePointOf(wchar_t character) {
    const auto code = static_cast<char32_t>(character);
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return isSurrogate || code > 0x10FFFF ? k_replacement : code;
}

std::string narrow(std::wstring_view text) {
    std::string result;
    result.reserve(text.size());
    for (const wchar_t character : text) {
        utf8::append(codePointOf(character), std::back_inserter(result));
    }
    return result;
}

}  // namespace

std::string convert(const std::wstring& text) {
    return narrow(text);
}

std::string convert(const wchar_t* text) {
    if (text == nullptr) {
        throw RuntimeError("Null pointer exception: text may not be null");
    }
    return narrow(text);
}

std::wstring wconvert(const std::string& text) {
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), k_replacement);
    std::wstring result;
    result.reserve(valid.size());
    utf8::utf8to32(valid.begin(), valid.end(), std::back_inserter(result));
    return result;
}

}  // namespace zo

// Ends with 0 if yajl reads the escape of a high surrogate that no low one follows as it should. A
// version with the fault loses the byte behind it, or reads past the end of the text or aborts.

#include <yajl/yajl_parse.h>

#include <cstddef>
#include <string>

namespace {

int take(void* context, const unsigned char* text, std::size_t length) {
    static_cast<std::string*>(context)->assign(reinterpret_cast<const char*>(text), length);
    return 1;
}

std::string stringIn(const std::string& json) {
    std::string result;
    yajl_callbacks callbacks = {};
    callbacks.yajl_string = take;
    const yajl_handle handle = yajl_alloc(&callbacks, nullptr, &result);
    yajl_parse(handle, reinterpret_cast<const unsigned char*>(json.data()), json.size());
    yajl_free(handle);
    return result;
}

}  // namespace

int main() {
    const bool keepsTheByte = stringIn(R"(["\ud83dXY"])") == "?XY";
    const bool keepsTheBackslash = stringIn(R"(["e2d\ud83d\\u0"])") == R"(e2d?\u0)";
    return keepsTheByte && keepsTheBackslash ? 0 : 1;
}

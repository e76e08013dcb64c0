// Stands in for a yajl that loses the byte after a lone surrogate.

#include <yajl/yajl_parse.h>

namespace {

const yajl_callbacks* s_callbacks = nullptr;
void* s_context = nullptr;

}  // namespace

// Marked again, for this library is hidden from its users unless it says otherwise.
extern "C" {

[[gnu::visibility("default")]] yajl_handle yajl_alloc(const yajl_callbacks* callbacks,
                                                      yajl_alloc_funcs*, void* context) {
    s_callbacks = callbacks;
    s_context = context;
    return nullptr;
}

[[gnu::visibility("default")]] void yajl_free(yajl_handle) {}

[[gnu::visibility("default")]] yajl_status yajl_parse(yajl_handle, const unsigned char*, size_t) {
    s_callbacks->yajl_string(s_context, reinterpret_cast<const unsigned char*>("?Y"), 2);
    return yajl_status_ok;
}
}

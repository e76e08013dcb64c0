#ifndef ZO_TESSERA_TESTS_SUPPORT_REALYAJL_H
#define ZO_TESSERA_TESTS_SUPPORT_REALYAJL_H

#include <dlfcn.h>

/// The function of yajl's whose place this program takes, for example
/// `realYajl(&yajl_parse, "yajl_parse")`.
template <class Function>
Function* realYajl(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

#endif

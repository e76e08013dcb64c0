#ifndef ZO_TESSERA_BENCH_LIBRARIES_ADAPTER_H
#define ZO_TESSERA_BENCH_LIBRARIES_ADAPTER_H

#include <string>

#include "libraries/Library.h"
#include "rows/documents.h"
#include "rows/groups.h"
#include "rows/operations.h"

/// The library of an adapter, which has the operations that rows/operations.h tells.
template <class Adapter>
Library libraryOf() {
    return {Adapter::k_name,
            [](const std::string& text) {
                typename Adapter::Document document;
                load<Adapter>(document, text);
            },
            documentRows<Adapter>, groupRows<Adapter>};
}

#endif

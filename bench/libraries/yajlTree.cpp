// yajl's own tree, which cannot be changed or written: keys are looked for one by one.

#include <yajl/yajl_tree.h>

#include <cstring>
#include <memory>

#include "libraries/adapter.h"

namespace {

struct Free {
    void operator()(yajl_val value) const { yajl_tree_free(value); }
};

void addTotals(yajl_val value, Totals& totals) {
    ++totals.elements;
    if (YAJL_IS_STRING(value)) {
        totals.textBytes += std::strlen(YAJL_GET_STRING(value));
    } else if (YAJL_IS_OBJECT(value)) {
        for (size_t i = 0; i < YAJL_GET_OBJECT(value)->len; ++i) {
            addTotals(YAJL_GET_OBJECT(value)->values[i], totals);
        }
    } else if (YAJL_IS_ARRAY(value)) {
        for (size_t i = 0; i < YAJL_GET_ARRAY(value)->len; ++i) {
            addTotals(YAJL_GET_ARRAY(value)->values[i], totals);
        }
    }
}

struct YajlTree {
    static constexpr const char* k_name = "yajl_tree";
    using Document = std::unique_ptr<yajl_val_s, Free>;

    static void read(Document& document, const std::string& text) {
        char error[200] = "";
        document.reset(yajl_tree_parse(text.c_str(), error, sizeof error));
        require(document != nullptr, error);
    }

    static Totals totals(const Document& document) {
        Totals totals;
        addTotals(document.get(), totals);
        return totals;
    }

    static long long sumIntegers(const Document& document) {
        long long sum = 0;
        const auto& items = *YAJL_GET_ARRAY(document.get());
        for (size_t i = 0; i < items.len; ++i) {
            sum ^= YAJL_GET_INTEGER(items.values[i]);
        }
        return sum;
    }

    static double sumDoubles(const Document& document) {
        double sum = 0;
        const auto& items = *YAJL_GET_ARRAY(document.get());
        for (size_t i = 0; i < items.len; ++i) {
            sum += YAJL_GET_DOUBLE(items.values[i]);
        }
        return sum;
    }

    static yajl_val findMember(const Document& document, const std::string& key) {
        const char* path[] = {key.c_str(), nullptr};
        return yajl_tree_get(document.get(), path, yajl_t_any);
    }
};

const KnownLibrary k_yajlTree(libraryOf<YajlTree>());

}  // namespace

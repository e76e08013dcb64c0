#ifndef CORE_INDEXLISTS_H
#define CORE_INDEXLISTS_H

#include <cstddef>
#include <string>

#include <zo/IndexList.h>

#include "FailingAllocator.h"

using List = zo::IndexList<int>;
using FailingList = zo::IndexList<int, FailingAllocator<int>>;

/// The values in order, for example "1 2 3". Adds "!" to a value that its index does not reach.
template <class AnyList>
std::string dump(const AnyList& list) {
    std::string text;
    std::size_t index = 0;
    for (auto value = list.begin(); value != list.end(); ++value, ++index) {
        text += (index == 0 ? "" : " ") + std::to_string(*value);
        text += &list[index] == &*value ? "" : "!";
    }
    return index == list.size() ? text : text + " but size() is " + std::to_string(list.size());
}

template <class AnyList = List>
AnyList upTo(int last) {
    AnyList list;
    for (int value = 1; value <= last; ++value) {
        list.push_back(value);
    }
    return list;
}

#endif

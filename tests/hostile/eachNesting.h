#ifndef ZO_TESSERA_TESTS_HOSTILE_EACHNESTING_H
#define ZO_TESSERA_TESTS_HOSTILE_EACHNESTING_H

#include <gtest/gtest.h>

#include <string>

#include "hostile/DeepDocument.h"

/// Tests that run for each way of nesting.
class ForEachNesting : public testing::TestWithParam<Nesting> {
protected:
    const DeepDocument document{GetParam()};
};

inline std::string nestingName(const testing::TestParamInfo<Nesting>& row) {
    return row.param == Nesting::arrays    ? "Arrays"
           : row.param == Nesting::objects ? "Objects"
                                           : "InTurn";
}

#endif

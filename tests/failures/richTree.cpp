#include "failures/richTree.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Generator.h>

#include "failures/outOfMemory.h"
#include "support/dump.h"
#include "support/parsed.h"

using namespace zo::Tessera;

std::unique_ptr<Element> richTree() {
    std::string json = R"({"$": {"inner": [null, true, {"$": {}}]}, "text": "$",
        "number": 0.12345678901234567890123456789, "flag": true, "none": null,
        "list": ["x", "$", "x", 12],
        "meta": {"schema": {"properties": {"flag": {"default": "$"}}}}})";
    for (size_t at = json.find('$'); at != std::string::npos; at = json.find('$', at)) {
        json.replace(at, 1, k_long);
    }
    return parsed(json);
}

void expectWhole(const Element& root) {
    const std::string state = dump(root);
    EXPECT_THAT(state, testing::Not(testing::HasSubstr("WRONG")));
    const std::unique_ptr<Element> clone(root.clone());
    EXPECT_EQ(root.compare(*clone), 0);
    EXPECT_EQ(Generator(nullptr).encode(root), Generator(nullptr).encode(*clone));
    EXPECT_EQ(dump(root), state);
}

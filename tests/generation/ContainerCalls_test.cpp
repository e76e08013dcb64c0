// yajl's generator keeps its state in an array of 128 levels, and works past it when it is driven
// on after it refused a container too many. This program takes the place of the functions that
// change a handle's depth, to see that none is ever driven there.

#include <zo/Tessera/Generator.h>

#include <yajl/yajl_gen.h>

#include <algorithm>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Element.h>

#include "support/realYajl.h"

namespace {

/// The depth of each handle in use, and the largest and smallest that any had.
struct Depths {
    std::map<yajl_gen, long> current;
    long largest = 0;
    long smallest = 0;

    void change(yajl_gen handle, long by) {
        long& depth = current[handle];
        depth += by;
        largest = std::max(largest, depth);
        smallest = std::min(smallest, depth);
    }
};

Depths s_depths;

}  // namespace

// yajl counts an opening that it refuses for its depth, and no other that it refuses.
yajl_gen_status yajl_gen_array_open(yajl_gen handle) {
    const auto status = realYajl(&yajl_gen_array_open, "yajl_gen_array_open")(handle);
    s_depths.change(handle,
                    status == yajl_gen_status_ok || status == yajl_max_depth_exceeded ? 1 : 0);
    return status;
}

yajl_gen_status yajl_gen_map_open(yajl_gen handle) {
    const auto status = realYajl(&yajl_gen_map_open, "yajl_gen_map_open")(handle);
    s_depths.change(handle,
                    status == yajl_gen_status_ok || status == yajl_max_depth_exceeded ? 1 : 0);
    return status;
}

yajl_gen_status yajl_gen_array_close(yajl_gen handle) {
    s_depths.change(handle, -1);
    return realYajl(&yajl_gen_array_close, "yajl_gen_array_close")(handle);
}

yajl_gen_status yajl_gen_map_close(yajl_gen handle) {
    s_depths.change(handle, -1);
    return realYajl(&yajl_gen_map_close, "yajl_gen_map_close")(handle);
}

void yajl_gen_free(yajl_gen handle) {
    s_depths.current.erase(handle);
    realYajl(&yajl_gen_free, "yajl_gen_free")(handle);
}

using namespace zo::Tessera;

namespace {

class ContainerCalls : public testing::Test {
protected:
    ContainerCalls() { s_depths = Depths(); }
};

TEST_F(ContainerCalls, NeverGoPastAHandlesLevelsInSingleEvents) {
    for (const char* const indent : {"", "  "}) {
        Generator generator(nullptr);
        generator.setIndent(indent);
        for (int i = 0; i < 1000; ++i) {
            generator.gen_object_open();
            generator.gen_array_open();  // refused: a key must come
            generator.gen_string("k");
            generator.gen_array_open();
        }
        for (int i = 0; i < 2000; ++i) {
            generator.gen_array_close();
        }
        generator.gen_array_close();   // one too many
        generator.gen_object_close();  // two too many
        generator.encode(*value());    // gives the text a stream to go to
    }
    EXPECT_EQ(s_depths.largest, 127);
    EXPECT_EQ(s_depths.smallest, 0);
}

TEST_F(ContainerCalls, NeverGoPastAHandlesLevelsInADeepTree) {
    const std::unique_ptr<Element> root = array();
    Element* deepest = root.get();
    for (int i = 0; i < 1000; ++i) {
        deepest = i % 2 == 0 ? Element::createObject(deepest) : Element::createArray(deepest, "k");
    }
    EXPECT_EQ(Generator(nullptr).encode(*root).size(), 6505U);
    EXPECT_EQ(s_depths.largest, 127);
    EXPECT_EQ(s_depths.smallest, 0);
}

}  // namespace

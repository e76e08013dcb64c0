#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

#include "support/HostileLocale.h"

/// Runs the tests of any program. With TESSERA_TEST_LOCALE=hostile in the environment all of them
/// run under a `HostileLocale`.
int main(int argc, char** argv) {
    // Before the locale changes: it would group the digits in the names of a long table's rows.
    testing::InitGoogleTest(&argc, argv);
    std::optional<HostileLocale> locale;
    if (const char* const wanted = std::getenv("TESSERA_TEST_LOCALE")) {
        if (std::string_view(wanted) != "hostile") {
            std::cerr << "TESSERA_TEST_LOCALE is \"" << wanted << "\", not \"hostile\"\n";
            return EXIT_FAILURE;
        }
        locale.emplace();
    }
    return RUN_ALL_TESTS();
}

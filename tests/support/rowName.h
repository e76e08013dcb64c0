#ifndef ZO_TESSERA_TESTS_SUPPORT_ROWNAME_H
#define ZO_TESSERA_TESTS_SUPPORT_ROWNAME_H

#include <string>

/// Names each test of an `INSTANTIATE_TEST_SUITE_P` by the member `name` of its row.
inline constexpr auto k_rowName = [](const auto& row) { return std::string(row.param.name); };

#endif

// How a row of the table is called as a test, and how the test framework shows it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <ostream>
#include <string>

#include "tests/faults/function_table.h"

namespace faults {

inline void PrintTo(const Row& row, std::ostream* out) { *out << row.function; }

/// The function's name with a mark for all that cannot stand in the name of a test.
inline std::string testNameOf(const testing::TestParamInfo<Row>& info) {
    std::string name;
    for (const char each : info.param.function) {
        const bool isKept = std::isalnum(static_cast<unsigned char>(each)) != 0;
        if (isKept || (!name.empty() && name.back() != '_')) {
            name += isKept ? each : '_';
        }
    }
    return std::to_string(info.index) + "_" + name;
}

}  // namespace faults

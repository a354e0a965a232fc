// A property as completion knows it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contextdata/export.h"

namespace ZELKContextData {

class ClassInfo;

/// One property that may be offered. A plain value.
struct CONTEXTDATA_API PropertyInfo {
    /// Which properties are wanted.
    struct GetOptions {
        std::vector<std::int32_t> accessibility = {0};   ///< access codes that are always visible
        std::vector<std::int32_t> accessKinds = {0, 1};  ///< which accesses are tested: 0 reading, 1 writing
        const ClassInfo* accessingClass = nullptr;       ///< whose code asks; borrowed, null for nobody's
        bool includeHidden = false;
    };

    /// Turns the sizes of a property's validation into numbers, one for each.
    ///
    /// A colon and a name (a letter, then letters, digits and underscores) stand for any size, which is the largest
    /// number. Anything else is a decimal number, blanks around it aside, and no larger than 32 bits hold although the
    /// result holds 64. One text that is neither empties the whole result. Throws `std::bad_alloc` only; any thread.
    static std::vector<std::uint64_t> castSizeStringToIntegers(const std::vector<std::u16string>& sizes);
};

}  // namespace ZELKContextData

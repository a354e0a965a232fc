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
        bool includeHidden = false;                      ///< properties that their authors hide
    };

    /// Turns the sizes of a property's validation into numbers, one for each.
    ///
    /// A colon and a name (a letter, then letters, digits and underscores) stand for any size, which is the largest
    /// number. Anything else is a decimal number, blanks around it aside, and no larger than 32 bits hold although the
    /// result holds 64. One text that is neither empties the whole result. Throws `std::bad_alloc` only; any thread.
    static std::vector<std::uint64_t> castSizeStringToIntegers(const std::vector<std::u16string>& sizes);

    /// By which way a value of `values` came to its text.
    enum ValueKind : std::int32_t {
        noValues = 0,
        ownText = 1,        ///< every value was text already
        convertedText = 2,  ///< at least one was converted to the type "any" first
    };

    std::u16string name;  ///< without its class
    /// The class that values must have: the one that the validation names, else the identifier of the data type. Empty
    /// when none is declared.
    std::u16string typeName;
    /// The declared size, one text a dimension, as it was written: a number, ":" or a name. Empty when none is
    /// declared.
    std::vector<std::u16string> sizes;
    std::vector<std::u16string> validators;  ///< the names of the checking functions, in their order
    bool readFlag = false;                   ///< nobody can assign the property
    bool hasCustomGetter = false;            ///< reading it runs code of its author, or may do so
    bool extendedFlag = false;               ///< objects hold a value of it; true when that is not known
    std::int32_t valueKind = noValues;       ///< a `ValueKind`
    std::vector<std::u16string> values;      ///< the only admissible values; empty when others are admitted
};

}  // namespace ZELKContextData

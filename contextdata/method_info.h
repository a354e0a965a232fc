// A method as completion knows it, and the rules for offering methods.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contextdata/export.h"
#include "host/interned.h"

namespace ZELKContextData {

class ClassInfo;

/// One method that may be offered. A plain value. The functions may be called from any thread.
struct CONTEXTDATA_API MethodInfo {
    /// Where the cursor stands. Any other code behaves like `none`.
    enum class GetContext : std::int32_t {
        none = 0,       ///< nowhere: no method is offered
        beforeDot = 1,  ///< the class name or variable stands alone
        afterDot = 2,
        anyPosition = 3,  ///< the position does not matter
    };

    /// Which methods are wanted.
    struct GetOptions {
        std::vector<std::int32_t> accessibility = {0};  ///< access codes that are always visible
        const ClassInfo* accessingClass = nullptr;      ///< whose code asks; borrowed, null for nobody's
        GetContext context = GetContext::none;          ///< at first nowhere, so that nothing is offered unasked
        bool includeConstructors = false;               ///< methods named as the last part of their class
        bool includeOperatorOverloads = false;          ///< methods that `isOperatorOverload` tells by their names
        bool includeHidden = false;                     ///< methods that their authors hide
    };

    std::u16string name;           ///< without its class
    std::u16string definingClass;  ///< the full name of the class that declares the method
    bool isStatic = false;         ///< called on the class rather than on an object

    /// Whether a method of that name overloads an operator. Exact, letter case included. The 8-bit form is converted
    /// by the host, whose failures pass.
    /// @{
    static bool isOperatorOverload(const std::u16string& name);
    static bool isOperatorOverload(const std::string& name);
    /// @}

    /// Whether methods of a class are offered where its name or a variable stands alone. The built-in classes say no,
    /// save for uint16 and int32: the table spells those two otherwise, and callers have come to rely on it.
    static bool isClassToCompleteMethodsForBeforeDot(zelk::COSInternedID className);

    /// Whether methods of a class are offered after a dot: every class says yes. A table of its own, so that a class
    /// can be added to it without touching callers.
    static bool isClassToCompleteMethodsForAfterDot(zelk::COSInternedID className);
};

}  // namespace ZELKContextData

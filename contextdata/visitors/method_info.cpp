#include "contextdata/method_info.h"

#include <functional>
#include <set>

#include "contextdata/exclusion_tables.h"
#include "host/i18n.h"

namespace ZELKContextData {

namespace {

using ClassNames = std::set<std::string, std::less<>>;

// "unit16" and "in32" are meant: the classes uint16 and int32 are to pass.
const ClassNames notBeforeDot = {
    "double", "single",  "int8", "uint8",  "int16", "unit16",          "in32",   "uint32", "int64",
    "uint64", "logical", "char", "struct", "cell",  "function_handle", "handle",
};

const ClassNames notAfterDot = {};

}  // namespace

bool MethodInfo::isOperatorOverload(const std::u16string& name) {
    // A copy of our own: the table is handed out by value, which is too dear for every method of a class.
    static const std::set<std::u16string> operators = getZELKMethodsExcludeSet();
    return operators.contains(name);
}

bool MethodInfo::isOperatorOverload(const std::string& name) { return isOperatorOverload(fl::i18n::to_ustring(name)); }

bool MethodInfo::isClassToCompleteMethodsForBeforeDot(zelk::COSInternedID className) {
    return !notBeforeDot.contains(className.view());
}

bool MethodInfo::isClassToCompleteMethodsForAfterDot(zelk::COSInternedID className) {
    return !notAfterDot.contains(className.view());
}

}  // namespace ZELKContextData

// The fixed tables of names, and the rules that ask nobody.
#include <optional>
#include <set>
#include <unordered_set>

#include "bench/floors/questions.h"
#include "contextdata/exclusion_tables.h"
#include "contextdata/method_info.h"
#include "contextdata/property_info.h"
#include "host/interned.h"

namespace bench {

using namespace ZELKContextData;

namespace {

const std::string family = "fixed tables";
const std::vector<std::u16string> sizes = {u"3", u":", u"numberOfRows", u"42"};
const std::u16string plusName = u"plus";

bool isLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }
bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

/// The end of the longest name that begins there.
std::size_t endOfName(const std::u16string& text) {
    std::size_t end = 0;
    while (end < text.size() && (isLetter(text[end]) || isDigit(text[end]) || text[end] == u'_')) {
        ++end;
    }
    return end;
}

/// A colon, a name, or a number of 32 bits with blanks around it; nothing for any other text.
std::optional<std::uint64_t> floorSize(const std::u16string& text) {
    constexpr std::uint64_t anySize = ~std::uint64_t{0};
    if (text == u":") {
        return anySize;
    }
    if (!text.empty() && isLetter(text.front())) {
        return endOfName(text) == text.size() ? std::optional(anySize) : std::nullopt;
    }
    const std::size_t first = text.find_first_not_of(u" \t\n\v\f\r");
    if (first == std::u16string::npos) {
        return std::nullopt;
    }
    const std::size_t last = text.find_last_not_of(u" \t\n\v\f\r");
    std::uint64_t number = 0;
    for (std::size_t index = first; index <= last; ++index) {
        number = 10 * number + (text[index] - u'0');
        if (!isDigit(text[index]) || number > 0xFFFFFFFF) {
            return std::nullopt;
        }
    }
    return number;
}

std::vector<std::uint64_t> floorSizes() {
    std::vector<std::uint64_t> numbers;
    numbers.reserve(sizes.size());
    for (const std::u16string& size : sizes) {
        const std::optional<std::uint64_t> number = floorSize(size);
        if (!number) {
            return {};
        }
        numbers.push_back(*number);
    }
    return numbers;
}

/// The table of classes whose methods are not offered before a dot, as the library tells it.
std::unordered_set<zelk::COSInternedID> classesWithoutMethods() {
    std::unordered_set<zelk::COSInternedID> classes;
    for (const char* name : {"double", "single", "int8", "uint8", "int16", "uint16", "int32", "uint32", "int64",
                             "uint64", "char", "string", "logical", "cell", "struct", "function_handle"}) {
        const zelk::COSInternedID cls = zelk::internal::makeInterned(name);
        if (!MethodInfo::isClassToCompleteMethodsForBeforeDot(cls)) {
            classes.insert(cls);
        }
    }
    return classes;
}

/// A copy of a table that is kept.
Question table(const std::string& name, std::set<std::u16string> (*library)()) {
    return question(family, name, library().size(), library,
                    [kept = library()] { return std::set<std::u16string>(kept); });
}

}  // namespace

std::vector<Question> fixedQuestions(memory_host::World&) {
    const zelk::COSInternedID cls = zelk::internal::makeInterned("fixed.Account");
    return {
        table("getZELKMethodsExcludeSet", getZELKMethodsExcludeSet),
        table("getNoDotMethodClassesExcludeSet", getNoDotMethodClassesExcludeSet),
        table("getGX7NamespacesExcludeSet", getGX7NamespacesExcludeSet),
        table("getGX7OstrelNamespacesExcludeSet", getGX7OstrelNamespacesExcludeSet),
        question(
            family, "isOperatorOverload", 1, [] { return MethodInfo::isOperatorOverload(plusName); },
            [kept = getZELKMethodsExcludeSet()] { return kept.contains(plusName); }),
        question(
            family, "castSizeStringToIntegers", sizes.size(),
            [] { return PropertyInfo::castSizeStringToIntegers(sizes); }, floorSizes),
        question(
            family, "isClassToCompleteMethodsForBeforeDot", 1,
            [cls] { return MethodInfo::isClassToCompleteMethodsForBeforeDot(cls); },
            [cls, withoutMethods = classesWithoutMethods()] { return !withoutMethods.contains(cls); }),
    };
}

}  // namespace bench

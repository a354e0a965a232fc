// The fixed tables of names, and the rules that ask nobody.
#include "contextdata/exclusion_tables.h"
#include "contextdata/method_info.h"
#include "contextdata/property_visitor.h"
#include "tests/faults/function_table.h"

namespace faults {

using namespace ZELKContextData;

namespace {

const std::u16string plusName = u"plus";
const std::string narrowPlusName = "plus";
const std::vector<std::u16string> sizes = {u"3", u":", u"numberOfRows", u" 42 "};
const std::vector<std::u16string> wrongSizes = {u"3", u"1x"};

std::vector<Row> tableRows() {
    return {
        Row("ZELKContextData::getZELKMethodsExcludeSet()", {nothing},
            asks([](Scene&, Caller&) { return getZELKMethodsExcludeSet(); }), passes()),
        Row("ZELKContextData::getNoDotMethodClassesExcludeSet()", {nothing},
            asks([](Scene&, Caller&) { return getNoDotMethodClassesExcludeSet(); }), passes()),
        Row("ZELKContextData::getGX7NamespacesExcludeSet()", {nothing},
            asks([](Scene&, Caller&) { return getGX7NamespacesExcludeSet(); }), passes()),
        Row("ZELKContextData::getGX7OstrelNamespacesExcludeSet()", {nothing},
            asks([](Scene&, Caller&) { return getGX7OstrelNamespacesExcludeSet(); }), passes()),
        Row(
            "ZELKContextData::getAttributesToTreatAsHavingCustomGetters()", {nothing},
            [](Scene&, Caller& caller) {
                return caller([] { return &getAttributesToTreatAsHavingCustomGetters(); })->front();
            },
            passes()),
    };
}

std::vector<Row> ruleRows() {
    const auto ofClass = [](bool (*call)(zelk::COSInternedID)) -> Question {
        return [call](Scene&, Caller& caller) {
            const zelk::COSInternedID cls = zelk::internal::makeInterned("double");
            return told(caller([&] { return call(cls); }));
        };
    };
    return {
        Row("ZELKContextData::MethodInfo::isOperatorOverload(u16string const&)", {nothing},
            asks([](Scene&, Caller&) { return MethodInfo::isOperatorOverload(plusName); }), passes()),
        Row("ZELKContextData::MethodInfo::isOperatorOverload(string const&)", {nothing},
            asks([](Scene&, Caller&) { return MethodInfo::isOperatorOverload(narrowPlusName); }), passes()),
        // Their tables are built when the library is loaded, before anybody can ask: a look-up takes no memory.
        Row("ZELKContextData::MethodInfo::isClassToCompleteMethodsForBeforeDot(zelk::COSInternedID)", {nothing},
            ofClass(MethodInfo::isClassToCompleteMethodsForBeforeDot), passes()),
        Row("ZELKContextData::MethodInfo::isClassToCompleteMethodsForAfterDot(zelk::COSInternedID)", {nothing},
            ofClass(MethodInfo::isClassToCompleteMethodsForAfterDot), passes()),
        Row("ZELKContextData::PropertyInfo::castSizeStringToIntegers(vector<u16string> const&)", {nothing},
            asks([](Scene&, Caller&) { return PropertyInfo::castSizeStringToIntegers(sizes); }), passes())
            .also({nothing}, asks([](Scene&, Caller&) { return PropertyInfo::castSizeStringToIntegers(wrongSizes); }),
                  passes()),
    };
}

}  // namespace

std::vector<Row> fixedRows() {
    std::vector<Row> rows = tableRows();
    for (Row& row : ruleRows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace faults

// The table is whole: the functions that the library exports and those of the table are the same.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "tests/faults/function_table.h"

namespace faults {
namespace {

const std::string thunk = "non-virtual thunk to ";

bool isTypeInformation(const std::string& symbol) {
    return symbol.starts_with("typeinfo for ") || symbol.starts_with("typeinfo name for ") ||
           symbol.starts_with("vtable for ");
}

/// Data has no brackets.
bool isFunction(const std::string& symbol) { return symbol.find('(') != std::string::npos; }

std::vector<std::string> exportedSymbols() {
    std::ifstream golden(CONTEXTDATA_EXPORTED_SYMBOLS);
    std::vector<std::string> symbols;
    for (std::string line; std::getline(golden, line);) {
        symbols.push_back(line);
    }
    return symbols;
}

TEST(FunctionTable, HoldsEveryExportedFunctionOnceAndNothingElse) {
    std::multiset<std::string> inTable;
    for (const Row& row : functionTable()) {
        inTable.insert(row.function);
    }
    std::set<std::string> exported;
    for (const std::string& symbol : exportedSymbols()) {
        if (!isTypeInformation(symbol) && isFunction(symbol)) {
            exported.insert(symbol.starts_with(thunk) ? symbol.substr(thunk.size()) : symbol);
        }
    }
    EXPECT_THAT(inTable, testing::ElementsAreArray(exported));
}

TEST(FunctionTable, ExportedDataAreTheThreeSelectionsAlone) {
    std::vector<std::string> data;
    for (const std::string& symbol : exportedSymbols()) {
        if (!isTypeInformation(symbol) && !isFunction(symbol)) {
            data.push_back(symbol);
        }
    }
    EXPECT_THAT(data, testing::ElementsAre("ZELKIntrospection::eitherSideDesiredPropertyAttributes",
                                           "ZELKIntrospection::leftHandSideDesiredPropertyAttributes",
                                           "ZELKIntrospection::rightHandSideDesiredPropertyAttributes"));
}

}  // namespace
}  // namespace faults

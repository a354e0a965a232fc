#include "host/function_metadata.h"

#include "tests/conformance/suite/suite.h"

namespace {

using FunctionMetadata = conformance::Conformance;

TEST_F(FunctionMetadata, OfAnUnknownFunctionIsEmpty) {
    const auto [first, second, scope] = omGetFunctionMetadata(conformance::unknownName, nullptr);
    EXPECT_FALSE(first);
    EXPECT_FALSE(second);
    const auto [none, nothing, nowhere] = omGetFunctionMetadata("", nullptr);
    EXPECT_FALSE(none);
    EXPECT_FALSE(nothing);
}

TEST_F(FunctionMetadata, OfAFunctionThatDeclaresSomethingIsThere) {
    const std::string name = provider().declaringFunction();
    CONFORMANCE_NEEDS(!name.empty(), "functions that declare their arguments");
    const auto [first, second, scope] = omGetFunctionMetadata(name, nullptr);
    EXPECT_TRUE(first || second);
    const auto [again, also, there] = omGetFunctionMetadata(name, nullptr);
    EXPECT_TRUE(again || also) << "the first answer took nothing away";
}

}  // namespace

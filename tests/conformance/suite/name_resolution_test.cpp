#include "host/name_resolution.h"

#include <thread>

#include "host/dispatcher.h"
#include "tests/conformance/suite/suite.h"

namespace {

using namespace zelk::nameresolution;
using NameResolution = conformance::Conformance;

TEST_F(NameResolution, GivesUnknownNamesNoClass) {
    EXPECT_EQ(omResolveAnyClass(conformance::unknownName, nullptr), "");
    EXPECT_EQ(omResolveAnyClass("no.such." + conformance::unknownName, nullptr), "");
    EXPECT_EQ(omResolveAnyClass("", nullptr), "");
}

TEST_F(NameResolution, TakesAFullNameForItself) {
    const std::string name = provider().makeClass({"Known", {}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_EQ(omResolveAnyClass(name, nullptr), name);
}

TEST_F(NameResolution, FollowsTheNamesOfAFile) {
    const auto subject = provider().scope();
    CONFORMANCE_NEEDS(subject, "scopes of files");
    const FunctionScope* scope = Dispatcher::getDispatcher().getFunctionScope(subject->file);
    ASSERT_NE(scope, nullptr);
    EXPECT_EQ(omResolveAnyClass(subject->name, scope), subject->fullName);
    EXPECT_EQ(omResolveAnyClass(subject->name, nullptr), "") << "elsewhere the name denotes nothing";
    EXPECT_EQ(omResolveAnyClass(conformance::unknownName, scope), "");
}

TEST_F(NameResolution, LeavesNamesWithoutAQualificationAlone) {
    for (const std::string& name : {std::string("Account"), std::string("bank.Account"), std::string("")}) {
        EXPECT_FALSE(isSoftwarePackageQualifiedName(name)) << name;
        EXPECT_EQ(getBaseClassNameFromFullName(name), name);
    }
}

TEST_F(NameResolution, RemovesAQualification) {
    const auto names = provider().qualifiedName();
    CONFORMANCE_NEEDS(names, "names with a software-package qualification");
    EXPECT_TRUE(isSoftwarePackageQualifiedName(names->first));
    EXPECT_EQ(getBaseClassNameFromFullName(names->first), names->second);
    EXPECT_FALSE(isSoftwarePackageQualifiedName(names->second));
    EXPECT_EQ(getBaseClassNameFromFullName(names->second), names->second) << "once is enough";
}

TEST_F(NameResolution, OfQualificationsIsTextWorkForAnyThread) {
    std::string base;
    bool isQualified = true;
    std::thread([&] {
        base = getBaseClassNameFromFullName("bank.Account");
        isQualified = isSoftwarePackageQualifiedName("bank.Account");
    }).join();
    EXPECT_EQ(base, "bank.Account");
    EXPECT_FALSE(isQualified);
}

}  // namespace

#include "host/dispatcher.h"

#include "tests/conformance/suite/suite.h"

namespace {

using DispatcherService = conformance::Conformance;

TEST_F(DispatcherService, IsOneForTheProcess) {
    Dispatcher& dispatcher = Dispatcher::getDispatcher();
    EXPECT_EQ(&dispatcher, &Dispatcher::getDispatcher());
    EXPECT_EQ(&dispatcher.getObjectSystem(), &dispatcher.getObjectSystem());
    EXPECT_EQ(&dispatcher.GetCurrentPath(), &dispatcher.GetCurrentPath());
    EXPECT_EQ(&dispatcher.GetCurrentWorkingFolder(), &dispatcher.GetCurrentWorkingFolder());
}

TEST_F(DispatcherService, KnowsNoScopeOfNoFile) {
    EXPECT_EQ(Dispatcher::getDispatcher().getFunctionScope(u""), nullptr);
    EXPECT_EQ(Dispatcher::getDispatcher().getFunctionScope(u"/no/such/file/anywhere.txt"), nullptr);
}

TEST_F(DispatcherService, KnowsTheScopeOfAFile) {
    const auto subject = provider().scope();
    CONFORMANCE_NEEDS(subject, "scopes of files");
    EXPECT_NE(Dispatcher::getDispatcher().getFunctionScope(subject->file), nullptr);
}

TEST_F(DispatcherService, KnowsNoRunningFunctionAtThePrompt) {
    EXPECT_EQ(Dispatcher::getDispatcher().GetCurrentlyExecutingFunctionScope(), nullptr);
}

TEST_F(DispatcherService, NamesDocumentedBuiltins) {
    const std::u16string known = provider().documentedBuiltin();
    const std::vector<std::u16string> names = Dispatcher::getDispatcher().getDocumentedBuiltins();
    CONFORMANCE_NEEDS(!known.empty(), "documented built-in functions");
    EXPECT_THAT(names, ::testing::Contains(known));
    EXPECT_THAT(names, ::testing::Not(::testing::Contains(std::u16string())));
}

}  // namespace

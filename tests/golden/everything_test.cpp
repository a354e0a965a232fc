// What the engine does with modules, keys, arguments and files when the host fails, and with texts of any length.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "frontends/completion/complete.h"
#include "host/exceptions.h"
#include "tests/golden/golden_worlds.h"
#include "tests/support/world_test.h"

namespace {

using contextdata::completion::complete;
using contextdata::completion::Completions;
using contextdata::completion::parse;
using contextdata::completion::Refusal;
using contextdata::completion::Wanted;
using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::IsEmpty;
using testing::Not;

constexpr const char16_t* texts[] = {u"import pa",          u"import paper.", u"from paper import ", u"rows[\"",
                                     u"rows[\"inner\"][\"", u"table['",       u"rows[2].",           u"fold(ti",
                                     u"open('drawer/"};

class Everything : public testing::Test {
protected:
    Everything() {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
        golden::build(desk, "desk");
    }

    Completions offered(std::u16string_view text) { return complete({text, text.size(), {}}, desk); }

    memory_host::FaultPlan& faults() { return desk.world().faults(); }

    golden::GoldenWorld desk;
};

TEST_F(Everything, everyFailureOfEveryCallIsContained) {
    for (const char16_t* text : texts) {
        desk.world().journal().clear();
        EXPECT_THAT(offered(text).items, Not(IsEmpty())) << testing::PrintToString(std::u16string(text));
        const std::size_t calls = desk.world().journal().calls().size();
        for (const Fault fault : failuresButInterrupt) {
            for (std::size_t call = 1; call <= calls; ++call) {
                faults().failCall(call, fault);
                EXPECT_NO_THROW(offered(text)) << testing::PrintToString(std::u16string(text)) << call << fault;
            }
        }
        faults().clear();
    }
}

TEST_F(Everything, theInterruptPassesOutOfEachKind) {
    const auto passes = [this](Service service, std::u16string_view text) {
        faults().failService(service, Fault::interrupt);
        EXPECT_THROW(offered(text), InterruptException) << nameOf(service);
        faults().clear();
    };
    passes(Service::inFullFevalFcn, u"import pa");
    passes(Service::namespaceGetClasses, u"from paper import ");
    passes(Service::inCallFcn, u"table['");
    passes(Service::omGetFunctionMetadata, u"fold(ti");
    passes(Service::ioGetDirList, u"open('drawer/");
    passes(Service::inGetValueFromCurrentWorkspace, u"rows[2].");
}

TEST_F(Everything, aListOfModulesThatTheHostFailsAtLeavesTheOther) {
    faults().failService(Service::inFullFevalFcn, Fault::hostException);
    EXPECT_EQ(offered(u"import paper.").items.size(), 1U);
    faults().clear();
    faults().failService(Service::namespaceGetNamespaces, Fault::hostException);
    EXPECT_EQ(offered(u"import paper.").items.size(), 1U);
}

TEST_F(Everything, theRangeIsThatOfTheNameAlone) {
    EXPECT_EQ(offered(u"open('drawer/l").start, 13U);
    EXPECT_EQ(offered(u"open('drawer/l").end, 14U);
    EXPECT_EQ(offered(u"rows[\"in").start, 6U);
    const Completions refused = offered(u"open('drawer/nothing");
    EXPECT_EQ(refused.refusal, Refusal::insideString);
    EXPECT_EQ(refused.start, refused.end);
}

TEST_F(Everything, thereIsNoLengthAndNoDepthThatATextMustNotHave) {
    const std::u16string brackets(10'000, u'(');
    EXPECT_THAT(offered(brackets + u"fold(ti").items, IsEmpty());
    EXPECT_THAT(offered(brackets + std::u16string(10'000, u')') + u"; fold(ti").items, Not(IsEmpty()));
    const std::u16string million(1'000'000, u'[');
    EXPECT_THAT(offered(million).items, IsEmpty());
    EXPECT_THAT(offered(u"x = '" + std::u16string(1'000'000, u'a') + u"'; fold(ti").items, Not(IsEmpty()));
    EXPECT_THAT(offered(u"open('" + std::u16string(1'000'000, u'a')).items, IsEmpty());
    std::u16string subscripts = u"rows";
    for (int count = 0; count < 10'000; ++count) {
        subscripts += u"[0]";
    }
    EXPECT_THAT(offered(subscripts + u".").items, IsEmpty());
}

TEST_F(Everything, theHostIsNotAskedForWhatNobodyTypes) {
    std::u16string chain;
    for (int count = 0; count < 10'000; ++count) {
        chain += u"rows.";
    }
    desk.world().journal().clear();
    for (const std::u16string& text :
         {chain + u"rows[0].", chain + u"rows[\"", chain + u"rows(", u"import " + chain, chain + u"rows[0][\""}) {
        EXPECT_THAT(offered(text).items, IsEmpty());
    }
    EXPECT_THAT(desk.world().journal().calls(), IsEmpty());
}

TEST_F(Everything, aChainWithSubscriptsIsGivenToTheHostAsItWasTyped) {
    const std::u16string_view text = u"print(a.b [0]['k'] . c.d";
    const auto parsed = parse(text, text.size());
    EXPECT_EQ(parsed.wanted, Wanted::membersOfExpression);
    EXPECT_EQ(parsed.refusal, Refusal::needsEvaluation);
    EXPECT_EQ(parsed.expression, u"a.b [0]['k'] . c");
    EXPECT_EQ(parsed.fragment, u"d");
}

}  // namespace

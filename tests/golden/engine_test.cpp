// What the engine does when the host fails, and what it asks of the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "frontends/completion/class_members.h"
#include "frontends/completion/complete.h"
#include "host/exceptions.h"
#include "tests/golden/golden_worlds.h"
#include "tests/support/world_test.h"

namespace {

using contextdata::completion::Items;
using contextdata::completion::membersOfClass;
using contextdata::completion::Side;
using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::Truly;
using ZELKContextData::ResolvedClassID;

class Engine : public testing::Test {
protected:
    Engine() {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
        golden::build(bank, "bank");
    }

    std::vector<std::u16string> offered(std::u16string_view text) {
        std::vector<std::u16string> names;
        for (const auto& item : complete({text, text.size(), {}}, bank).items) {
            names.push_back(item.name);
        }
        return names;
    }

    memory_host::FaultPlan& faults() { return bank.world().faults(); }
    memory_host::CallJournal& journal() { return bank.world().journal(); }

    golden::GoldenWorld bank;
};

TEST_F(Engine, aListThatTheHostFailsAtContributesNothingAndTheOthersStay) {
    for (const Fault fault : failuresButInterrupt) {
        faults().failService(Service::classVisitMethods, fault);
        EXPECT_THAT(offered(u"account."), ElementsAre(u"balance", u"limit", u"owner")) << fault;
        faults().failService(Service::classVisitProperties, fault);
        EXPECT_THAT(offered(u"account."), ElementsAre(u"delete", u"deposit", u"isvalid", u"open", u"withdraw"))
            << fault;
        faults().failService(Service::classGetEnumerationMembers, fault);
        EXPECT_THAT(offered(u"Money."), ElementsAre(u"EUR", u"convert", u"symbol")) << fault;
        faults().failService(Service::inCallFcn, fault);
        EXPECT_THAT(offered(u"savings."), Not(Contains(u"nickname"))) << fault;
        EXPECT_THAT(offered(u"savings."), Contains(u"rate")) << fault;
        faults().failService(Service::namespaceGetFunctions, fault);
        EXPECT_THAT(offered(u"bank."), ElementsAre(u"Account", u"Ledger", u"Savings", u"rates")) << fault;
        faults().clear();
    }
}

TEST_F(Engine, aMemberWhoseClassIsNotKnownHasNoneAndTheOthersKeepTheirs) {
    bank.world().cls("bank.Savings").property("größe").property("zinsfuß").property("zone");
    const auto savings = ResolvedClassID::fromLegacyString(std::string("bank.Savings"));
    const auto defining = [&savings] {
        std::map<std::u16string, std::u16string> classes;
        for (const auto& item : membersOfClass(savings, Side::object)) {
            classes.emplace(item.name, item.definingClass.text());
        }
        return classes;
    };
    const auto beginsLikeSize = [](const std::u16string& name) { return name.starts_with(u"gr"); };
    journal().clear();
    const auto whole = defining();
    EXPECT_THAT(whole, Contains(Pair(Truly(beginsLikeSize), u"bank.Savings")));
    EXPECT_THAT(whole, Contains(Pair(u"zone", u"bank.Savings")));
    EXPECT_THAT(whole, Contains(Pair(u"deposit", u"bank.Account")));
    std::size_t unknown = 0;
    for (std::size_t call = journal().countOf(Service::classOfMember); call > 0; --call) {
        faults().failService(Service::classOfMember, call, Fault::nullAnswer);
        for (const auto& [name, cls] : defining()) {
            if (cls.empty()) {
                ++unknown;
            } else if (whole.contains(name)) {
                EXPECT_EQ(cls, whole.at(name)) << call;
            }
        }
        faults().clear();
    }
    // An overload speaks for the one method that has it.
    EXPECT_EQ(unknown, whole.size() - 1);
}

TEST_F(Engine, aStaticMethodIsToldThoughItIsNotKnownWhoDeclaresIt) {
    const auto account = ResolvedClassID::fromLegacyString(std::string("bank.Account"));
    const auto kindOfOpen = [&account] {
        const Items items = membersOfClass(account, Side::object);
        const auto open =
            std::find_if(items.begin(), items.end(), [](const auto& item) { return item.name == u"open"; });
        return open == items.end() ? "none" : textOf(open->kind);
    };
    EXPECT_STREQ(kindOfOpen(), "static method");
    journal().clear();
    kindOfOpen();
    const std::size_t walks = journal().countOf(Service::classVisitMethods);
    for (std::size_t walk = 1; walk <= walks; ++walk) {
        faults().failService(Service::classVisitMethods, walk, Fault::standardException);
        // The list of methods names the static ones too; without the list of these, which is the second walk, it is all
        // that is known.
        EXPECT_STREQ(kindOfOpen(), walk == 2 ? "method" : "static method") << walk;
        faults().clear();
    }
}

TEST_F(Engine, whoDeclaresAMethodIsToldThoughItIsNotKnownWhetherItIsStatic) {
    const auto account = ResolvedClassID::fromLegacyString(std::string("bank.Account"));
    const Items whole = membersOfClass(account, Side::object);
    for (const Service service : {Service::methodIsStatic, Service::methodIsListable}) {
        journal().clear();
        membersOfClass(account, Side::object);
        for (std::size_t call = journal().countOf(service); call > 0; --call) {
            faults().failService(service, call, Fault::standardException);
            for (const auto& item : membersOfClass(account, Side::object)) {
                EXPECT_FALSE(item.definingClass.empty())
                    << nameOf(service) << call << testing::PrintToString(item.name);
            }
            faults().clear();
        }
    }
    EXPECT_EQ(membersOfClass(account, Side::object), whole);
}

TEST_F(Engine, staticMethodsAreAskedForWhereThereMayBeSome) {
    bank.world().cls("bank.Plain").method("run").method("hiddenStart").isStatic().unlistable();
    const auto walksFor = [this](const char* name) {
        journal().clear();
        membersOfClass(ResolvedClassID::fromLegacyString(std::string(name)), Side::object);
        return journal().countOf(Service::classVisitMethods);
    };
    EXPECT_EQ(walksFor("bank.Account"), 3U);
    EXPECT_EQ(walksFor("bank.Plain"), 2U);
}

TEST_F(Engine, everyFailureOfEveryCallIsContained) {
    for (const char16_t* text :
         {u"account.", u"account.owner.", u"savings.n", u"Money.", u"bank.", u"b.", u"number."}) {
        journal().clear();
        offered(text);
        const std::size_t calls = journal().calls().size();
        for (const Fault fault : failuresButInterrupt) {
            for (std::size_t call = 1; call <= calls; ++call) {
                faults().failCall(call, fault);
                EXPECT_NO_THROW(offered(text)) << testing::PrintToString(std::u16string(text)) << call << fault;
            }
        }
        faults().clear();
    }
}

TEST_F(Engine, theInterruptPassesOutOfEveryStepThatCanRunForLong) {
    for (const Service service : {Service::inCallFcn, Service::classVisitMethods, Service::classVisitProperties,
                                  Service::classGetEnumerationMembers, Service::getClass}) {
        faults().failService(service, Fault::interrupt);
        EXPECT_THROW(offered(u"Money."), InterruptException) << nameOf(service);
        faults().clear();
    }
    for (const Service service : {Service::getNamespaceInterface, Service::namespaceGetClasses,
                                  Service::namespaceGetFunctions, Service::namespaceGetNamespaces}) {
        faults().failService(service, Fault::interrupt);
        EXPECT_THROW(offered(u"bank."), InterruptException) << nameOf(service);
        faults().clear();
    }
}

TEST_F(Engine, aRefusedTextAsksTheHostNothing) {
    journal().clear();
    for (const char16_t* text : {u"f'account.", u"# account.", u"account", u"1.", u"account().", u"account..", u""}) {
        EXPECT_THAT(offered(text), IsEmpty());
    }
    EXPECT_THAT(journal().calls(), IsEmpty());
}

TEST_F(Engine, aSegmentThatIsRefusedIsNotTriedAsAName) {
    bank.variable(u"bank", bank.world().number(1));
    EXPECT_THAT(offered(u"bank.Account."), IsEmpty());
    EXPECT_EQ(journal().countOf(Service::omResolveAnyClass), 0U);
}

TEST_F(Engine, anObjectDoesNotOfferTheEnumerationMembersOfItsClass) {
    const auto currency = ResolvedClassID::fromLegacyString(std::string("bank.Currency"));
    const auto has = [](const Items& items, const char16_t* name) {
        return std::any_of(items.begin(), items.end(), [name](const auto& item) { return item.name == name; });
    };
    EXPECT_TRUE(has(membersOfClass(currency, Side::classItself), u"USD"));
    EXPECT_FALSE(has(membersOfClass(currency, Side::object), u"USD"));
    EXPECT_THAT(membersOfClass(ResolvedClassID(), Side::object), IsEmpty());
}

}  // namespace

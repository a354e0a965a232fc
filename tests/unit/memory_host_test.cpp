// The in-memory host itself: what tests rely on when they rely on a world.
#include <set>
#include <thread>

#include "host/i18n.h"
#include "host/interned.h"
#include "host/text.h"
#include "hosts/memory/world.h"
#include "tests/support/world_test.h"

namespace {

using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using memory_host::World;
using testing::ElementsAre;

TEST(MemoryHost, InternedNamesOutliveWorlds) {
    zelk::COSInternedID first;
    {
        const World world;
        first = zelk::internal::makeInterned("bank.Account");
    }
    const World world;
    EXPECT_EQ(zelk::internal::makeInterned("bank.Account"), first);
    EXPECT_EQ(first.view(), "bank.Account");
}

TEST(MemoryHost, InterningFromManyThreadsGivesOneHandleAName) {
    constexpr int threadCount = 16;
    constexpr int nameCount = 200;
    std::vector<std::vector<zelk::COSInternedID>> handles(threadCount);
    std::vector<std::thread> threads;
    for (auto& mine : handles) {
        threads.emplace_back([&mine] {
            for (int number = 0; number < nameCount; ++number) {
                mine.push_back(zelk::internal::makeInterned("thread.Name" + std::to_string(number)));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const auto& mine : handles) {
        EXPECT_EQ(mine, handles.front());
    }
    EXPECT_EQ(std::set(handles.front().begin(), handles.front().end()).size(), static_cast<std::size_t>(nameCount));
}

TEST(MemoryHost, EndOfTheWorldReportsWhatIsStillAlive) {
    std::string report;
    memory_host::setLeakReporter([&report](const std::string& text) { report = text; });
    qxUniqueArray leaked;
    {
        World world;
        leaked = world.number(1);
    }
    EXPECT_EQ(report, "still alive at the end of the world: 1 values, 0 node and iterator handles");
}

TEST(MemoryHost, SecondWorldIsRefused) {
    const World world;
    EXPECT_THROW(World(), std::logic_error);
}

class MemoryHostTest : public WorldTest {};

TEST_F(MemoryHostTest, JournalTellsCallsInOrderAndBuildingIsNoCall) {
    world.cls("bank.Account").method("pay");
    EXPECT_THAT(world.journal().calls(), testing::IsEmpty());
    const zelk::COSInternedID id = zelk::internal::makeInterned("bank.Account");
    zelk::COSClass::getClass(id)->getDefinition(false);
    EXPECT_THAT(world.journal().calls(),
                ElementsAre(Call{Service::makeInterned, "bank.Account"}, Call{Service::getClass, "bank.Account"},
                            Call{Service::classGetDefinition, "bank.Account"}));
}

TEST_F(MemoryHostTest, FaultPlanFailsTheCallItNames) {
    world.faults().failCall(2, Fault::hostException);
    EXPECT_NO_THROW(zelk::internal::makeInterned("a"));
    EXPECT_THROW(zelk::internal::makeInterned("a"), foundation::core::except::IException);
    EXPECT_NO_THROW(zelk::internal::makeInterned("a"));
    EXPECT_EQ(world.faults().callsMet(), 3U);
}

TEST_F(MemoryHostTest, EveryKindOfFaultIsWhatItSays) {
    const auto fail = [this](Fault fault) {
        world.faults().failCall(1, fault);
        zelk::internal::makeInterned("a");
    };
    EXPECT_THROW(fail(Fault::interrupt), foundation::core::except::InterruptException);
    EXPECT_THROW(fail(Fault::standardException), std::runtime_error);
    EXPECT_THROW(fail(Fault::thrownInt), int);
    EXPECT_THROW(fail(Fault::badAlloc), std::bad_alloc);
    EXPECT_NO_THROW(fail(Fault::nullAnswer));
}

TEST_F(MemoryHostTest, UnwatchedWorldKeepsNoJournal) {
    world.unwatched();
    zelk::internal::makeInterned("a");
    EXPECT_THAT(world.journal().calls(), testing::IsEmpty());
}

TEST_F(MemoryHostTest, NodeHandlesAreCounted) {
    zelk::COSClass* cls = world.cls("bank.Account").property("balance").object();
    {
        const zelk::COSInterfacePtr property = cls->findProperty(zelk::internal::makeInterned("balance"));
        EXPECT_EQ(world.handlesAlive(), 1U);
    }
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_F(MemoryHostTest, ExhaustedIteratorHasNoElements) {
    zelk::COSClass* cls = world.cls("bank.Account").object();
    const zelk::COSIteratorPtr methods = cls->findMethods(zelk::internal::makeInterned("pay"));
    EXPECT_FALSE(methods->hasMoreElements());
    EXPECT_THROW(methods->nextElement(), zelk::ENoElements);
}

TEST_F(MemoryHostTest, WalkMeetsEachAncestorOnceInADiamond) {
    world.cls("Root").method("root");
    world.cls("Left").derives("Root").method("left");
    world.cls("Right").derives("Root").method("right");
    zelk::COSClass* leaf = world.cls("Leaf").derives("Left").derives("Right").method("leaf").object();
    struct Visitor final : zelk::COSVisitor<zelk::COSInterface*> {
        void visit(zelk::COSInterface* member) override { names.emplace_back(zelk::cosiToMethod(member)->getName()); }
        std::vector<std::string> names;
    } visitor;
    leaf->visitMethods(visitor);
    EXPECT_THAT(visitor.names, ElementsAre("leaf", "left", "root", "right"));
}

TEST_F(MemoryHostTest, NamespaceYieldsItsClassesFunctionsAndNamespaces) {
    world.ns("bank").holdsClass("bank.Account").function("convert").access(1).holdsNamespace("bank.internal");
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(zelk::internal::makeInterned("bank"));
    zelk::COSNamespace* bank = zelk::cosiToNamespace(node.get());
    ASSERT_NE(bank, nullptr);
    EXPECT_EQ(zelk::cosiToMethod(node.get()), nullptr);
    EXPECT_STREQ(zelk::cosiToClass(bank->getClasses()->nextElement().get())->getName(), "bank.Account");
    const zelk::COSInterfacePtr function = bank->getFunctions()->nextElement();
    EXPECT_EQ(zelk::cosiToMethod(function.get())->getAccess(), 1);
    EXPECT_EQ(zelk::cosiClassOfMember(function.get()), nullptr);
    EXPECT_STREQ(zelk::cosiToNamespace(bank->getNamespaces()->nextElement().get())->getName(), "bank.internal");
}

TEST_F(MemoryHostTest, EndOfTheTemporaryScopeTakesWhatWasNotTakenOut) {
    qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "balance", world.number(7));
    EXPECT_NE(qxGetPropertyShared(account.get(), 0, "balance"), nullptr);
    world.endTemporaryScope();
    account.reset();
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_F(MemoryHostTest, ConversionsRoundTripBeyondAscii) {
    const std::u16string text = u"gr\u00F6\u00DFe \U0001D70B";
    EXPECT_EQ(fl::i18n::to_ustring(fl::i18n::to_string(text)), text);
}

TEST_F(MemoryHostTest, ConversionsRefuseInvalidText) {
    const std::u16string loneSurrogate(1, char16_t{0xD800});
    EXPECT_THROW(fl::i18n::to_string(loneSurrogate), fl::i18n::ConversionException);
    EXPECT_THROW(fl::i18n::to_ustring("\xFF"), fl::i18n::ConversionException);
}

TEST_F(MemoryHostTest, AsciiConvertersSubstituteOrRefuse) {
    using fl::i18n::codecvt_ascii_to_ustring;
    using fl::i18n::codecvt_ustring_to_ascii;
    EXPECT_EQ(fl::i18n::to_string(u"a\u00DF", codecvt_ustring_to_ascii(false)), "a?");
    EXPECT_THROW(fl::i18n::to_string(u"a\u00DF", codecvt_ustring_to_ascii(true)), fl::i18n::ConversionException);
    EXPECT_EQ(fl::i18n::to_ustring("a\xFF", codecvt_ascii_to_ustring(false)), u"a?");
    EXPECT_THROW(fl::i18n::to_ustring("a\xFF", codecvt_ascii_to_ustring(true)), fl::i18n::ConversionException);
    EXPECT_EQ(fl::i18n::to_ustring("plain", codecvt_ascii_to_ustring(true)), u"plain");
}

}  // namespace

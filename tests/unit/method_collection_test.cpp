// The methods of a class and of all it derives from: who is asked, with which access, and how the answers are joined.
#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using Context = MethodInfo::GetContext;

constexpr char marker[] = "ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames";

/// Keeps what it is asked with.
class Asked final : public OpenClassInfo {
public:
    using OpenClassInfo::OpenClassInfo;

    std::vector<MethodInfo> getMethods(const MethodInfo::GetOptions& options) const override {
        accessibility = options.accessibility;
        return ClassInfo::getMethods(options);
    }
    bool isA(const std::u16string& name) const override {
        ++namesAsked;
        return ClassInfo::isA(name);
    }

    using ClassInfo::isA;

    mutable std::vector<std::int32_t> accessibility = {-1};
    mutable int namesAsked = 0;
};

class MethodCollection : public ClassModelTest {
protected:
    static std::vector<MethodInfo> allMethods(const ClassInfo& cls) { return cls.getMethods(methodOptions()); }

    static std::vector<std::u16string> definingClasses(const ClassInfo& cls) {
        std::vector<std::u16string> classes;
        for (const MethodInfo& method : allMethods(cls)) {
            classes.push_back(method.definingClass);
        }
        return classes;
    }
};

TEST_F(MethodCollection, ClassWithoutSuperclassesGivesItsOwnInTheirOrder) {
    world.cls("till:shop.Till").method("sell").method("open").isStatic().method("kept").visibility(0);
    const std::vector<MethodInfo> methods = allMethods(infoOf("till:shop.Till"));
    ASSERT_THAT(namesOf(methods), ElementsAre(u"sell", u"open"));
    EXPECT_EQ(methods[0].definingClass, u"till:shop.Till");
    EXPECT_FALSE(methods[0].isStatic);
    EXPECT_TRUE(methods[1].isStatic);
}

// Gates.

TEST_F(MethodCollection, UnknownClassAsksNobodyNotEvenSuperclasses) {
    world.cls("Root").method("grow");
    OpenClassInfo cls({}, u"named all the same");
    cls.structure_.superclasses.push_back(
        std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(id("Root"))));
    world.journal().clear();
    for (const Context context : {Context::beforeDot, Context::afterDot, Context::anyPosition}) {
        EXPECT_THAT(methodsOf(cls, context), IsEmpty());
    }
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

TEST_F(MethodCollection, AnyOtherPositionGivesNothingAndAsksNobody) {
    world.cls("Leaf").method("fall");
    const ClassInfo leaf = infoOf("Leaf");
    world.journal().clear();
    for (const int code : {0, 4, -1, 5}) {
        EXPECT_THAT(methodsOf(leaf, static_cast<Context>(code)), IsEmpty()) << code;
    }
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

TEST_F(MethodCollection, BuiltInClassesHaveNoMethodsBeforeADotSaveThoseThatTheTableSpellsOtherwise) {
    for (const char* name : {"double", "handle", "uint16", "int32", "unit16", "bank.Account"}) {
        world.cls(name).method("act");
    }
    EXPECT_THAT(methodsOf(infoOf("double"), Context::beforeDot), IsEmpty());
    EXPECT_THAT(methodsOf(infoOf("handle"), Context::beforeDot), IsEmpty());
    EXPECT_THAT(methodsOf(infoOf("unit16"), Context::beforeDot), IsEmpty());
    EXPECT_THAT(methodsOf(infoOf("uint16"), Context::beforeDot), ElementsAre(u"act"));
    EXPECT_THAT(methodsOf(infoOf("int32"), Context::beforeDot), ElementsAre(u"act"));
    EXPECT_THAT(methodsOf(infoOf("bank.Account"), Context::beforeDot), ElementsAre(u"act"));
    EXPECT_THAT(methodsOf(infoOf("double"), Context::afterDot), ElementsAre(u"act"));
    EXPECT_THAT(methodsOf(infoOf("double"), Context::anyPosition), ElementsAre(u"act"));
}

TEST_F(MethodCollection, SuperclassThatFailsAGateContributesNothingNotEvenWhatItInherits) {
    world.cls("Root").method("grow");
    world.cls("handle").derives("Root").method("delete");
    world.cls("bank.Account").derives("handle").method("pay");
    const ClassInfo account = infoOf("bank.Account");
    EXPECT_THAT(methodsOf(account, Context::beforeDot), ElementsAre(u"pay"));
    EXPECT_THAT(methodsOf(account, Context::afterDot), ElementsAre(u"grow", u"delete", u"pay"));
}

TEST_F(MethodCollection, MarkerClassAndAllBelowItHaveNoMethodsAfterADotAndKeepThemElsewhere) {
    world.cls(marker).method("mark");
    world.cls("Table").derives("Plain").derives(marker).method("sort");
    world.cls("TallTable").derives("Table").method("gather");
    world.cls("Plain").method("grow");
    for (const char* name : {"TallTable", "Table", marker}) {
        EXPECT_THAT(methodsOf(infoOf(name), Context::afterDot), IsEmpty()) << name;
    }
    EXPECT_THAT(methodsOf(infoOf("TallTable"), Context::anyPosition),
                ElementsAre(u"grow", u"mark", u"sort", u"gather"));
    EXPECT_THAT(methodsOf(infoOf("TallTable"), Context::beforeDot), ElementsAre(u"grow", u"mark", u"sort", u"gather"));
    EXPECT_THAT(methodsOf(infoOf("Plain"), Context::afterDot), ElementsAre(u"grow"));
}

TEST_F(MethodCollection, MarkerClassCountsUnderItsNameWithoutAPackage) {
    world.cls(std::string("core:") + marker);
    world.cls("Table").derives(std::string("core:") + marker).method("sort");
    EXPECT_THAT(methodsOf(infoOf("Table"), Context::afterDot), IsEmpty());
}

TEST_F(MethodCollection, MarkerClassIsAskedAfterThroughTheVirtualTestAndAfterADotOnly) {
    world.cls("Leaf").method("fall");
    Asked leaf(id("Leaf"), u"Leaf");
    for (const Context context : {Context::none, Context::beforeDot, Context::anyPosition}) {
        leaf.getMethods(methodOptions(context));
    }
    EXPECT_EQ(leaf.namesAsked, 0);
    leaf.getMethods(methodOptions(Context::afterDot));
    EXPECT_EQ(leaf.namesAsked, 1);
    leaf.structure_.classID = {};
    leaf.getMethods(methodOptions(Context::afterDot));
    EXPECT_EQ(leaf.namesAsked, 1) << "an unknown class is out before";
}

// Own methods.

TEST_F(MethodCollection, ClassWithoutADefinitionKeepsOnlyWhatItInherits) {
    world.cls("Root").method("grow");
    world.cls("Leaf").derives("Root").method("fall").undefined();
    EXPECT_THAT(allMethods(infoOf("Leaf")).size(), 1U);
    EXPECT_THAT(methodsOf(infoOf("Leaf")), ElementsAre(u"grow"));
}

TEST_F(MethodCollection, ClassThatWithholdsItsMembersKeepsOnlyWhatItInheritsAndHidesNothing) {
    world.cls("Root").method("grow").method("shed");
    world.cls("Leaf").derives("Root").method("fall").method("shed").visibility(0).withholdsOwnMembers();
    EXPECT_THAT(methodsOf(infoOf("Leaf")), ElementsAre(u"grow", u"shed"));
    MethodInfo::GetOptions withHidden = methodOptions();
    withHidden.includeHidden = true;
    EXPECT_THAT(namesOf(infoOf("Leaf").getMethods(withHidden)), ElementsAre(u"grow", u"shed"));
}

TEST_F(MethodCollection, ClassWithoutAClassObjectKeepsOnlyWhatItInherits) {
    world.cls("Root").method("grow");
    OpenClassInfo cls(id("no.such.Class"), u"no.such.Class");
    cls.structure_.superclasses.push_back(
        std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(id("Root"))));
    EXPECT_THAT(methodsOf(cls), ElementsAre(u"grow"));
}

TEST_F(MethodCollection, ClassKnownByAnOlderNameDeclaresNothingUnderThatName) {
    world.cls("Leaf").derives("Root").method("fall");
    world.cls("Root").method("grow");
    world.legacyName("OldLeaf", "Leaf");
    EXPECT_THAT(methodsOf(infoOf("OldLeaf")), ElementsAre(u"grow"));
}

// Inherited methods.

TEST_F(MethodCollection, DiamondListsTheMethodsOfItsRootOncePerPath) {
    makeDiamond();
    world.cls("Root").method("grow");
    world.cls("Left").method("lean");
    world.cls("Right").method("stand");
    world.cls("Leaf").method("fall");
    EXPECT_THAT(methodsOf(infoOf("Leaf")), ElementsAre(u"grow", u"lean", u"grow", u"stand", u"fall"));
    EXPECT_THAT(definingClasses(infoOf("Leaf")), ElementsAre(u"Root", u"Left", u"Root", u"Right", u"Leaf"));
}

TEST_F(MethodCollection, MethodThatIsDeclaredAgainStandsTwiceTheInheritedOneFirst) {
    world.cls("Root").method("grow").method("shed");
    world.cls("Leaf").derives("Root").method("grow").isStatic();
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"grow", u"shed", u"grow"));
    EXPECT_THAT(definingClasses(leaf), ElementsAre(u"Root", u"Root", u"Leaf"));
}

TEST_F(MethodCollection, HiddenOwnMethodTakesAwayEveryInheritedNamesakeAndTheOthersKeepTheirOrder) {
    makeDiamond();
    world.cls("Root").method("grow").method("shed").method("rest");
    world.cls("Leaf").method("shed").visibility(0).method("fall");
    EXPECT_THAT(methodsOf(infoOf("Leaf")), ElementsAre(u"grow", u"rest", u"grow", u"rest", u"fall"));
}

TEST_F(MethodCollection, HiddenOwnMethodTakesAwayWholeNamesWithTheirLetterCaseOnly) {
    world.cls("Root").method("shedding").method("Shed").method("she");
    world.cls("Leaf").derives("Root").method("shed").visibility(0);
    EXPECT_THAT(methodsOf(infoOf("Leaf")), ElementsAre(u"shedding", u"Shed", u"she"));
}

TEST_F(MethodCollection, HiddenMethodOfASuperclassHidesNothingOfItsSiblings) {
    world.cls("Left").method("shed").visibility(0);
    world.cls("Right").method("shed");
    world.cls("Leaf").derives("Left").derives("Right");
    EXPECT_THAT(methodsOf(infoOf("Leaf")), ElementsAre(u"shed"));
}

TEST_F(MethodCollection, OwnMethodThatIsNotAccessibleHidesNothing) {
    world.cls("Root").method("shed");
    world.cls("Leaf").derives("Root").method("shed").visibility(0).access(2);
    EXPECT_THAT(definingClasses(infoOf("Leaf")), ElementsAre(u"Root"));
}

TEST_F(MethodCollection, AskingForHiddenMethodsTakesNoneAway) {
    world.cls("Root").method("shed");
    world.cls("Leaf").derives("Root").method("shed").visibility(0);
    MethodInfo::GetOptions options = methodOptions();
    options.includeHidden = true;
    const std::vector<MethodInfo> methods = infoOf("Leaf").getMethods(options);
    ASSERT_THAT(namesOf(methods), ElementsAre(u"shed", u"shed"));
    EXPECT_EQ(methods[1].definingClass, u"Leaf");
}

// Access.

TEST_F(MethodCollection, FirstPrivateCodeIsTakenAwayAtEveryLevelAndOnlyTheFirst) {
    const auto top = std::make_shared<Asked>(id("Top"), u"Top");
    const auto middle = std::make_shared<Asked>(id("Middle"), u"Middle");
    OpenClassInfo leaf(id("Leaf"), u"Leaf");
    middle->structure_.superclasses.push_back(top);
    leaf.structure_.superclasses.push_back(middle);
    MethodInfo::GetOptions options = methodOptions();
    options.accessibility = {0, 2, 2};
    leaf.getMethods(options);
    EXPECT_THAT(middle->accessibility, ElementsAre(0, 2));
    EXPECT_THAT(top->accessibility, ElementsAre(0));
    EXPECT_THAT(options.accessibility, ElementsAre(0, 2, 2));
    options.accessibility = {2, 1, 2, 0};
    leaf.getMethods(options);
    EXPECT_THAT(middle->accessibility, ElementsAre(1, 2, 0));
    EXPECT_THAT(top->accessibility, ElementsAre(1, 0));
    options.accessibility = {0};
    leaf.getMethods(options);
    EXPECT_THAT(middle->accessibility, ElementsAre(0));
    options.accessibility = {2};
    leaf.getMethods(options);
    EXPECT_THAT(middle->accessibility, IsEmpty());
}

TEST_F(MethodCollection, PrivateMethodsAreListedOfTheClassItselfOnly) {
    world.cls("Root").method("grow").access(2).method("shed").access(1);
    world.cls("Leaf").derives("Root").method("fall").access(2);
    EXPECT_THAT(namesOf(infoOf("Leaf").getMethods({0, 1, 2}, Context::anyPosition, nullptr)),
                ElementsAre(u"shed", u"fall"));
}

TEST_F(MethodCollection, PrivateMethodOfASuperclassIsListedForAClassOnItsList) {
    world.cls("Root").method("grow").access(2).openTo("Gardener");
    world.cls("Leaf").derives("Root");
    world.cls("Gardener");
    const ClassInfo gardener = infoOf("Gardener");
    EXPECT_THAT(namesOf(infoOf("Leaf").getMethods({0, 2}, Context::anyPosition, &gardener)), ElementsAre(u"grow"));
    EXPECT_THAT(infoOf("Leaf").getMethods({0, 2}, Context::anyPosition, nullptr), IsEmpty());
}

TEST_F(MethodCollection, ShortFormLeavesOutConstructorsOperatorsAndHiddenMethods) {
    world.cls("bank.Money").method("Money").method("plus").method("kept").visibility(0).method("pay");
    EXPECT_THAT(namesOf(infoOf("bank.Money").getMethods({0}, Context::anyPosition, nullptr)), ElementsAre(u"pay"));
}

// Failures.

TEST_F(MethodCollection, FailingSuperclassContributesNothingAndTheRestStands) {
    makeDiamond();
    world.cls("Root").method("grow");
    world.cls("Left").method("lean");
    world.cls("Right").method("stand");
    world.cls("Leaf").method("fall");
    const ClassInfo leaf = infoOf("Leaf");
    for (const Fault fault : failuresButInterrupt) {
        // The classes are visited in this order: Leaf, Left, Root, Right, Root.
        world.faults().failService(Service::classVisitMethods, 2, fault);
        EXPECT_THAT(methodsOf(leaf), ElementsAre(u"grow", u"stand", u"fall")) << fault;
        world.faults().failService(Service::classVisitMethods, 3, fault);
        EXPECT_THAT(methodsOf(leaf), ElementsAre(u"lean", u"grow", u"stand", u"fall")) << fault;
    }
}

TEST_F(MethodCollection, OwnFailureEmptiesTheAnswerAndNobodyElseIsAsked) {
    world.cls("Root").method("grow");
    world.cls("Leaf").derives("Root").method("fall").method("sway");
    const ClassInfo leaf = infoOf("Leaf");
    for (const Service service :
         {Service::getClass, Service::classGetDefinition, Service::classWithholdsOwnMembers, Service::classVisitMethods,
          Service::methodGetName, Service::classOfMember, Service::methodGetAccess, Service::methodGetVisibility,
          Service::methodIsStatic, Service::toUstring}) {
        for (const Fault fault : failuresButInterrupt) {
            world.journal().clear();
            world.faults().failService(service, 1, fault);
            EXPECT_THAT(methodsOf(leaf), IsEmpty()) << nameOf(service) << ": " << fault;
            EXPECT_EQ(world.journal().countOf(Service::getClass), 1U) << nameOf(service);
        }
    }
}

TEST_F(MethodCollection, InterruptPassesFromEveryLevel) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    for (const std::size_t level : {1U, 2U, 3U, 4U, 5U}) {
        world.faults().failService(Service::classVisitMethods, level, Fault::interrupt);
        EXPECT_THROW(methodsOf(leaf), InterruptException) << level;
    }
}

TEST_F(MethodCollection, NothingOfOneAnswerGetsIntoTheNext) {
    world.cls("Root").method("grow");
    world.cls("Leaf").derives("Root").method("fall").method("grow").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall"));
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall"));
    world.faults().failService(Service::methodIsStatic, 2, Fault::standardException);
    EXPECT_THAT(methodsOf(leaf), IsEmpty());
    world.faults().clear();
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall"));
    EXPECT_THAT(methodsOf(leaf, Context::none), IsEmpty());
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall"));
}

TEST_F(MethodCollection, EveryQuestionAsksTheClassSystemAfresh) {
    world.cls("Leaf").method("fall");
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall"));
    world.cls("Leaf").method("sway");
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall", u"sway"));
}

}  // namespace

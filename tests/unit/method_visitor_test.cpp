// The choice among the methods that one class declares.
#include "contextdata/method_visitor.h"

#include "tests/unit/class_model_test.h"
#include "tests/unit/visitor_insides.h"

namespace {

using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using visitor_insides::collectedOf;
using visitor_insides::hiddenOf;
using ZELKContextData::MethodInfo;
using ZELKContextData::MethodVisitorMutable;
using Context = MethodInfo::GetContext;

class MethodVisitor : public ClassModelTest {
protected:
    struct Lists {
        Names collected;
        Names hidden;
    };

    /// Leads a visitor of one class over the methods of another, which is the same unless it is named.
    Lists visit(const char* visited, const MethodInfo::GetOptions& options, const char* walked = nullptr) {
        const ClassInfo cls = infoOf(visited);
        MethodVisitorMutable visitor(&cls);
        visitor.clear(options);
        world.cls(walked == nullptr ? visited : walked).object()->visitMethods(visitor);
        return {namesOf(collectedOf(visitor)), namesOf(hiddenOf(visitor))};
    }

    Names collect(const char* cls, const MethodInfo::GetOptions& options) { return visit(cls, options).collected; }
};

TEST_F(MethodVisitor, RecordHasNameDefiningClassAndStaticFlag) {
    world.cls("till:shop.Till").method("sell").method("gr\xC3\xB6\xC3\x9F").isStatic();
    const ClassInfo till = infoOf("till:shop.Till");
    MethodVisitorMutable visitor(&till);
    visitor.clear(methodOptions());
    world.cls("till:shop.Till").object()->visitMethods(visitor);
    ASSERT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"sell", u"gr\u00F6\u00DF"));
    EXPECT_EQ(collectedOf(visitor)[0].definingClass, u"till:shop.Till");
    EXPECT_FALSE(collectedOf(visitor)[0].isStatic);
    EXPECT_TRUE(collectedOf(visitor)[1].isStatic);
}

TEST_F(MethodVisitor, HiddenRecordIsAsComplete) {
    world.cls("bank.Gr\xC3\xB6").method("gr\xC3\xB6").isStatic().visibility(0);
    const ClassInfo cls = infoOf("bank.Gr\xC3\xB6");
    MethodVisitorMutable visitor(&cls);
    visitor.clear(methodOptions());
    world.cls("bank.Gr\xC3\xB6").object()->visitMethods(visitor);
    ASSERT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"gr\u00F6"));
    EXPECT_EQ(hiddenOf(visitor)[0].definingClass, u"bank.Gr\u00F6");
    EXPECT_TRUE(hiddenOf(visitor)[0].isStatic);
}

TEST_F(MethodVisitor, RepeatedNamesStayRepeatedInTheOrderOfTheVisits) {
    world.cls("Leaf").method("zeta").method("alpha").method("zeta").method("k").visibility(0).method("k").visibility(0);
    const Lists lists = visit("Leaf", methodOptions());
    EXPECT_THAT(lists.collected, ElementsAre(u"zeta", u"alpha", u"zeta"));
    EXPECT_THAT(lists.hidden, ElementsAre(u"k", u"k"));
}

// Declaring class.

TEST_F(MethodVisitor, OnlyWhatTheVisitedClassDeclaresIsTaken) {
    world.cls("Root").method("grow").method("kept").visibility(0);
    world.cls("Leaf").derives("Root").method("fall");
    const Lists ofLeaf = visit("Leaf", methodOptions());
    EXPECT_THAT(ofLeaf.collected, ElementsAre(u"fall"));
    EXPECT_THAT(ofLeaf.hidden, IsEmpty());
    const Lists ofRoot = visit("Root", methodOptions(), "Leaf");
    EXPECT_THAT(ofRoot.collected, ElementsAre(u"grow"));
    EXPECT_THAT(ofRoot.hidden, ElementsAre(u"kept"));
}

TEST_F(MethodVisitor, MethodOfNoClassIsRejectedByAKnownAndByAnUnknownClass) {
    world.cls("Leaf");
    world.ns("bank").function("convert");
    const zelk::COSInterfacePtr space = zelk::COSPackage::getNamespaceInterface(id("bank"));
    const zelk::COSInterfacePtr function = zelk::cosiToNamespace(space.get())->getFunctions()->nextElement();
    ASSERT_NE(zelk::cosiToMethod(function.get()), nullptr);
    for (const ClassInfo& cls : {infoOf("Leaf"), ClassInfo(ResolvedClassID())}) {
        MethodVisitorMutable visitor(&cls);
        visitor.clear(methodOptions());
        visitor.visit(function.get());
        EXPECT_THAT(collectedOf(visitor), IsEmpty());
        EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    }
}

TEST_F(MethodVisitor, NodeThatIsNoMethodIsPassedOver) {
    world.cls("Leaf").method("fall").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    const zelk::COSInterfacePtr property = world.cls("Leaf").object()->findProperty(id("colour"));
    MethodVisitorMutable visitor(&leaf);
    visitor.clear(methodOptions());
    world.journal().clear();
    visitor.visit(property.get());
    visitor.visit(nullptr);
    visitor.visit(property, nullptr);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

// Access.

TEST_F(MethodVisitor, AnyCodeOfTheListGivesAccess) {
    world.cls("Leaf").method("a").access(0).method("b").access(1).method("c").access(2).method("d").access(3);
    MethodInfo::GetOptions options = methodOptions();
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"a"));
    options.accessibility = {3, 1};
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"b", u"d"));
    options.accessibility = {};
    EXPECT_THAT(collect("Leaf", options), IsEmpty());
}

TEST_F(MethodVisitor, ClassOnTheAccessListAndThoseBelowItHaveAccessAndNobodyElse) {
    world.cls("Leaf")
        .method("fall")
        .access(2)
        .openTo("Other")
        .openTo("Gardener")
        .method("kept")
        .access(2)
        .openTo("Gardener");
    world.cls("Leaf").method("stay").access(2);
    world.cls("Apprentice").derives("Trainee");
    world.cls("Trainee").derives("Gardener");
    world.cls("Gardener").derives("Person");
    world.cls("Person");
    MethodInfo::GetOptions options = methodOptions();
    for (const char* asking : {"Gardener", "Trainee", "Apprentice"}) {
        const ClassInfo cls = infoOf(asking);
        options.accessingClass = &cls;
        EXPECT_THAT(collect("Leaf", options), ElementsAre(u"fall", u"kept")) << asking;
    }
    const ClassInfo person = infoOf("Person");
    options.accessingClass = &person;
    EXPECT_THAT(collect("Leaf", options), IsEmpty()) << "a superclass of a class on the list";
    options.accessingClass = nullptr;
    EXPECT_THAT(collect("Leaf", options), IsEmpty()) << "nobody asks";
}

TEST_F(MethodVisitor, AccessListIsOfClassIdsSoThatTheShownNameOfTheAskingClassDoesNotMatter) {
    world.cls("Leaf").method("fall").access(2).openTo("till:shop.Till");
    const qxUniqueArray till = world.object("till:shop.Till");
    const ClassInfo ofValue(till.get());
    const ClassInfo ofIdentity = infoOf("till:shop.Till");
    MethodInfo::GetOptions options = methodOptions();
    options.accessingClass = &ofValue;
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"fall"));
    options.accessingClass = &ofIdentity;
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"fall"));
}

TEST_F(MethodVisitor, AccessListIsAskedForOnlyWhereTheCodeDoesNotDo) {
    world.cls("Leaf").method("fall").openTo("Leaf");
    const ClassInfo leaf = infoOf("Leaf");
    MethodInfo::GetOptions options = methodOptions();
    options.accessingClass = &leaf;
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"fall"));
    EXPECT_EQ(world.journal().countOf(Service::methodGetAccessList), 0U);
}

TEST_F(MethodVisitor, MethodWithoutAccessIsInNeitherList) {
    world.cls("Leaf").method("kept").access(2).visibility(0);
    const Lists lists = visit("Leaf", methodOptions());
    EXPECT_THAT(lists.collected, IsEmpty());
    EXPECT_THAT(lists.hidden, IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::methodGetVisibility), 0U);
}

// Visibility.

TEST_F(MethodVisitor, OnlyVisibilityOneIsShown) {
    world.cls("Leaf")
        .method("a")
        .visibility(1)
        .method("b")
        .visibility(0)
        .method("c")
        .visibility(2)
        .method("d")
        .visibility(-1);
    const Lists lists = visit("Leaf", methodOptions());
    EXPECT_THAT(lists.collected, ElementsAre(u"a"));
    EXPECT_THAT(lists.hidden, ElementsAre(u"b", u"c", u"d"));
}

TEST_F(MethodVisitor, AskingForHiddenMethodsCollectsThemAndDoesNotAskForVisibility) {
    world.cls("Leaf").method("a").method("b").visibility(0);
    MethodInfo::GetOptions options = methodOptions();
    options.includeHidden = true;
    const Lists lists = visit("Leaf", options);
    EXPECT_THAT(lists.collected, ElementsAre(u"a", u"b"));
    EXPECT_THAT(lists.hidden, IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::methodGetVisibility), 0U);
}

TEST_F(MethodVisitor, HiddenMethodIsFiledBeforePositionConstructorAndOperatorAreTested) {
    world.cls("double").method("double").visibility(0).method("plus").visibility(0).method("sum").visibility(0);
    for (const Context context : {Context::none, Context::beforeDot, Context::anyPosition}) {
        const Lists lists = visit("double", methodOptions(context));
        EXPECT_THAT(lists.collected, IsEmpty());
        EXPECT_THAT(lists.hidden, ElementsAre(u"double", u"plus", u"sum"));
    }
}

TEST_F(MethodVisitor, HiddenMethodThatIsAskedForMeetsTheTestsOfAllOthers) {
    world.cls("pkg.Money").method("Money").visibility(0).method("plus").visibility(0).method("pay").visibility(0);
    MethodInfo::GetOptions options = methodOptions();
    options.includeHidden = true;
    EXPECT_THAT(collect("pkg.Money", options), ElementsAre(u"pay"));
    options.context = Context::none;
    const Lists lists = visit("pkg.Money", options);
    EXPECT_THAT(lists.collected, IsEmpty());
    EXPECT_THAT(lists.hidden, IsEmpty());
}

// Position.

TEST_F(MethodVisitor, VisitorThatWasOnlyMadeCollectsNothingAndFilesPublicHiddenMethods) {
    world.cls("Leaf").method("fall").method("kept").visibility(0).method("own").access(2).visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    MethodVisitorMutable visitor(&leaf);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    world.cls("Leaf").object()->visitMethods(visitor);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"kept"));
}

TEST_F(MethodVisitor, PositionIsTestedWithTheClassThatDeclaresTheMethod) {
    for (const char* cls : {"double", "unit16", "in32", "uint16", "int32", "bank.Account"}) {
        world.cls(cls).method("act");
        const bool offersBeforeDot = std::string_view(cls) == "uint16" || std::string_view(cls) == "int32" ||
                                     std::string_view(cls) == "bank.Account";
        EXPECT_EQ(collect(cls, methodOptions(Context::beforeDot)).size(), offersBeforeDot ? 1U : 0U) << cls;
        EXPECT_EQ(collect(cls, methodOptions(Context::afterDot)).size(), 1U) << cls;
        EXPECT_EQ(collect(cls, methodOptions(Context::anyPosition)).size(), 1U) << cls;
    }
}

TEST_F(MethodVisitor, UnknownPositionRejectsEveryShownMethod) {
    world.cls("Leaf").method("fall");
    for (const int code : {0, 4, -1}) {
        EXPECT_THAT(collect("Leaf", methodOptions(static_cast<Context>(code))), IsEmpty()) << code;
    }
}

// Constructors and operators.

TEST_F(MethodVisitor, ConstructorIsTheWholeClassNameOrWhatFollowsADotInIt) {
    world.cls("Money").method("Money").method("money").method("oney");
    world.cls("pkg.Money").method("Money").method("pkg.Money").method("pkg").method("y");
    world.cls("pkg.BigMoney").method("Money").method("BigMoney");
    world.cls("a.b.Money").method("b.Money").method(".Money").method("a");
    EXPECT_THAT(collect("Money", methodOptions()), ElementsAre(u"money", u"oney"));
    EXPECT_THAT(collect("pkg.Money", methodOptions()), ElementsAre(u"pkg", u"y"));
    EXPECT_THAT(collect("pkg.BigMoney", methodOptions()), ElementsAre(u"Money"));
    EXPECT_THAT(collect("a.b.Money", methodOptions()), ElementsAre(u".Money", u"a"));
}

TEST_F(MethodVisitor, ConstructorIsCollectedForThoseWhoAskForIt) {
    world.cls("pkg.Money").method("Money").method("pay");
    MethodInfo::GetOptions options = methodOptions();
    options.includeConstructors = true;
    EXPECT_THAT(collect("pkg.Money", options), ElementsAre(u"Money", u"pay"));
}

TEST_F(MethodVisitor, OperatorOverloadIsCollectedForThoseWhoAskForIt) {
    world.cls("pkg.Money").method("plus").method("Plus").method("subsref").method("pay");
    MethodInfo::GetOptions options = methodOptions();
    EXPECT_THAT(collect("pkg.Money", options), ElementsAre(u"Plus", u"pay"));
    options.includeOperatorOverloads = true;
    EXPECT_THAT(collect("pkg.Money", options), ElementsAre(u"plus", u"Plus", u"subsref", u"pay"));
}

TEST_F(MethodVisitor, ConstructorNamedLikeAnOperatorNeedsBothWishes) {
    world.cls("pkg.plus").method("plus");
    MethodInfo::GetOptions options = methodOptions();
    options.includeConstructors = true;
    EXPECT_THAT(collect("pkg.plus", options), IsEmpty());
    options.includeConstructors = false;
    options.includeOperatorOverloads = true;
    EXPECT_THAT(collect("pkg.plus", options), IsEmpty());
    options.includeConstructors = true;
    EXPECT_THAT(collect("pkg.plus", options), ElementsAre(u"plus"));
}

TEST_F(MethodVisitor, RejectedConstructorIsNotTestedForAnOperator) {
    world.cls("pkg.Money").method("Money");
    const ClassInfo money = infoOf("pkg.Money");
    MethodVisitorMutable visitor(&money);
    visitor.clear(methodOptions());
    world.journal().clear();
    world.cls("pkg.Money").object()->visitMethods(visitor);
    EXPECT_EQ(world.journal().countOf(Service::toUstring), 0U);
}

}  // namespace

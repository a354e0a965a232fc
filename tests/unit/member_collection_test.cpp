// The properties of a class and of all it derives from, and what they share with methods.
#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::ClassInfo;
using ZELKContextData::PropertyInfo;

constexpr char marker[] = "ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames";

class Asked final : public OpenClassInfo {
public:
    using OpenClassInfo::OpenClassInfo;

    std::vector<PropertyInfo> getProperties(const PropertyInfo::GetOptions& options) const override {
        accessibility = options.accessibility;
        return ClassInfo::getProperties(options);
    }

    mutable std::vector<std::int32_t> accessibility = {-1};
};

class PropertyCollection : public ClassModelTest {
protected:
    static PropertyInfo::GetOptions withHidden() {
        PropertyInfo::GetOptions options;
        options.includeHidden = true;
        return options;
    }

    static Names typesOf(const std::vector<PropertyInfo>& properties) {
        Names types;
        for (const PropertyInfo& property : properties) {
            types.push_back(property.typeName);
        }
        return types;
    }
};

TEST_F(PropertyCollection, InheritedPropertiesComeFirstThenItsOwnInTheirOrder) {
    makeDiamond();
    world.cls("Root").property("depth");
    world.cls("Left").property("lean");
    world.cls("Right").property("stand");
    world.cls("Leaf").property("zeta").property("alpha");
    EXPECT_THAT(propertiesOf(infoOf("Leaf")), ElementsAre(u"depth", u"lean", u"depth", u"stand", u"zeta", u"alpha"));
}

TEST_F(PropertyCollection, OwnPropertyReplacesTheInheritedOnesOfItsName) {
    makeDiamond();
    world.cls("Root").property("depth").dataType("double").property("age");
    world.cls("Leaf").property("depth").dataType("int8");
    const std::vector<PropertyInfo> properties = infoOf("Leaf").getProperties({});
    EXPECT_THAT(namesOf(properties), ElementsAre(u"age", u"age", u"depth"));
    EXPECT_THAT(typesOf(properties), ElementsAre(u"", u"", u"int8"));
}

TEST_F(PropertyCollection, OwnPropertyReplacesEvenWhenHiddenOnesAreAskedFor) {
    world.cls("Root").property("depth").dataType("double");
    world.cls("Leaf").derives("Root").property("depth").dataType("int8");
    EXPECT_THAT(typesOf(infoOf("Leaf").getProperties(withHidden())), ElementsAre(u"int8"));
}

TEST_F(PropertyCollection, HiddenOwnPropertyTakesTheInheritedOneAwayAndIsNotListedItself) {
    world.cls("Root").property("depth").property("age").property("Depth").property("dept");
    world.cls("Leaf").derives("Root").property("depth").visibility(0).property("colour");
    EXPECT_THAT(propertiesOf(infoOf("Leaf")), ElementsAre(u"age", u"Depth", u"dept", u"colour"));
}

TEST_F(PropertyCollection, HiddenOwnPropertyIsOneLikeAnyOtherToThoseWhoAskForHiddenOnes) {
    world.cls("Root").property("depth").dataType("double");
    world.cls("Leaf").derives("Root").property("depth").dataType("int8").visibility(0);
    EXPECT_THAT(typesOf(infoOf("Leaf").getProperties(withHidden())), ElementsAre(u"int8"));
}

TEST_F(PropertyCollection, OwnPropertyThatIsNotAccessibleTakesNothingAway) {
    world.cls("Root").property("depth").dataType("double");
    world.cls("Leaf").derives("Root").property("depth").dataType("int8").getAccess(2).setAccess(2);
    EXPECT_THAT(typesOf(infoOf("Leaf").getProperties({})), ElementsAre(u"double"));
}

TEST_F(PropertyCollection, PropertiesOfTwoSuperclassesAreNotComparedWithEachOther) {
    world.cls("Left").property("depth").property("age").visibility(0);
    world.cls("Right").property("depth").property("age");
    world.cls("Leaf").derives("Left").derives("Right");
    EXPECT_THAT(propertiesOf(infoOf("Leaf")), ElementsAre(u"depth", u"depth", u"age"));
}

TEST_F(PropertyCollection, PositionAndMarkerClassDoNotMatter) {
    world.cls("double").property("depth");
    world.cls("Table").derives(marker).property("rows");
    EXPECT_THAT(propertiesOf(infoOf("double")), ElementsAre(u"depth"));
    EXPECT_THAT(propertiesOf(infoOf("Table")), ElementsAre(u"rows"));
}

TEST_F(PropertyCollection, UnknownClassIsLookedForAndItsSuperclassesAreAsked) {
    world.cls("Root").property("depth");
    EXPECT_THAT(propertiesOf(ClassInfo(ResolvedClassID())), IsEmpty());
    EXPECT_THAT(world.journal().calls(), ElementsAre(Call{Service::getClass, ""}));
    OpenClassInfo cls;
    cls.structure_.superclasses.push_back(
        std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(id("Root"))));
    EXPECT_THAT(propertiesOf(cls), ElementsAre(u"depth"));
}

TEST_F(PropertyCollection, ClassWithoutADefinitionOrThatWithholdsItsMembersKeepsOnlyWhatItInherits) {
    world.cls("Root").property("depth");
    world.cls("Draft").derives("Root").property("colour").property("depth").visibility(0).undefined();
    world.cls("Silent").derives("Root").property("colour").property("depth").withholdsOwnMembers();
    EXPECT_THAT(propertiesOf(infoOf("Draft")), ElementsAre(u"depth"));
    EXPECT_THAT(propertiesOf(infoOf("Silent")), ElementsAre(u"depth"));
    EXPECT_THAT(propertiesOf(infoOf("Silent"), withHidden()), ElementsAre(u"depth"));
}

TEST_F(PropertyCollection, FirstPrivateCodeIsTakenAwayAtEveryLevelAndOnlyTheFirst) {
    const auto top = std::make_shared<Asked>(id("Top"), u"Top");
    const auto middle = std::make_shared<Asked>(id("Middle"), u"Middle");
    OpenClassInfo leaf(id("Leaf"), u"Leaf");
    middle->structure_.superclasses.push_back(top);
    leaf.structure_.superclasses.push_back(middle);
    PropertyInfo::GetOptions options;
    options.accessibility = {0, 2, 2};
    leaf.getProperties(options);
    EXPECT_THAT(middle->accessibility, ElementsAre(0, 2));
    EXPECT_THAT(top->accessibility, ElementsAre(0));
    EXPECT_THAT(options.accessibility, ElementsAre(0, 2, 2));
    options.accessibility = {0};
    leaf.getProperties(options);
    EXPECT_THAT(middle->accessibility, ElementsAre(0));
}

TEST_F(PropertyCollection, PrivatePropertiesAreListedOfTheClassItselfAndForThoseOnAList) {
    world.cls("Root").property("depth").getAccess(2).setAccess(2).readableBy("Gardener");
    world.cls("Leaf").derives("Root").property("colour").getAccess(2).setAccess(2);
    world.cls("Gardener");
    const ClassInfo gardener = infoOf("Gardener");
    EXPECT_THAT(namesOf(infoOf("Leaf").getProperties({0, 2}, nullptr)), ElementsAre(u"colour"));
    EXPECT_THAT(namesOf(infoOf("Leaf").getProperties({0, 2}, &gardener)), ElementsAre(u"depth", u"colour"));
}

TEST_F(PropertyCollection, ShortFormTestsBothAccessesAndLeavesOutHiddenProperties) {
    world.cls("Leaf").property("read").setAccess(2).property("written").getAccess(2).property("kept").visibility(0);
    EXPECT_THAT(namesOf(infoOf("Leaf").getProperties({0}, nullptr)), ElementsAre(u"read", u"written"));
}

TEST_F(PropertyCollection, FailingSuperclassContributesNothingAndTheRestStands) {
    makeDiamond();
    world.cls("Root").property("depth");
    world.cls("Left").property("lean");
    world.cls("Right").property("stand");
    world.cls("Leaf").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    for (const Fault fault : failuresButInterrupt) {
        world.faults().failService(Service::classVisitProperties, 2, fault);
        EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"depth", u"stand", u"colour")) << fault;
        world.faults().failService(Service::classVisitProperties, 5, fault);
        EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"depth", u"lean", u"stand", u"colour")) << fault;
        world.faults().failService(Service::classVisitProperties, 1, fault);
        EXPECT_THAT(propertiesOf(leaf), IsEmpty()) << fault;
    }
}

TEST_F(PropertyCollection, InterruptPassesFromEveryLevel) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    for (const std::size_t level : {1U, 2U, 3U, 4U, 5U}) {
        world.faults().failService(Service::classVisitProperties, level, Fault::interrupt);
        EXPECT_THROW(propertiesOf(leaf), InterruptException) << level;
    }
}

TEST_F(PropertyCollection, NothingOfOneAnswerGetsIntoTheNext) {
    world.cls("Root").property("depth");
    world.cls("Leaf").derives("Root").property("colour").property("depth").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour"));
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour"));
    world.faults().failService(Service::propertyGetVisibility, 2, Fault::standardException);
    EXPECT_THAT(propertiesOf(leaf), IsEmpty());
    world.faults().clear();
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour"));
    EXPECT_THAT(propertiesOf(leaf, withHidden()), ElementsAre(u"colour", u"depth"));
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour"));
}

TEST_F(PropertyCollection, EveryQuestionAsksTheClassSystemAfresh) {
    world.cls("Leaf").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour"));
    world.cls("Leaf").property("grain");
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour", u"grain"));
}

// Methods and properties.

class MemberCollection : public ClassModelTest {};

TEST_F(MemberCollection, DefaultAccessIsThePublicCodeAloneAndTheSameObjectForEverybody) {
    world.cls("Leaf");
    const ClassInfo leaf = infoOf("Leaf");
    const ClassInfo unknown{ResolvedClassID()};
    EXPECT_THAT(leaf.getDefaultAccessibility(), ElementsAre(0));
    EXPECT_EQ(&leaf.getDefaultAccessibility(), &leaf.getDefaultAccessibility());
    EXPECT_EQ(&leaf.getDefaultAccessibility(), &unknown.getDefaultAccessibility());
}

TEST_F(MemberCollection, DefinitionIsAskedForWithoutFetchingIt) {
    world.cls("Draft").method("pay").property("sum").undefined();
    const ClassInfo draft = infoOf("Draft");
    EXPECT_THAT(methodsOf(draft), IsEmpty());
    EXPECT_THAT(propertiesOf(draft), IsEmpty());
    EXPECT_EQ(zelk::COSClass::getClass(id("Draft"))->getDefinition(false), nullptr);
}

TEST_F(MemberCollection, MembersAreVisitedOfADefinedClassThatDoesNotWithholdThemAndInThatOrder) {
    world.cls("Leaf");
    const ClassInfo leaf = infoOf("Leaf");
    world.journal().clear();
    leaf.getMethods(methodOptions());
    leaf.getProperties({});
    EXPECT_THAT(
        world.journal().calls(),
        ElementsAre(Call{Service::getClass, "Leaf"}, Call{Service::classGetDefinition, "Leaf"},
                    Call{Service::classWithholdsOwnMembers, "Leaf"}, Call{Service::classVisitMethods, "Leaf"},
                    Call{Service::getClass, "Leaf"}, Call{Service::classGetDefinition, "Leaf"},
                    Call{Service::classWithholdsOwnMembers, "Leaf"}, Call{Service::classVisitProperties, "Leaf"}));
}

TEST_F(MemberCollection, NoHandleIsKeptAfterAnAnswer) {
    world.cls("Leaf").method("fall").property("colour").dataType("double").attribute("RVXGetSet", "logical scalar",
                                                                                     world.logical(true));
    const std::size_t values = world.valuesAlive();
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"fall"));
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"colour"));
    EXPECT_EQ(world.handlesAlive(), 0U);
    EXPECT_EQ(world.valuesAlive(), values);
}

}  // namespace

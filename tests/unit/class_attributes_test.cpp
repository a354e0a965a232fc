// The attribute names of a class and of all it derives from.
#include <cstring>
#include <thread>

#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"
#include "tests/unit/visitor_insides.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::ClassBuilder;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::AttributeInfo;
using ZELKContextData::ClassInfo;

const std::vector<Service> attributeServices = {
    Service::classGetClassAttributeNames,
    Service::classGetPropertyAttributeNames,
    Service::classGetMethodAttributeNames,
    Service::classGetEventAttributeNames,
};

void expectEmpty(const AttributeInfo& attributes) {
    EXPECT_THAT(attributes.ofClasses, IsEmpty());
    EXPECT_THAT(attributes.ofProperties, IsEmpty());
    EXPECT_THAT(attributes.ofMethods, IsEmpty());
    EXPECT_THAT(attributes.ofEvents, IsEmpty());
}

class ClassAttributes : public ClassModelTest {
protected:
    /// A class with one attribute of each family, named after it.
    ClassBuilder classWithAttributes(const std::string& name) {
        ClassBuilder cls = world.cls(name);
        return cls.classAttribute(name + "Class")
            .propertyAttribute(name + "Property")
            .methodAttribute(name + "Method")
            .eventAttribute(name + "Event");
    }

    /// Leaf derives from Middle, which derives from Top.
    void makeChain() {
        classWithAttributes("Top");
        classWithAttributes("Middle").derives("Top");
        classWithAttributes("Leaf").derives("Middle");
    }
};

TEST_F(ClassAttributes, EachSetIsFilledFromItsOwnQuestion) {
    classWithAttributes("Leaf");
    const AttributeInfo attributes = infoOf("Leaf").getAttributes(false);
    EXPECT_THAT(attributes.ofClasses, ElementsAre(u"LeafClass"));
    EXPECT_THAT(attributes.ofProperties, ElementsAre(u"LeafProperty"));
    EXPECT_THAT(attributes.ofMethods, ElementsAre(u"LeafMethod"));
    EXPECT_THAT(attributes.ofEvents, ElementsAre(u"LeafEvent"));
}

TEST_F(ClassAttributes, QuestionsAreAskedInTheirOrderBeforeAnySuperclassIsAsked) {
    makeChain();
    const ClassInfo leaf = infoOf("Leaf");
    world.journal().clear();
    leaf.getAttributes(false);
    std::vector<Call> questions;
    for (const Call& call : world.journal().calls()) {
        if (call.service != Service::toUstring) {
            questions.push_back(call);
        }
    }
    std::vector<Call> expected;
    for (const char* cls : {"Leaf", "Middle", "Top"}) {
        expected.push_back({Service::getClass, cls});
        for (const Service service : attributeServices) {
            expected.push_back({service, cls});
        }
    }
    EXPECT_EQ(questions, expected);
}

TEST_F(ClassAttributes, NamesAreOrderedByCodeUnitAndEachStandsOnce) {
    world.cls("Leaf");
    for (const char* name : {"sealed", "Sealed", "Abstract", "Sealed", "Ab", "_x"}) {
        world.cls("Leaf").eventAttribute(name);
    }
    EXPECT_THAT(infoOf("Leaf").getAttributes(false).ofEvents,
                ElementsAre(u"Ab", u"Abstract", u"Sealed", u"_x", u"sealed"));
}

TEST_F(ClassAttributes, AncestorsAddTheirsAndASharedNameStandsOnce) {
    makeDiamond();
    world.cls("Leaf").classAttribute("Sealed").methodAttribute("Static");
    world.cls("Left").classAttribute("Abstract").classAttribute("Sealed");
    world.cls("Right").propertyAttribute("Transient");
    world.cls("Root").classAttribute("Hidden").methodAttribute("Static").eventAttribute("ListenAccess");
    const AttributeInfo attributes = infoOf("Leaf").getAttributes(false);
    EXPECT_THAT(attributes.ofClasses, ElementsAre(u"Abstract", u"Hidden", u"Sealed"));
    EXPECT_THAT(attributes.ofProperties, ElementsAre(u"Transient"));
    EXPECT_THAT(attributes.ofMethods, ElementsAre(u"Static"));
    EXPECT_THAT(attributes.ofEvents, ElementsAre(u"ListenAccess"));
}

TEST_F(ClassAttributes, ClassThatIsReachedByTwoPathsIsAskedTwice) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    world.journal().clear();
    leaf.getAttributes(false);
    EXPECT_EQ(world.journal().countOf(Service::classGetEventAttributeNames), 5U);
    leaf.getAttributes(false);
    EXPECT_EQ(world.journal().countOf(Service::classGetEventAttributeNames), 10U) << "nothing is kept";
}

TEST_F(ClassAttributes, FlagReachesEveryQuestionOfEveryClass) {
    world.cls("Leaf").derives("Root");
    for (const char* name : {"Leaf", "Root"}) {
        const std::string hiddenName = std::string("Secret") + name;
        world.cls(name)
            .classAttribute(hiddenName, true)
            .propertyAttribute(hiddenName, true)
            .methodAttribute(hiddenName, true)
            .eventAttribute(hiddenName, true);
    }
    const ClassInfo leaf = infoOf("Leaf");
    expectEmpty(leaf.getAttributes(false));
    const AttributeInfo all = leaf.getAttributes(true);
    for (const auto& names : {all.ofClasses, all.ofProperties, all.ofMethods, all.ofEvents}) {
        EXPECT_THAT(names, ElementsAre(u"SecretLeaf", u"SecretRoot"));
    }
}

TEST_F(ClassAttributes, NamesAreConvertedAsAscii) {
    world.cls("Leaf").classAttribute("Gr\xC3\xB6");
    EXPECT_THAT(infoOf("Leaf").getAttributes(false).ofClasses, ElementsAre(u"Gr??"));
}

TEST_F(ClassAttributes, UnknownClassAsksNobodyAndNoSuperclass) {
    classWithAttributes("Root");
    OpenClassInfo cls;
    cls.structure_.classID = id("Root");
    cls.structure_.superclasses.push_back(
        std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(id("Root"))));
    world.journal().clear();
    expectEmpty(cls.getAttributes(true));
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

TEST_F(ClassAttributes, ClassWithoutAClassObjectStillAsksItsSuperclasses) {
    classWithAttributes("Root");
    OpenClassInfo cls(id("no.such.Class"), u"no.such.Class");
    cls.structure_.superclasses.push_back(
        std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(id("Root"))));
    EXPECT_THAT(cls.getAttributes(false).ofClasses, ElementsAre(u"RootClass"));
}

TEST_F(ClassAttributes, DefinitionAndWithheldMembersDoNotMatter) {
    classWithAttributes("Leaf").undefined().withholdsOwnMembers();
    EXPECT_THAT(infoOf("Leaf").getAttributes(false).ofClasses, ElementsAre(u"LeafClass"));
}

TEST_F(ClassAttributes, FailureAtAnyDepthEmptiesTheWholeAnswer) {
    makeChain();
    const ClassInfo leaf = infoOf("Leaf");
    std::vector<Service> services = attributeServices;
    services.push_back(Service::getClass);
    for (const Service service : services) {
        for (const std::size_t level : {1U, 2U, 3U}) {
            for (const Fault fault : failuresButInterrupt) {
                world.faults().failService(service, level, fault);
                SCOPED_TRACE(testing::Message() << nameOf(service) << " of level " << level << ": " << fault);
                expectEmpty(leaf.getAttributes(false));
            }
            world.faults().failService(service, level, Fault::interrupt);
            EXPECT_THROW(leaf.getAttributes(false), InterruptException) << nameOf(service) << " of level " << level;
        }
    }
}

TEST_F(ClassAttributes, FailureInOneBranchEmptiesWhatTheOtherBranchGaveBefore) {
    classWithAttributes("Left");
    classWithAttributes("Right");
    classWithAttributes("Leaf").derives("Left").derives("Right");
    const ClassInfo leaf = infoOf("Leaf");
    world.faults().failService(Service::classGetEventAttributeNames, 3, Fault::hostException);
    expectEmpty(leaf.getAttributes(false));
    world.faults().clear();
    EXPECT_THAT(leaf.getAttributes(false).ofEvents, ElementsAre(u"LeafEvent", u"LeftEvent", u"RightEvent"));
}

/// Adds an attribute to what its class and superclasses have.
class Adding final : public OpenClassInfo {
public:
    using OpenClassInfo::OpenClassInfo;

    AttributeInfo getAttributes(bool flag) const override {
        AttributeInfo attributes = ClassInfo::getAttributes(flag);
        attributes.ofClasses.insert(u"Added");
        return attributes;
    }
};

class Failing final : public OpenClassInfo {
public:
    explicit Failing(std::function<void()> failure) : failure_(std::move(failure)) {}

    AttributeInfo getAttributes(bool /*flag*/) const override {
        failure_();
        return {};
    }

private:
    std::function<void()> failure_;
};

TEST_F(ClassAttributes, FailureBelowADerivedClassEmptiesTheWholeAnswerToo) {
    makeChain();
    const auto middle = std::make_shared<Adding>(id("Middle"), u"Middle");
    middle->structure_.superclasses.push_back(
        std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(id("Top"))));
    OpenClassInfo leaf(id("Leaf"), u"Leaf");
    leaf.structure_.superclasses.push_back(middle);
    EXPECT_THAT(leaf.getAttributes(false).ofClasses, ElementsAre(u"Added", u"LeafClass", u"MiddleClass", u"TopClass"));
    for (const std::size_t level : {1U, 2U, 3U}) {
        world.faults().failService(Service::classGetMethodAttributeNames, level, Fault::standardException);
        expectEmpty(leaf.getAttributes(false));
        world.faults().failService(Service::classGetMethodAttributeNames, level, Fault::interrupt);
        EXPECT_THROW(leaf.getAttributes(false), InterruptException) << level;
    }
    world.faults().clear();
    EXPECT_EQ(leaf.getAttributes(false).ofClasses.size(), 4U) << "a failure is forgotten with its question";
}

TEST_F(ClassAttributes, FailureOfADerivedClassItselfIsCaughtAndItsInterruptPasses) {
    classWithAttributes("Leaf");
    OpenClassInfo leaf(id("Leaf"), u"Leaf");
    leaf.structure_.superclasses.push_back(std::make_shared<Failing>([] { throw 42; }));
    expectEmpty(leaf.getAttributes(false));
    leaf.structure_.superclasses = {std::make_shared<Failing>([] { throw InterruptException(); })};
    EXPECT_THROW(leaf.getAttributes(false), InterruptException);
}

TEST_F(ClassAttributes, FailureAfterAnInterruptIsAnEmptyAnswerAgain) {
    makeChain();
    const ClassInfo leaf = infoOf("Leaf");
    world.faults().failService(Service::classGetClassAttributeNames, 3, Fault::interrupt);
    EXPECT_THROW(leaf.getAttributes(false), InterruptException);
    world.faults().failService(Service::classGetClassAttributeNames, 1, Fault::standardException);
    expectEmpty(leaf.getAttributes(false));
}

/// The bytes of the objects of a whole tree, lists of their visitors included.
std::vector<unsigned char> bytesOf(const ClassInfo& cls) {
    std::vector<unsigned char> bytes(sizeof(ClassInfo));
    std::memcpy(bytes.data(), static_cast<const void*>(&cls), sizeof(ClassInfo));
    for (const auto& superclass : cls.getSuperclassInfo().superclasses) {
        const std::vector<unsigned char> more = bytesOf(*superclass);
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
    return bytes;
}

TEST_F(ClassAttributes, NothingOfTheTreeIsWritten) {
    makeChain();
    for (const char* name : {"Leaf", "Middle", "Top"}) {
        world.cls(name).method("shown").method("kept").visibility(0).property("shown").property("kept").visibility(0);
    }
    const ClassInfo leaf = infoOf("Leaf");
    leaf.getMethods(methodOptions());
    leaf.getProperties({});
    const ClassInfo& top = *leaf.getSuperclassInfo().superclasses.front()->getSuperclassInfo().superclasses.front();
    ASSERT_EQ(visitor_insides::hiddenOf(visitor_insides::methodVisitorOf(top)).size(), 1U);
    ASSERT_EQ(visitor_insides::collectedOf(visitor_insides::propertyVisitorOf(top)).size(), 1U);
    const std::vector<unsigned char> before = bytesOf(leaf);
    leaf.getAttributes(true);
    EXPECT_EQ(bytesOf(leaf), before);
}

TEST_F(ClassAttributes, ReadersMayAskOneTreeSideBySide) {
    makeChain();
    const ClassInfo leaf = infoOf("Leaf");
    world.unwatched();
    std::vector<std::thread> readers;
    std::vector<AttributeInfo> answers(4);
    for (AttributeInfo& answer : answers) {
        readers.emplace_back([&leaf, &answer] {
            for (int time = 0; time < 100; ++time) {
                answer = leaf.getAttributes(false);
            }
        });
    }
    for (std::thread& reader : readers) {
        reader.join();
    }
    for (const AttributeInfo& answer : answers) {
        EXPECT_THAT(answer.ofMethods, ElementsAre(u"LeafMethod", u"MiddleMethod", u"TopMethod"));
    }
}

}  // namespace

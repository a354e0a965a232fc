// Methods and properties of classes, as `host/class_system.h` shows them.
#include <functional>
#include <string>
#include <vector>

#include "host/class_system.h"
#include "tests/conformance/suite/suite.h"

namespace {

using conformance::classNamed;
using conformance::id;
using conformance::MemberSubject;
using conformance::MemberTrait;
using conformance::methodName;
using conformance::Names;
using conformance::propertyName;
using conformance::walkedNames;
using ::testing::Contains;
using ::testing::Not;
using zelk::COSClass;
using zelk::COSInterface;
using zelk::COSInterfacePtr;

class ClassMembers : public conformance::Conformance {
protected:
    /// A class with a superclass; both have a method and a property. Empty when the host has no classes.
    std::string derivedClass() {
        base_ = provider().makeClass({"Base", {}, {{"inherited"}, {"sharedTool", true}}, {"origin"}});
        return base_.empty() ? base_ : provider().makeClass({"Derived", {base_}, {{"own"}}, {"extent"}});
    }
    const std::string& base() const { return base_; }

    static COSInterfacePtr methodNode(const std::string& className, const std::string& name) {
        const zelk::COSIteratorPtr found = classNamed(className)->findMethods(id(name));
        return found && found->hasMoreElements() ? found->nextElement() : nullptr;
    }
    static Names namesOf(zelk::COSAccessList classes) {
        Names names;
        for (const zelk::COSInternedID each : classes) {
            names.emplace_back(each.view());
        }
        return names;
    }

private:
    std::string base_;
};

TEST_F(ClassMembers, AreWalkedWithWhatIsInherited) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const Names methods = walkedNames(*classNamed(name), &COSClass::visitMethods, methodName);
    for (const char* method : {"own", "inherited", "sharedTool"}) {
        EXPECT_THAT(methods, Contains(method).Times(1));
    }
    const Names properties = walkedNames(*classNamed(name), &COSClass::visitProperties, propertyName);
    EXPECT_THAT(properties, Contains("extent").Times(1));
    EXPECT_THAT(properties, Contains("origin").Times(1));
}

TEST_F(ClassMembers, ThatAClassDeclaresAreAmongThoseThatItHas) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const Names all = walkedNames(*classNamed(name), &COSClass::visitMethods, methodName);
    const Names declared = walkedNames(*classNamed(name), &COSClass::visitDeclaredMethods, methodName);
    EXPECT_THAT(declared, Contains("own"));
    EXPECT_THAT(all, ::testing::IsSupersetOf(declared));
    const Names allProperties = walkedNames(*classNamed(name), &COSClass::visitProperties, propertyName);
    const Names declaredProperties = walkedNames(*classNamed(name), &COSClass::visitDeclaredProperties, propertyName);
    EXPECT_THAT(declaredProperties, Contains("extent"));
    EXPECT_THAT(allProperties, ::testing::IsSupersetOf(declaredProperties));
}

TEST_F(ClassMembers, AreWalkedInTheSameOrderEachTime) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_EQ(walkedNames(*classNamed(name), &COSClass::visitMethods, methodName),
              walkedNames(*classNamed(name), &COSClass::visitMethods, methodName));
}

TEST_F(ClassMembers, HaveTheViewOfTheirKindAndNoOther) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const COSInterfacePtr method = methodNode(name, "own");
    const COSInterfacePtr property = classNamed(name)->findProperty(id("extent"));
    ASSERT_TRUE(method && property);
    EXPECT_NE(zelk::cosiToMethod(method.get()), nullptr);
    EXPECT_EQ(zelk::cosiToProp(method.get()), nullptr);
    EXPECT_NE(zelk::cosiToProp(property.get()), nullptr);
    EXPECT_EQ(zelk::cosiToMethod(property.get()), nullptr);
    for (COSInterface* node : {method.get(), property.get()}) {
        EXPECT_EQ(zelk::cosiToEnum(node), nullptr);
        EXPECT_EQ(zelk::cosiToClass(node), nullptr);
        EXPECT_EQ(zelk::cosiToNamespace(node), nullptr);
    }
}

TEST_F(ClassMembers, KnowTheClassThatDeclaresThem) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_EQ(zelk::cosiClassOfMember(methodNode(name, "own").get()), classNamed(name));
    EXPECT_EQ(zelk::cosiClassOfMember(methodNode(name, "inherited").get()), classNamed(base()));
    EXPECT_EQ(zelk::cosiClassOfMember(classNamed(name)->findProperty(id("extent")).get()), classNamed(name));
    EXPECT_EQ(zelk::cosiClassOfMember(classNamed(name)->findProperty(id("origin")).get()), classNamed(base()));
}

TEST_F(ClassMembers, AreFoundByTheirNames) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    COSClass& cls = *classNamed(name);
    EXPECT_EQ(conformance::namesIn(cls.findMethods(id("own")), methodName), Names{"own"});
    EXPECT_EQ(conformance::namesIn(cls.findMethods(id("inherited")), methodName), Names{"inherited"});
    EXPECT_STREQ(propertyName(cls.findProperty(id("origin")).get()), "origin");
    EXPECT_EQ(conformance::namesIn(cls.findMethods(id(conformance::unknownName)), methodName), Names{});
    EXPECT_EQ(conformance::namesIn(cls.findMethods(id("extent")), methodName), Names{}) << "a property is no method";
    EXPECT_FALSE(cls.findProperty(id(conformance::unknownName)));
    EXPECT_FALSE(cls.findProperty(id("own"))) << "a method is no property";
}

TEST_F(ClassMembers, HavePermanentNames) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_EQ(methodName(methodNode(name, "own").get()), id("own").c_str());
    EXPECT_EQ(propertyName(classNamed(name)->findProperty(id("extent")).get()), id("extent").c_str());
}

TEST_F(ClassMembers, ThatEverybodyMayUseSaySo) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const COSInterfacePtr node = methodNode(name, "own");
    const zelk::COSMethodInfo& method = *zelk::cosiToMethod(node.get());
    EXPECT_EQ(method.getAccess(), zelk::publicAccess);
    EXPECT_TRUE(method.isListable());
    EXPECT_EQ(method.getVisibility(), zelk::shownVisibility);
    const COSInterfacePtr held = classNamed(name)->findProperty(id("extent"));
    const zelk::COSPropInfo& property = *zelk::cosiToProp(held.get());
    EXPECT_EQ(property.getGetAccess(), zelk::publicAccess);
    EXPECT_EQ(property.getSetAccess(), zelk::publicAccess);
    EXPECT_TRUE(property.isListable());
    EXPECT_FALSE(property.isReadOnly());
    EXPECT_EQ(property.getVisibility(), zelk::shownVisibility);
    EXPECT_FALSE(property.findAttribute(id(conformance::unknownName)));
}

TEST_F(ClassMembers, TellStaticMethodsFromOthers) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_TRUE(zelk::cosiToMethod(methodNode(name, "sharedTool").get())->isStatic());
    EXPECT_FALSE(zelk::cosiToMethod(methodNode(name, "inherited").get())->isStatic());
}

TEST_F(ClassMembers, OutliveTheWalkThatShowedThem) {
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    conformance::NodeCollector collector;
    classNamed(name)->visitMethods(collector);
    ASSERT_FALSE(collector.nodes.empty());
    for (const COSInterfacePtr& node : collector.nodes) {
        const COSInterfacePtr second = node;
        ASSERT_NE(zelk::cosiToMethod(second.get()), nullptr);
        EXPECT_NE(zelk::cosiClassOfMember(second.get()), nullptr);
    }
}

TEST_F(ClassMembers, LetTheirVisitorEndTheWalk) {
    struct Thrower final : zelk::COSVisitor<COSInterface*> {
        void visit(COSInterface* /*node*/) override {
            ++calls;
            throw 3;
        }
        int calls = 0;
    } thrower;
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    COSClass& cls = *classNamed(name);
    EXPECT_THROW(cls.visitMethods(thrower), int);
    EXPECT_EQ(thrower.calls, 1);
    EXPECT_THROW(cls.visitProperties(thrower), int);
    EXPECT_THROW(cls.visitDeclaredMethods(thrower), int);
    EXPECT_THROW(cls.visitDeclaredProperties(thrower), int);
    EXPECT_THAT(walkedNames(cls, &COSClass::visitMethods, methodName), Contains("own")) << "nothing has changed";
}

TEST_F(ClassMembers, LetTheirVisitorAskMeanwhile) {
    struct Asker final : zelk::COSVisitor<COSInterface*> {
        explicit Asker(COSClass& cls) : cls(cls) {}
        void visit(COSInterface* node) override {
            const zelk::COSIteratorPtr found = cls.findMethods(id(methodName(node)));
            EXPECT_TRUE(found && found->hasMoreElements()) << methodName(node);
            cls.visitProperties(properties);
        }
        COSClass& cls;
        conformance::NodeCollector properties;
    };
    const std::string name = derivedClass();
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    Asker asker(*classNamed(name));
    asker.cls.visitMethods(asker);
    EXPECT_FALSE(asker.properties.nodes.empty());
}

/// What the host says about a member of a trait.
class MemberTraits : public ClassMembers {
protected:
    COSInterfacePtr method(const MemberSubject& subject) {
        COSInterfacePtr node = methodNode(subject.className, subject.name);
        EXPECT_NE(zelk::cosiToMethod(node.get()), nullptr) << subject.name;
        return node;
    }
    COSInterfacePtr property(const MemberSubject& subject) {
        COSInterfacePtr node = classNamed(subject.className)->findProperty(id(subject.name));
        EXPECT_NE(zelk::cosiToProp(node.get()), nullptr) << subject.name;
        return node;
    }
};

TEST_F(MemberTraits, UnlistableMethodsSaySo) {
    const auto subject = provider().memberWith(MemberTrait::unlistableMethod);
    CONFORMANCE_NEEDS(subject, "methods that are not listed");
    EXPECT_FALSE(zelk::cosiToMethod(method(*subject).get())->isListable());
    EXPECT_THAT(walkedNames(*classNamed(subject->className), &COSClass::visitMethods, methodName),
                Contains(subject->name))
        << "the walk shows all; those who list decide";
}

TEST_F(MemberTraits, HiddenMethodsSaySo) {
    const auto subject = provider().memberWith(MemberTrait::hiddenMethod);
    CONFORMANCE_NEEDS(subject, "hidden methods");
    EXPECT_NE(zelk::cosiToMethod(method(*subject).get())->getVisibility(), zelk::shownVisibility);
}

TEST_F(MemberTraits, RestrictedMethodsNameThoseWhoMayUseThem) {
    const auto subject = provider().memberWith(MemberTrait::restrictedMethod);
    CONFORMANCE_NEEDS(subject, "methods with access lists");
    const COSInterfacePtr node = method(*subject);
    EXPECT_NE(zelk::cosiToMethod(node.get())->getAccess(), zelk::publicAccess);
    EXPECT_EQ(namesOf(zelk::cosiToMethod(node.get())->getAccessList()), subject->texts);
}

TEST_F(MemberTraits, PrivateMethodsHaveTheirCode) {
    const auto subject = provider().memberWith(MemberTrait::privateMethod);
    CONFORMANCE_NEEDS(subject, "private methods");
    EXPECT_EQ(zelk::cosiToMethod(method(*subject).get())->getAccess(), zelk::privateAccess);
}

TEST_F(MemberTraits, OverloadedMethodsAreFoundTogether) {
    const auto subject = provider().memberWith(MemberTrait::overloadedMethod);
    CONFORMANCE_NEEDS(subject, "overloaded methods");
    const Names found =
        conformance::namesIn(classNamed(subject->className)->findMethods(id(subject->name)), methodName);
    EXPECT_GE(found.size(), 2U);
    EXPECT_THAT(found, ::testing::Each(subject->name));
}

TEST_F(MemberTraits, ConstantsHaveTheirCode) {
    const auto subject = provider().memberWith(MemberTrait::constantProperty);
    CONFORMANCE_NEEDS(subject, "constants");
    EXPECT_EQ(zelk::cosiToProp(property(*subject).get())->getSetAccess(), zelk::constantSetAccess);
}

TEST_F(MemberTraits, PropertiesThatNobodyAssignsSaySo) {
    const auto subject = provider().memberWith(MemberTrait::readOnlyProperty);
    CONFORMANCE_NEEDS(subject, "properties that nobody assigns");
    EXPECT_TRUE(zelk::cosiToProp(property(*subject).get())->isReadOnly());
}

TEST_F(MemberTraits, UnlistablePropertiesSaySo) {
    const auto subject = provider().memberWith(MemberTrait::unlistableProperty);
    CONFORMANCE_NEEDS(subject, "properties that are not listed");
    EXPECT_FALSE(zelk::cosiToProp(property(*subject).get())->isListable());
}

TEST_F(MemberTraits, HiddenPropertiesSaySo) {
    const auto subject = provider().memberWith(MemberTrait::hiddenProperty);
    CONFORMANCE_NEEDS(subject, "hidden properties");
    EXPECT_NE(zelk::cosiToProp(property(*subject).get())->getVisibility(), zelk::shownVisibility);
}

TEST_F(MemberTraits, RestrictedPropertiesNameThoseWhoMayUseThem) {
    const auto subject = provider().memberWith(MemberTrait::restrictedProperty);
    CONFORMANCE_NEEDS(subject, "properties with access lists");
    const COSInterfacePtr node = property(*subject);
    EXPECT_NE(zelk::cosiToProp(node.get())->getGetAccess(), zelk::publicAccess);
    EXPECT_NE(zelk::cosiToProp(node.get())->getSetAccess(), zelk::publicAccess);
    EXPECT_EQ(namesOf(zelk::cosiToProp(node.get())->getGetAccessList()), subject->texts);
}

TEST_F(MemberTraits, ComputedPropertiesHaveACustomGetter) {
    const auto subject = provider().memberWith(MemberTrait::computedProperty);
    CONFORMANCE_NEEDS(subject, "computed properties");
    const COSInterfacePtr node = property(*subject);
    const zelk::COSExtendedPropInfo* extended = zelk::cosiToProp(node.get())->getExtended();
    ASSERT_NE(extended, nullptr);
    EXPECT_TRUE(extended->hasCustomGetter());
}

TEST_F(MemberTraits, StoredPropertiesSaySoWhenTheyCan) {
    const auto subject = provider().memberWith(MemberTrait::storedProperty);
    CONFORMANCE_NEEDS(subject, "properties that are known to be stored");
    const COSInterfacePtr node = property(*subject);
    const zelk::COSExtendedPropInfo* extended = zelk::cosiToProp(node.get())->getExtended();
    ASSERT_NE(extended, nullptr);
    bool isStored = false;
    EXPECT_TRUE(extended->queryIsStored(isStored));
    EXPECT_TRUE(isStored);
}

TEST_F(MemberTraits, AttributesOfAnAuthorAreFoundByTheirNames) {
    const auto subject = provider().memberWith(MemberTrait::attributedProperty);
    CONFORMANCE_NEEDS(subject, "attributes of properties");
    const COSInterfacePtr node = property(*subject);
    const zelk::COSAttributePtr attribute = zelk::cosiToProp(node.get())->findAttribute(id(subject->texts.at(0)));
    ASSERT_TRUE(attribute);
    EXPECT_TRUE(attribute->getValue(zelk::COSGetPublicClient()));
    EXPECT_FALSE(zelk::cosiToProp(node.get())->findAttribute(id(conformance::unknownName)));
}

}  // namespace

// Classes derived from the class information: they are asked for their own part of a tree.
#include <bit>
#include <cstddef>

#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::AttributeInfo;
using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::MethodVisitorMutable;
using ZELKContextData::PropertyInfo;
using ZELKContextData::PropertyVisitorMutable;

/// Answers everything itself and keeps what it was asked.
class Answering final : public OpenClassInfo {
public:
    explicit Answering(bool isEverything = true) : isEverything(isEverything) { structure_.className = u"Answering"; }

    std::vector<PropertyInfo> getProperties(const PropertyInfo::GetOptions& options) const override {
        propertyOptions = options;
        PropertyInfo property;
        property.name = u"answered";
        return {property};
    }
    std::vector<MethodInfo> getMethods(const MethodInfo::GetOptions& options) const override {
        methodOptions = options;
        return {{u"answer", u"Answering", true}};
    }
    AttributeInfo getAttributes(bool flag) const override {
        attributeFlag = flag;
        return {{u"One"}, {u"Two"}, {u"Three"}, {u"Four"}};
    }
    bool isA(const zelk::COSInternedID& /*id*/) const override {
        ++timesAsked;
        return isEverything;
    }
    bool isA(const std::u16string& /*name*/) const override {
        ++timesAsked;
        return isEverything;
    }

    using ClassInfo::getMethods;
    using ClassInfo::getProperties;

    bool isEverything;
    mutable int timesAsked = 0;
    mutable bool attributeFlag = false;
    mutable PropertyInfo::GetOptions propertyOptions;
    mutable MethodInfo::GetOptions methodOptions;
};

class DerivedClassInfo : public ClassModelTest {
protected:
    /// Leaf above a superclass that answers for itself.
    std::shared_ptr<Answering> superclass = std::make_shared<Answering>();
    OpenClassInfo leaf{id("Leaf"), u"Leaf"};

    DerivedClassInfo() {
        world.cls("Leaf").method("fall").property("colour").classAttribute("Sealed");
        leaf.structure_.superclasses.push_back(superclass);
    }
};

TEST_F(DerivedClassInfo, StartsAsAnUnknownClassWithVisitorsOfItsOwn) {
    OpenClassInfo cls;
    EXPECT_EQ(cls.getClass(), u"");
    EXPECT_TRUE(cls.getSuperclassInfo().classID.isEmpty());
    EXPECT_THAT(cls.getSuperclassInfo().superclasses, IsEmpty());
    EXPECT_THAT(methodsOf(cls), IsEmpty());
    cls.structure_.classID = id("Leaf");
    EXPECT_THAT(methodsOf(cls), ElementsAre(u"fall"));
    EXPECT_THAT(propertiesOf(cls), ElementsAre(u"colour"));
}

TEST_F(DerivedClassInfo, IsAskedForItsOwnPartOfADerivation) {
    EXPECT_TRUE(leaf.isA(id("anything")));
    EXPECT_TRUE(leaf.isA(u"anything"));
    superclass->isEverything = false;
    EXPECT_FALSE(leaf.isA(id("anything")));
    EXPECT_FALSE(leaf.isA(u"anything"));
}

TEST_F(DerivedClassInfo, IsNotAskedForADerivationThatIsSettledBefore) {
    const auto second = std::make_shared<Answering>();
    leaf.structure_.superclasses.push_back(second);
    EXPECT_TRUE(leaf.isA(id("Leaf")));
    EXPECT_TRUE(leaf.isA(u"Leaf"));
    EXPECT_EQ(superclass->timesAsked, 0);
    EXPECT_TRUE(leaf.isA(id("anything")));
    EXPECT_TRUE(leaf.isA(u"anything"));
    EXPECT_EQ(superclass->timesAsked, 2);
    EXPECT_EQ(second->timesAsked, 0) << "the first yes ends the search";
}

TEST_F(DerivedClassInfo, IsAskedForItsMembersAndAttributes) {
    EXPECT_THAT(methodsOf(leaf), ElementsAre(u"answer", u"fall"));
    EXPECT_THAT(propertiesOf(leaf), ElementsAre(u"answered", u"colour"));
    const AttributeInfo attributes = leaf.getAttributes(true);
    EXPECT_TRUE(superclass->attributeFlag);
    EXPECT_THAT(attributes.ofClasses, ElementsAre(u"One", u"Sealed"));
    EXPECT_THAT(attributes.ofProperties, ElementsAre(u"Two"));
    EXPECT_THAT(attributes.ofMethods, ElementsAre(u"Three"));
    EXPECT_THAT(attributes.ofEvents, ElementsAre(u"Four"));
}

TEST_F(DerivedClassInfo, IsAskedWithTheOptionsOfItsSubclass) {
    const ClassInfo asking = infoOf("Leaf");
    MethodInfo::GetOptions methods;
    methods.accessibility = {7};
    methods.accessingClass = &asking;
    methods.context = MethodInfo::GetContext::anyPosition;
    methods.includeConstructors = methods.includeOperatorOverloads = methods.includeHidden = true;
    leaf.getMethods(methods);
    EXPECT_THAT(superclass->methodOptions.accessibility, ElementsAre(7));
    EXPECT_EQ(superclass->methodOptions.accessingClass, &asking);
    EXPECT_EQ(superclass->methodOptions.context, MethodInfo::GetContext::anyPosition);
    EXPECT_TRUE(superclass->methodOptions.includeConstructors);
    EXPECT_TRUE(superclass->methodOptions.includeOperatorOverloads);
    EXPECT_TRUE(superclass->methodOptions.includeHidden);
    PropertyInfo::GetOptions properties;
    properties.accessibility = {7};
    properties.accessKinds = {1, 3};
    properties.accessingClass = &asking;
    properties.includeHidden = true;
    leaf.getProperties(properties);
    EXPECT_THAT(superclass->propertyOptions.accessibility, ElementsAre(7));
    EXPECT_THAT(superclass->propertyOptions.accessKinds, ElementsAre(1, 3));
    EXPECT_EQ(superclass->propertyOptions.accessingClass, &asking);
    EXPECT_TRUE(superclass->propertyOptions.includeHidden);
}

TEST_F(DerivedClassInfo, GetsTheShortQuestionsInTheirLongForm) {
    const ClassInfo asking = infoOf("Leaf");
    const std::vector<MethodInfo> methods = superclass->getMethods({0, 4}, MethodInfo::GetContext::afterDot, &asking);
    EXPECT_THAT(namesOf(methods), ElementsAre(u"answer"));
    const MethodInfo::GetOptions& options = superclass->methodOptions;
    EXPECT_THAT(options.accessibility, ElementsAre(0, 4));
    EXPECT_EQ(options.accessingClass, &asking);
    EXPECT_EQ(options.context, MethodInfo::GetContext::afterDot);
    EXPECT_FALSE(options.includeConstructors || options.includeOperatorOverloads || options.includeHidden);

    EXPECT_THAT(namesOf(superclass->getProperties({0, 4}, &asking)), ElementsAre(u"answered"));
    EXPECT_THAT(superclass->propertyOptions.accessibility, ElementsAre(0, 4));
    EXPECT_THAT(superclass->propertyOptions.accessKinds, ElementsAre(0, 1));
    EXPECT_EQ(superclass->propertyOptions.accessingClass, &asking);
    EXPECT_FALSE(superclass->propertyOptions.includeHidden);
}

TEST_F(DerivedClassInfo, MayAskForWhatItsSuperclassesContribute) {
    EXPECT_THAT(namesOf(leaf.getMethodsOfSuperclasses(methodOptions())), ElementsAre(u"answer"));
    EXPECT_THAT(namesOf(leaf.getPropertiesOfSuperclasses({})), ElementsAre(u"answered"));
    EXPECT_THAT(OpenClassInfo().getMethodsOfSuperclasses(methodOptions()), IsEmpty());
    EXPECT_THAT(OpenClassInfo().getPropertiesOfSuperclasses({}), IsEmpty());
}

TEST_F(DerivedClassInfo, DecidesAsAskingClassWhatIsOpenToIt) {
    world.cls("Vault").method("open").access(7).openTo("Guard").property("code").getAccess(7).setAccess(7).readableBy(
        "Guard");
    const ClassInfo vault = infoOf("Vault");
    MethodInfo::GetOptions methods = methodOptions();
    PropertyInfo::GetOptions properties;
    methods.accessingClass = properties.accessingClass = superclass.get();
    EXPECT_THAT(namesOf(vault.getMethods(methods)), ElementsAre(u"open"));
    EXPECT_THAT(propertiesOf(vault, properties), ElementsAre(u"code"));
    superclass->isEverything = false;
    EXPECT_THAT(vault.getMethods(methods), IsEmpty());
    EXPECT_THAT(propertiesOf(vault, properties), IsEmpty());
}

// The order of the virtual operations is part of the binary interface: programs that derive from the classes are built
// against it. A pointer to a virtual member function shows its place.

struct MemberPointer {
    std::ptrdiff_t pointer;
    std::ptrdiff_t adjustment;
};

template <class Function>
std::ptrdiff_t slotOf(Function function) {
    static_assert(sizeof(Function) == sizeof(MemberPointer));
    const auto raw = std::bit_cast<MemberPointer>(function);
#if defined(__aarch64__) || defined(__arm__)
    EXPECT_EQ(raw.adjustment & 1, 1) << "not virtual";
    return raw.pointer / static_cast<std::ptrdiff_t>(sizeof(void*));
#else
    EXPECT_EQ(raw.pointer & 1, 1) << "not virtual";
    return (raw.pointer - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
#endif
}

TEST(VirtualOperations, OfAClassInformationStandInTheirOrder) {
    static_assert(std::has_virtual_destructor_v<ClassInfo>);
    // The destructor takes the first two places.
    using Properties = std::vector<PropertyInfo> (ClassInfo::*)(const PropertyInfo::GetOptions&) const;
    EXPECT_EQ(slotOf(static_cast<Properties>(&ClassInfo::getProperties)), 2);
    using Methods = std::vector<MethodInfo> (ClassInfo::*)(const MethodInfo::GetOptions&) const;
    EXPECT_EQ(slotOf(static_cast<Methods>(&ClassInfo::getMethods)), 3);
    EXPECT_EQ(slotOf(&ClassInfo::getAttributes), 4);
    using IsAId = bool (ClassInfo::*)(const zelk::COSInternedID&) const;
    EXPECT_EQ(slotOf(static_cast<IsAId>(&ClassInfo::isA)), 5);
    using IsAName = bool (ClassInfo::*)(const std::u16string&) const;
    EXPECT_EQ(slotOf(static_cast<IsAName>(&ClassInfo::isA)), 6);
    EXPECT_EQ(slotOf(&ClassInfo::getDefaultAccessibility), 7);
}

TEST(VirtualOperations, OfTheVisitorsStandInTheirOrder) {
    static_assert(std::has_virtual_destructor_v<MethodVisitorMutable>);
    static_assert(std::has_virtual_destructor_v<PropertyVisitorMutable>);
    using Node = void (MethodVisitorMutable::*)(zelk::COSInterface*);
    EXPECT_EQ(slotOf(static_cast<Node>(&MethodVisitorMutable::visit)), 2);
    using Method = void (MethodVisitorMutable::*)(zelk::COSInterfacePtr, zelk::COSMethodInfo*);
    EXPECT_EQ(slotOf(static_cast<Method>(&MethodVisitorMutable::visit)), 3);
    using PropertyNode = void (PropertyVisitorMutable::*)(zelk::COSInterface*);
    EXPECT_EQ(slotOf(static_cast<PropertyNode>(&PropertyVisitorMutable::visit)), 2);
    using Property = void (PropertyVisitorMutable::*)(zelk::COSInterfacePtr, zelk::COSPropInfo*);
    EXPECT_EQ(slotOf(static_cast<Property>(&PropertyVisitorMutable::visit)), 3);
}

}  // namespace

// The public records as programs are built against them: their fields, and the order of these. Nearly all of it is
// checked while this file compiles.
#include <algorithm>
#include <cstddef>
#include <set>
#include <type_traits>
#include <utility>

#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"
#include "tests/unit/visitor_insides.h"

namespace {

using visitor_insides::fieldsOf;
using ZELKContextData::AttributeInfo;
using ZELKContextData::ClassInfo;
using ZELKContextData::ClassStructureInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::MethodVisitorMutable;
using ZELKContextData::PropertyInfo;
using ZELKContextData::PropertyVisitorMutable;

using Text = std::u16string;
using Texts = std::vector<std::u16string>;
using Codes = std::vector<std::int32_t>;

template <class Field, class Expected>
constexpr bool is = std::is_same_v<Field, Expected>;

// A structured binding takes exactly as many names as there are fields, in their order.

constexpr auto methodFields = [](MethodInfo& record) {
    auto& [name, definingClass, isStatic] = record;
    static_assert(is<decltype(name), Text> && is<decltype(definingClass), Text> && is<decltype(isStatic), bool>);
};

constexpr auto methodOptionFields = [](MethodInfo::GetOptions& options) {
    auto& [accessibility, accessingClass, context, constructors, operators, hidden] = options;
    static_assert(is<decltype(accessibility), Codes> && is<decltype(accessingClass), const ClassInfo*>);
    static_assert(is<decltype(context), MethodInfo::GetContext> && is<decltype(constructors), bool>);
    static_assert(is<decltype(operators), bool> && is<decltype(hidden), bool>);
};

constexpr auto propertyFields = [](PropertyInfo& record) {
    auto& [name, typeName, sizes, validators, readFlag, customGetter, extendedFlag, valueKind, values] = record;
    static_assert(is<decltype(name), Text> && is<decltype(typeName), Text> && is<decltype(sizes), Texts>);
    static_assert(is<decltype(validators), Texts> && is<decltype(readFlag), bool> && is<decltype(customGetter), bool>);
    static_assert(is<decltype(extendedFlag), bool> && is<decltype(valueKind), std::int32_t>);
    static_assert(is<decltype(values), Texts>);
};

constexpr auto propertyOptionFields = [](PropertyInfo::GetOptions& options) {
    auto& [accessibility, accessKinds, accessingClass, hidden] = options;
    static_assert(is<decltype(accessibility), Codes> && is<decltype(accessKinds), Codes>);
    static_assert(is<decltype(accessingClass), const ClassInfo*> && is<decltype(hidden), bool>);
};

constexpr auto attributeFields = [](AttributeInfo& record) {
    auto& [ofClasses, ofProperties, ofMethods, ofEvents] = record;
    static_assert(is<decltype(ofClasses), std::set<Text>> && is<decltype(ofProperties), std::set<Text>>);
    static_assert(is<decltype(ofMethods), std::set<Text>> && is<decltype(ofEvents), std::set<Text>>);
};

constexpr auto structureFields = [](ClassStructureInfo& structure) {
    auto& [className, superclasses, classID] = structure;
    static_assert(is<decltype(className), Text> && is<decltype(classID), zelk::COSInternedID>);
    static_assert(is<decltype(superclasses), std::vector<std::shared_ptr<ClassInfo>>>);
};

// Field by field, with no room left between them but what alignment needs.

constexpr std::size_t text = sizeof(Text);
constexpr std::size_t list = sizeof(Texts);
constexpr std::size_t pointer = sizeof(void*);

static_assert(offsetof(MethodInfo, name) == 0);
static_assert(offsetof(MethodInfo, definingClass) == text);
static_assert(offsetof(MethodInfo, isStatic) == 2 * text);
static_assert(sizeof(MethodInfo) == 2 * text + pointer);

static_assert(sizeof(MethodInfo::GetContext) == 4);
static_assert(offsetof(MethodInfo::GetOptions, accessibility) == 0);
static_assert(offsetof(MethodInfo::GetOptions, accessingClass) == list);
static_assert(offsetof(MethodInfo::GetOptions, context) == list + pointer);
static_assert(offsetof(MethodInfo::GetOptions, includeConstructors) == list + pointer + 4);
static_assert(offsetof(MethodInfo::GetOptions, includeOperatorOverloads) == list + pointer + 5);
static_assert(offsetof(MethodInfo::GetOptions, includeHidden) == list + pointer + 6);
static_assert(sizeof(MethodInfo::GetOptions) == list + pointer + 8);

static_assert(offsetof(PropertyInfo, name) == 0);
static_assert(offsetof(PropertyInfo, typeName) == text);
static_assert(offsetof(PropertyInfo, sizes) == 2 * text);
static_assert(offsetof(PropertyInfo, validators) == 2 * text + list);
static_assert(offsetof(PropertyInfo, readFlag) == 2 * text + 2 * list);
static_assert(offsetof(PropertyInfo, hasCustomGetter) == 2 * text + 2 * list + 1);
static_assert(offsetof(PropertyInfo, extendedFlag) == 2 * text + 2 * list + 2);
static_assert(offsetof(PropertyInfo, valueKind) == 2 * text + 2 * list + 4);
static_assert(offsetof(PropertyInfo, values) == 2 * text + 2 * list + 8);
static_assert(sizeof(PropertyInfo) == 2 * text + 3 * list + 8);

static_assert(offsetof(PropertyInfo::GetOptions, accessibility) == 0);
static_assert(offsetof(PropertyInfo::GetOptions, accessKinds) == list);
static_assert(offsetof(PropertyInfo::GetOptions, accessingClass) == 2 * list);
static_assert(offsetof(PropertyInfo::GetOptions, includeHidden) == 2 * list + pointer);
static_assert(sizeof(PropertyInfo::GetOptions) == 2 * list + 2 * pointer);

// Sets have no place that a constant could name; designators have to keep the order, too.
constexpr auto orderedAttributes = [] {
    return AttributeInfo{.ofClasses = {}, .ofProperties = {}, .ofMethods = {}, .ofEvents = {}};
};
static_assert(sizeof(AttributeInfo) == 4 * sizeof(std::set<Text>));

static_assert(offsetof(ClassStructureInfo, className) == 0);
static_assert(offsetof(ClassStructureInfo, superclasses) == text);
static_assert(offsetof(ClassStructureInfo, classID) == text + list);
static_assert(sizeof(ClassStructureInfo) == text + list + pointer);
static_assert(!std::is_polymorphic_v<ClassStructureInfo>);

static_assert(sizeof(ClassInfo) ==
              pointer + sizeof(ClassStructureInfo) + sizeof(PropertyVisitorMutable) + sizeof(MethodVisitorMutable));

// Codes that callers store.

static_assert(PropertyInfo::noValues == 0 && PropertyInfo::ownText == 1 && PropertyInfo::convertedText == 2);

// What may be made, copied and moved, and at what risk.

static_assert(std::is_polymorphic_v<ClassInfo> && std::has_virtual_destructor_v<ClassInfo>);
static_assert(!std::is_default_constructible_v<ClassInfo> && std::is_copy_constructible_v<ClassInfo>);
static_assert(std::is_constructible_v<ClassInfo, Text, Text> && std::is_constructible_v<ClassInfo, const qxArray*>);
static_assert(!std::is_convertible_v<ZELKContextData::ResolvedClassID, ClassInfo>);
static_assert(!std::is_convertible_v<const qxArray*, ClassInfo>);

template <class Record>
constexpr bool isMovedWithoutFailure =
    std::is_nothrow_move_constructible_v<Record>&& std::is_nothrow_move_assignable_v<Record>;

static_assert(isMovedWithoutFailure<MethodInfo> && std::is_nothrow_default_constructible_v<MethodInfo>);
static_assert(isMovedWithoutFailure<PropertyInfo> && std::is_nothrow_default_constructible_v<PropertyInfo>);
static_assert(isMovedWithoutFailure<AttributeInfo>);
static_assert(isMovedWithoutFailure<ClassStructureInfo>);
static_assert(isMovedWithoutFailure<MethodInfo::GetOptions> && isMovedWithoutFailure<PropertyInfo::GetOptions>);
static_assert(isMovedWithoutFailure<MethodVisitorMutable> && isMovedWithoutFailure<PropertyVisitorMutable>);
static_assert(std::is_copy_assignable_v<MethodVisitorMutable> && std::is_copy_assignable_v<PropertyVisitorMutable>);

using Visitor = zelk::COSVisitor<zelk::COSInterface*>;
static_assert(std::is_base_of_v<Visitor, MethodVisitorMutable> && std::is_base_of_v<Visitor, PropertyVisitorMutable>);

// What is private can be looked at while the program runs only.

template <class Object>
void expectAscendingFields(const Object& object) {
    const std::vector<const void*> fields = fieldsOf(object);
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
    EXPECT_EQ(static_cast<const void*>(reinterpret_cast<const char*>(&object) + pointer), fields.front())
        << "the first field follows the pointer to the virtual operations";
}

TEST(RecordLayout, FieldsOfTheVisitorsStandInTheirOrder) {
    expectAscendingFields(MethodVisitorMutable(nullptr));
    expectAscendingFields(PropertyVisitorMutable(nullptr));
}

TEST(RecordLayout, ClassInformationHoldsItsStructureThenItsVisitors) { expectAscendingFields(OpenClassInfo()); }

TEST(RecordLayout, RecordsStartEmpty) {
    MethodInfo method;
    EXPECT_FALSE(method.isStatic);
    methodFields(method);
    PropertyInfo property;
    EXPECT_FALSE(property.readFlag || property.hasCustomGetter || property.extendedFlag);
    EXPECT_EQ(property.valueKind, 0);
    propertyFields(property);
    AttributeInfo attributes = orderedAttributes();
    EXPECT_TRUE(attributes.ofClasses.empty() && attributes.ofProperties.empty());
    EXPECT_TRUE(attributes.ofMethods.empty() && attributes.ofEvents.empty());
    attributeFields(attributes);
    MethodInfo::GetOptions methodOptions;
    methodOptionFields(methodOptions);
    PropertyInfo::GetOptions propertyOptions;
    propertyOptionFields(propertyOptions);
    ClassStructureInfo structure;
    structureFields(structure);
}

}  // namespace

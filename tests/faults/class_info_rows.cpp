// What is known about a class.
#include "contextdata/class_info.h"

#include "tests/faults/function_table.h"
#include "tests/unit/class_model_test.h"

namespace faults {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;
using enum Service;

namespace {

const std::u16string leaf = u"p:Leaf";
const std::u16string root = u"Root";
const std::u16string shown = u"Shown";
const MethodInfo::GetContext anyPosition = MethodInfo::GetContext::anyPosition;
const std::vector<std::int32_t> everybody = {0};

const MethodInfo::GetOptions& methodOptions() {
    static const MethodInfo::GetOptions options = [] {
        MethodInfo::GetOptions made;
        made.context = anyPosition;
        return made;
    }();
    return options;
}

const PropertyInfo::GetOptions propertyOptions;

/// A class that knows its superclasses and nothing of itself.
std::unique_ptr<OpenClassInfo> heirOf(const ClassInfo& cls) {
    auto heir = std::make_unique<OpenClassInfo>();
    heir->structure_.superclasses = cls.getSuperclassInfo().superclasses;
    return heir;
}

/// Asks an heir of the superclasses of p:Leaf.
template <class Call>
Question asksHeir(Call call) {
    return [call](Scene& scene, Caller& caller) {
        const std::unique_ptr<OpenClassInfo> heir = heirOf(*scene.info);
        return told(caller([&] { return call(*heir); }));
    };
}

/// The making of a tree of two, of which the first class is looked up as the `first`-th.
Rule tree(Rule rule, std::size_t first) {
    return std::move(rule)
        .null({{getClass, first}, {classGetSuperclasses, 1}}, "Leaf")
        .null({{getClass, first + 1}}, "Leaf(-)");
}

std::vector<Row> constructionRows() {
    const Question byName = asks([](Scene&, Caller&) { return ClassInfo(file, leaf); });
    const Question byShownName = asks([](Scene&, Caller&) { return ClassInfo(file, shown); });
    const Question ofValue = asks([](Scene& scene, Caller&) { return ClassInfo(scene.value.get()); });
    const Question ofIdentity = [](Scene&, Caller& caller) {
        const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(leaf);
        return told(caller([&] { return ClassInfo(id); }));
    };
    return {
        Row(
            "ZELKContextData::ClassInfo::ClassInfo()", {nothing},
            [](Scene&, Caller& caller) {
                return told(static_cast<const ClassInfo&>(*caller([] { return std::make_unique<OpenClassInfo>(); })));
            },
            passes()),
        Row("ZELKContextData::ClassInfo::ClassInfo(ZELKContextData::ResolvedClassID const&)", {leafAndRoot, nothing},
            ofIdentity, tree(passes(), 1)),
        Row("ZELKContextData::ClassInfo::ClassInfo(u16string const&, u16string const&)", {leafAndRoot, nothing}, byName,
            tree(passes().at({featureIsOn, {makeInterned, 1}}, guarded(whole)), 1))
            .also({importInFile}, byShownName,
                  passes()
                      .at({featureIsOn, getDispatcher, getFunctionScope, omResolveAnyClass, makeInterned},
                          guarded("Shown"))
                      .null({getFunctionScope}, "-")),
        Row("ZELKContextData::ClassInfo::ClassInfo(qxArray const*)", {leafAndRoot}, ofValue,
            passes()
                .at({{getClass, 1}, classGetDefinition}, guarded("-"))
                .null({{getClass, 1}, classGetDefinition}, "-")
                .null({{getClass, 2}, {classGetSuperclasses, 1}}, "p:Leaf")
                .null({{getClass, 3}}, "p:Leaf(-)"))
            .also({matrix, undefinedAccount}, ofValue,
                  passes().at({getClass, classGetDefinition}, guarded("-")).null({getClass, classGetDefinition}, "-")),
        Row("ZELKContextData::ClassInfo::ClassInfo(ZELKContextData::ClassInfo const&)", {leafAndRoot},
            asks([](Scene& scene, Caller&) { return ClassInfo(*scene.info); }), passes()),
        Row(
            "ZELKContextData::ClassInfo::operator=(ZELKContextData::ClassInfo const&)", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                OpenClassInfo target;
                ClassInfo& assigned = target;
                caller([&] { assigned = *scene.info; });
                return told(assigned);
            },
            passes()),
        Row(
            "ZELKContextData::ClassInfo::~ClassInfo()", {leafAndRoot},
            [](Scene&, Caller& caller) {
                auto info = std::make_unique<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(leaf));
                caller([&] { info.reset(); });
                return std::string("gone");
            },
            passes()),
    };
}

std::vector<Row> questionRows() {
    return {
        Row("ZELKContextData::ClassInfo::getAttributes(bool) const", {leafAndRoot},
            asks([](Scene& scene, Caller&) { return scene.info->getAttributes(true); }),
            guarded("[][][][]")
                .null({{getClass, 1}}, "[Deep][][][]")
                .null({{getClass, 2}}, "[Sealed][][StaticAndLastOfItsKind][]")),
        Row("ZELKContextData::ClassInfo::getDefaultAccessibility() const", {leafAndRoot},
            asks([](Scene& scene, Caller&) {
                return static_cast<std::int32_t>(scene.info->getDefaultAccessibility().size());
            }),
            passes()),
        Row("ZELKContextData::ClassInfo::isA(u16string const&) const", {leafAndRoot},
            asks([](Scene& scene, Caller&) { return scene.info->isA(root); }), passes()),
        Row(
            "ZELKContextData::ClassInfo::isA(zelk::COSInternedID const&) const", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                const zelk::COSInternedID id = zelk::internal::makeInterned("Root");
                return told(caller([&] { return scene.info->isA(id); }));
            },
            passes()),
    };
}

/// A failure at a class empties it with all that it inherits; at its superclass, what it inherits alone.
std::vector<Row> methodRows() {
    const Rule rule = guarded("[]")
                          .from({getClass, 2}, guarded("[p:Leaf.fall static]"))
                          .null({{getClass, 1}, {classGetDefinition, 1}, {classOfMember, 1}}, "[Root.restInTheGround]")
                          .null({{getClass, 2}, {classGetDefinition, 2}, {classOfMember, 2}}, "[p:Leaf.fall static]")
                          .ownMemoryPasses();
    return {
        Row("ZELKContextData::ClassInfo::getMethods(ZELKContextData::MethodInfo::GetOptions const&) const",
            {leafAndRoot}, asks([](Scene& scene, Caller&) { return scene.info->getMethods(methodOptions()); }), rule),
        Row("ZELKContextData::ClassInfo::getMethods(std::vector<int, std::allocator<int> > const&, "
            "ZELKContextData::MethodInfo::GetContext const&, ZELKContextData::ClassInfo const*) const",
            {leafAndRoot},
            asks([](Scene& scene, Caller&) { return scene.info->getMethods(everybody, anyPosition, nullptr); }), rule),
        Row("ZELKContextData::ClassInfo::getMethodsOfSuperclasses(ZELKContextData::MethodInfo::GetOptions const&) "
            "const",
            {leafAndRoot},
            asksHeir([](const OpenClassInfo& heir) { return heir.getMethodsOfSuperclasses(methodOptions()); }),
            guarded("[]").null({getClass, classGetDefinition, classOfMember}, "[]").ownMemoryPasses()),
    };
}

/// As for methods, save that a host that fails at what is merely known of a property is answered for.
std::vector<Row> propertyRows() {
    const char* const both = "[age:[][][]0 stored, colour:[][][]0 stored]";
    const char* const own = "[colour:[][][]0 stored]";
    const char* const inherited = "[age:[][][]0 stored]";
    const Rule rule = guarded("[]")
                          .at({{propertyGetExtended, 1}, {makeInterned, 1}, {propertyFindAttribute, 1}},
                              guarded("[age:[][][]0 stored, colour:[][][]0 getter stored]"))
                          .at({{propertyGetExtended, 3}, {makeInterned, 2}, {propertyFindAttribute, 2}},
                              guarded("[age:[][][]0 getter stored, colour:[][][]0 stored]"))
                          .at({{propertyGetExtended, 2}, {propertyGetExtended, 4}}, guarded(both))
                          .from({getClass, 2}, guarded(own))
                          .null({{getClass, 1}, {classGetDefinition, 1}, {classOfMember, 1}}, inherited)
                          .null({{getClass, 2}, {classGetDefinition, 2}, {classOfMember, 2}}, own)
                          .ownMemoryPasses();
    return {
        Row("ZELKContextData::ClassInfo::getProperties(ZELKContextData::PropertyInfo::GetOptions const&) const",
            {leafAndRoot}, asks([](Scene& scene, Caller&) { return scene.info->getProperties(propertyOptions); }),
            rule),
        Row("ZELKContextData::ClassInfo::getProperties(std::vector<int, std::allocator<int> > const&, "
            "ZELKContextData::ClassInfo const*) const",
            {leafAndRoot}, asks([](Scene& scene, Caller&) { return scene.info->getProperties(everybody, nullptr); }),
            rule),
        Row("ZELKContextData::ClassInfo::getPropertiesOfSuperclasses(ZELKContextData::PropertyInfo::GetOptions "
            "const&) const",
            {leafAndRoot},
            asksHeir([](const OpenClassInfo& heir) { return heir.getPropertiesOfSuperclasses(propertyOptions); }),
            guarded("[]")
                .at({{propertyGetExtended, 1}, makeInterned, propertyFindAttribute},
                    guarded("[age:[][][]0 getter stored]"))
                .at({{propertyGetExtended, 2}}, guarded(whole))
                .null({getClass, classGetDefinition, classOfMember}, "[]")
                .ownMemoryPasses()),
    };
}

}  // namespace

std::vector<Row> classInfoRows() {
    std::vector<Row> rows = constructionRows();
    for (const auto part : {questionRows, methodRows, propertyRows}) {
        for (Row& row : part()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

}  // namespace faults

#include <memory>

#include "contextdata/class_info.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/queries.h"

namespace fuzz {

namespace {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

std::string shownRecord(const RuleMethod& method) {
    return shown(std::get<1>(method)) + "." + shown(std::get<0>(method)) + (std::get<2>(method) ? " static" : "");
}

std::string shownRecord(const RuleProperty& property) {
    return shown(property.name) + " type " + shown(property.typeName) + " sizes " + shown(property.sizes) + " checks " +
           shown(property.validators) + (property.isReadOnly ? " read-only" : "") +
           (property.hasCustomGetter ? " computed" : "") + (property.isStored ? " stored" : "") + " kind " +
           std::to_string(property.valueKind) + " values " + shown(property.values);
}

std::vector<std::string> shownRecords(const std::vector<MethodInfo>& methods) {
    std::vector<std::string> all;
    for (const MethodInfo& method : methods) {
        all.push_back(shownRecord(RuleMethod(method.name, method.definingClass, method.isStatic)));
    }
    return all;
}

std::vector<std::string> shownRecords(const std::vector<PropertyInfo>& properties) {
    std::vector<std::string> all;
    for (const PropertyInfo& property : properties) {
        all.push_back(shownRecord(RuleProperty{property.name, property.typeName, property.sizes, property.validators,
                                               property.readFlag, property.hasCustomGetter, property.extendedFlag,
                                               property.valueKind, property.values}));
    }
    return all;
}

template <class Rule>
std::vector<std::string> shownRules(const std::vector<Rule>& rules) {
    std::vector<std::string> all;
    for (const Rule& rule : rules) {
        all.push_back(shownRecord(rule));
    }
    return all;
}

/// The tree as text.
std::string shownTree(const RuleTree& tree) {
    std::string text = tree.id + "=" + shown(tree.name) + "(";
    for (const RuleTree& superclass : tree.superclasses) {
        text += shownTree(superclass) + ",";
    }
    return text + ")";
}

std::string shownTree(const ClassInfo& info) {
    const ZELKContextData::ClassStructureInfo& structure = info.getSuperclassInfo();
    std::string text = std::string(structure.classID.view()) + "=" + shown(structure.className) + "(";
    for (const std::shared_ptr<ClassInfo>& superclass : structure.superclasses) {
        text += shownTree(*superclass) + ",";
    }
    return text + ")";
}

std::vector<std::int32_t> codes(Input& input) {
    constexpr std::int32_t some[] = {0, 1, 2, 3, 5};
    std::vector<std::int32_t> list;
    for (std::size_t count = input.below(5); count > 0; --count) {
        list.push_back(input.oneOf(some));
    }
    return list;
}

/// One class in both forms.
struct Subject {
    ClassInfo info;
    RuleTree tree;
};

void askForMembers(const Case& world, const Subject& subject, const Subject* asker) {
    MemberOptions options;
    options.accessibility = codes(world.input);
    options.accessKinds = codes(world.input);
    options.asker = asker == nullptr ? nullptr : &asker->tree;
    options.context = static_cast<int>(world.input.below(5));
    options.includeConstructors = world.input.once(2);
    options.includeOperators = world.input.once(2);
    options.includeHidden = world.input.once(2);
    const ClassInfo* accessing = asker == nullptr ? nullptr : &asker->info;
    const std::string what = " of " + subject.tree.id + " for " + (asker == nullptr ? "nobody" : asker->tree.id) +
                             ", access " + shown(options.accessibility) + ", context " +
                             std::to_string(options.context);

    MethodInfo::GetOptions methods;
    methods.accessibility = options.accessibility;
    methods.accessingClass = accessing;
    methods.context = static_cast<MethodInfo::GetContext>(options.context);
    methods.includeConstructors = options.includeConstructors;
    methods.includeOperatorOverloads = options.includeOperators;
    methods.includeHidden = options.includeHidden;
    expectEqual(shownRecords(subject.info.getMethods(methods)),
                shownRules(world.records.methods(subject.tree, options)), "methods" + what);

    PropertyInfo::GetOptions properties;
    properties.accessibility = options.accessibility;
    properties.accessKinds = options.accessKinds;
    properties.accessingClass = accessing;
    properties.includeHidden = options.includeHidden;
    expectEqual(shownRecords(subject.info.getProperties(properties)),
                shownRules(world.records.properties(subject.tree, options)),
                "properties" + what + ", kinds " + shown(options.accessKinds));

    // The short forms.
    MemberOptions shortly;
    shortly.accessibility = options.accessibility;
    shortly.asker = options.asker;
    shortly.context = options.context;
    expectEqual(shownRecords(subject.info.getMethods(options.accessibility, methods.context, accessing)),
                shownRules(world.records.methods(subject.tree, shortly)), "methods, shortly" + what);
    expectEqual(shownRecords(subject.info.getProperties(options.accessibility, accessing)),
                shownRules(world.records.properties(subject.tree, shortly)), "properties, shortly" + what);
}

void askForRest(const Case& world, const Subject& subject) {
    const std::string what = " of " + subject.tree.id;
    expectEqual(shownTree(subject.info), shownTree(subject.tree), "the tree" + what);
    expectEqual(subject.info.getClass(), subject.tree.name, "the name" + what);
    expectEqual(subject.info.getSuperclassInfo().getSuperclasses(), RecordRules::names(subject.tree),
                "superclasses" + what);
    for (const std::string& name : classNames()) {
        expectEqual(subject.info.isA(zelk::internal::makeInterned(name)), RecordRules::isA(subject.tree, name),
                    "being a " + name + what);
        expectEqual(subject.info.isA(wide(name)), RecordRules::isA(subject.tree, wide(name)),
                    "being by name a " + name + what);
    }
    for (const bool flag : {false, true}) {
        const ZELKContextData::AttributeInfo found = subject.info.getAttributes(flag);
        const std::vector<std::set<std::u16string>> all = {found.ofClasses, found.ofProperties, found.ofMethods,
                                                           found.ofEvents};
        const auto expected = world.records.attributes(subject.tree, flag);
        for (std::size_t family = 0; family < 4; ++family) {
            expectEqual(all[family], expected[family], "attributes " + std::to_string(family) + what);
        }
    }
    expectEqual(subject.info.getDefaultAccessibility(), std::vector<std::int32_t>{0}, "the default access list");
}

}  // namespace

void askAboutRecords(const Case& world) {
    for (const std::string& name : classNames()) {
        expectEqual(MethodInfo::isClassToCompleteMethodsForBeforeDot(zelk::internal::makeInterned(name)),
                    RecordRules::isOfferedBeforeDot(name), "methods before a dot of " + name);
        expect(MethodInfo::isClassToCompleteMethodsForAfterDot(zelk::internal::makeInterned(name)),
               "methods after a dot of " + name);
    }
    for (const std::string& name : memberNames()) {
        expectEqual(MethodInfo::isOperatorOverload(name), RecordRules::isOperator(name), "an operator: " + name);
        expectEqual(MethodInfo::isOperatorOverload(wide(name)), RecordRules::isOperator(name), "an operator: " + name);
    }
    // Each stays where it was made: the visitors of a copy work for the object that was copied.
    std::vector<std::unique_ptr<const Subject>> subjects;
    for (std::size_t count = 1 + world.input.below(4); count > 0; --count) {
        const std::string& name = world.model.classes.empty() || world.input.once(4)
                                      ? world.input.oneOf(classNames())
                                      : world.input.oneOf(world.model.classes).name;
        const std::string known = world.input.once(8) ? "" : name;
        subjects.emplace_back(
            new Subject{ClassInfo(ResolvedClassID::fromKnownResolvedClassID(known)), world.records.treeOf(known)});
    }
    if (!world.model.classes.empty()) {
        const ModelClass& cls = world.input.oneOf(world.model.classes);
        const qxUniqueArray object = world.world.object(cls.name);
        subjects.emplace_back(new Subject{ClassInfo(object.get()), world.records.treeOfObject(cls)});
    }
    const std::string& file = world.input.oneOf(fileNames());
    const std::string& name = world.input.oneOf(classNames());
    subjects.emplace_back(
        new Subject{ClassInfo(wide(file), wide(name)), world.records.treeOf(world.classes.resolvedIn(file, name))});
    for (const std::unique_ptr<const Subject>& subject : subjects) {
        askForRest(world, *subject);
        askForMembers(world, *subject, nullptr);
        askForMembers(world, *subject, world.input.oneOf(subjects).get());
    }
}

}  // namespace fuzz

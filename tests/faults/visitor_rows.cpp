// The visitors that the class system leads over the members of a class.
#include <gtest/gtest.h>

#include "contextdata/class_info.h"
#include "tests/faults/function_table.h"
#include "tests/unit/visitor_insides.h"

namespace faults {

using visitor_insides::collectedOf;
using visitor_insides::hiddenOf;
using ZELKContextData::MethodInfo;
using ZELKContextData::MethodVisitorMutable;
using ZELKContextData::PropertyInfo;
using ZELKContextData::PropertyVisitorMutable;
using enum Service;

namespace {

struct OpenMethodVisitor : MethodVisitorMutable {
    using MethodVisitorMutable::clear;
    using MethodVisitorMutable::hasAccessingClass;
    using MethodVisitorMutable::MethodVisitorMutable;
};

struct OpenPropertyVisitor : PropertyVisitorMutable {
    using PropertyVisitorMutable::clear;
    using PropertyVisitorMutable::hasAccessingClass;
    using PropertyVisitorMutable::PropertyVisitorMutable;
};

/// What every question here asks for: anything that the scene's class may use.
MethodInfo::GetOptions optionsFor(const Scene& scene, const MethodVisitorMutable* /*kind*/) {
    MethodInfo::GetOptions options;
    options.accessingClass = scene.asker.get();
    options.context = MethodInfo::GetContext::anyPosition;
    return options;
}

PropertyInfo::GetOptions optionsFor(const Scene& scene, const PropertyVisitorMutable* /*kind*/) {
    PropertyInfo::GetOptions options;
    options.accessingClass = scene.asker.get();
    return options;
}

template <class Visitor>
std::string filed(const Visitor& visitor) {
    return told(collectedOf(visitor)) + told(hiddenOf(visitor));
}

/// Does something with a visitor of the scene's class, which has its options; what it then holds is the answer. A
/// visitor that fails has filed nothing.
template <class Visitor, class Call>
Question asksVisitor(Call call) {
    return [call](Scene& scene, Caller& caller) {
        Visitor visitor(scene.info.get());
        visitor.clear(optionsFor(scene, &visitor));
        try {
            caller([&] { call(visitor, scene); });
        } catch (...) {
            EXPECT_EQ(filed(visitor), "[][]");
            throw;
        }
        return filed(visitor);
    };
}

/// Asks whether the asker is on the member's access lists.
template <class Visitor, class Call>
Question asksForAccess(Call call) {
    return [call](Scene& scene, Caller& caller) {
        Visitor visitor(scene.info.get());
        visitor.clear(optionsFor(scene, &visitor));
        return told(caller([&] { return call(visitor, scene); }));
    };
}

/// The making and the end of a visitor, and the two ways of emptying it.
template <class Visitor>
std::vector<Row> livesOf(const std::string& name, const std::string& info) {
    const std::string prefix = "ZELKContextData::" + name + "::";
    return {
        Row(
            prefix + name + "(ZELKContextData::ClassInfo const*)", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                return filed(*caller([&] { return std::make_unique<Visitor>(scene.info.get()); }));
            },
            passes()),
        Row(
            prefix + "~" + name + "()", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                auto visitor = std::make_unique<Visitor>(scene.info.get());
                caller([&] { visitor.reset(); });
                return std::string("gone");
            },
            passes()),
        Row(prefix + "clear()", {leafAndRoot}, asksVisitor<Visitor>([](Visitor& visitor, Scene&) { visitor.clear(); }),
            passes()),
        Row(
            prefix + "clear(ZELKContextData::" + info + "::GetOptions const&)", {leafAndRoot},
            [](Scene& scene, Caller& caller) {
                Visitor visitor(scene.info.get());
                auto options = optionsFor(scene, &visitor);
                options.accessibility = {0, 1, 2, 3, 4, 5, 6};
                caller([&] { visitor.clear(options); });
                return filed(visitor);
            },
            passes()),
    };
}

std::vector<Row> methodRows() {
    const Question node =
        asksVisitor<OpenMethodVisitor>([](auto& visitor, Scene& scene) { visitor.visit(scene.node.get()); });
    const Question view = asksVisitor<OpenMethodVisitor>(
        [](auto& visitor, Scene& scene) { visitor.visit(scene.node, zelk::cosiToMethod(scene.node.get())); });
    const Rule rule = passes().null({classOfMember}, "[][]");
    return {
        Row("ZELKContextData::MethodVisitorMutable::visit(zelk::COSInterface*)",
            {plainMethod, hiddenMethod, guardedMethod}, node, rule),
        Row("ZELKContextData::MethodVisitorMutable::visit(boost::intrusive_ptr<zelk::COSInterface>, "
            "zelk::COSMethodInfo*)",
            {plainMethod, hiddenMethod, guardedMethod}, view, rule),
        Row("ZELKContextData::MethodVisitorMutable::hasAccessingClass(zelk::COSMethodInfo*) const",
            {plainMethod, guardedMethod}, asksForAccess<OpenMethodVisitor>([](auto& visitor, Scene& scene) {
                return visitor.hasAccessingClass(zelk::cosiToMethod(scene.node.get()));
            }),
            passes()),
    };
}

/// What is merely known of a property's getter and of its values is answered for when the host fails; whatever else
/// is read of a property passes.
Row withPropertyRules(const std::string& function, const Question& question) {
    const Places getterOfPlain = {{propertyGetExtended, 1}, makeInterned, propertyFindAttribute};
    return Row(function, {plainProperty}, question,
               passes()
                   .at(getterOfPlain, guarded("[balance:[][][]0 getter stored][]"))
                   .at({{propertyGetExtended, 2}}, guarded(whole))
                   .null({classOfMember}, "[][]"))
        .also({hiddenProperty}, question,
              passes()
                  .at(getterOfPlain, guarded("[][balance:[][][]0 getter stored]"))
                  .at({{propertyGetExtended, 2}}, guarded(whole))
                  .null({classOfMember}, "[][]"))
        .also({guardedProperty}, question,
              passes()
                  .at(getterOfPlain, guarded("[balance:[][][]0 getter stored][]"))
                  .at({{propertyGetExtended, 2}}, guarded(whole))
                  .null({classOfMember}, "[][]"))
        .also({flaggedProperty}, question,
              passes()
                  .at({propertyGetExtended, makeInterned, propertyFindAttribute, attributeGetDataType, dataTypeGetID,
                       getPublicClient, attributeGetValue},
                      guarded(whole))
                  .null({propertyFindAttribute, attributeGetDataType, attributeGetValue}, "[balance:[][][]0 stored][]")
                  .null({classOfMember}, "[][]"))
        .also({valuedProperty}, question,
              passes()
                  .at({{propertyGetExtended, 1},
                       extendedHasCustomGetter,
                       {makeInterned, 2},
                       propertyFindAttribute,
                       attributeGetDataType,
                       {dataTypeGetID, 3}},
                      guarded("[colour:Colour[][][red any 1]2 getter][]"))
                  .at({{propertyGetExtended, 2}, extendedQueryIsStored},
                      guarded("[colour:Colour[][][red any 1]2 stored][]"))
                  .null({propertyGetDataType}, "[colour:[][][]0][]")
                  .null({getConversion}, "[colour:Colour[][][]0][]")
                  .null({{typeValueGetText, 1}}, "[colour:Colour[][][any red any 1]2][]")
                  .null({{propertyGetExtended, 2}}, "[colour:Colour[][][red any 1]2 stored][]")
                  .null({classOfMember}, "[][]"))
        .also({validatedProperty}, question,
              passes()
                  .at(getterOfPlain, guarded("[share:finance.Number[1 :][mustBeFinite][]0 getter stored][]"))
                  .at({{propertyGetExtended, 2}}, guarded(whole))
                  .null({propertyGetDataType}, "[share:[][][]0 stored][]")
                  .null({validationTypeGet}, "[share:double[][][]0 stored][]")
                  .null({classOfMember}, "[][]"));
}

std::vector<Row> propertyRows() {
    const Question node =
        asksVisitor<OpenPropertyVisitor>([](auto& visitor, Scene& scene) { visitor.visit(scene.node.get()); });
    const Question view = asksVisitor<OpenPropertyVisitor>(
        [](auto& visitor, Scene& scene) { visitor.visit(scene.node, zelk::cosiToProp(scene.node.get())); });
    return {
        withPropertyRules("ZELKContextData::PropertyVisitorMutable::visit(zelk::COSInterface*)", node),
        withPropertyRules("ZELKContextData::PropertyVisitorMutable::visit(boost::intrusive_ptr<zelk::COSInterface>, "
                          "zelk::COSPropInfo*)",
                          view),
        Row("ZELKContextData::PropertyVisitorMutable::hasAccessingClass(zelk::COSPropInfo*) const",
            {plainProperty, guardedProperty}, asksForAccess<OpenPropertyVisitor>([](auto& visitor, Scene& scene) {
                return visitor.hasAccessingClass(zelk::cosiToProp(scene.node.get()));
            }),
            passes()),
    };
}

}  // namespace

std::vector<Row> visitorRows() {
    std::vector<Row> rows = methodRows();
    for (const std::vector<Row>& part :
         {livesOf<OpenMethodVisitor>("MethodVisitorMutable", "MethodInfo"), propertyRows(),
          livesOf<OpenPropertyVisitor>("PropertyVisitorMutable", "PropertyInfo")}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

}  // namespace faults

#include "tests/conformance/suite/suite.h"

namespace conformance {

zelk::COSInternedID id(const std::string& name) { return zelk::internal::makeInterned(name); }

zelk::COSClass* classNamed(const std::string& name) {
    zelk::COSClass* cls = zelk::COSClass::getClass(id(name));
    EXPECT_NE(cls, nullptr) << "the class system does not know " << name;
    return cls;
}

namespace {

void take(Names& names, zelk::COSInterface* node, const char* (*nameOf)(zelk::COSInterface*)) {
    const char* name = nameOf(node);
    if (name == nullptr) {
        ADD_FAILURE() << "a node of the walk is of another kind";
        return;
    }
    names.emplace_back(name);
}

}  // namespace

Names namesIn(const zelk::COSIteratorPtr& walk, const char* (*nameOf)(zelk::COSInterface*)) {
    Names names;
    while (walk && walk->hasMoreElements()) {
        take(names, walk->nextElement().get(), nameOf);
    }
    return names;
}

const char* methodName(zelk::COSInterface* node) {
    const zelk::COSMethodInfo* method = zelk::cosiToMethod(node);
    return method == nullptr ? nullptr : method->getName();
}

const char* propertyName(zelk::COSInterface* node) {
    const zelk::COSPropInfo* property = zelk::cosiToProp(node);
    return property == nullptr ? nullptr : property->getName();
}

const char* enumerationName(zelk::COSInterface* node) {
    const zelk::COSEnumInfo* member = zelk::cosiToEnum(node);
    return member == nullptr ? nullptr : member->getName();
}

const char* className(zelk::COSInterface* node) {
    const zelk::COSClass* cls = zelk::cosiToClass(node);
    return cls == nullptr ? nullptr : cls->getName();
}

const char* namespaceName(zelk::COSInterface* node) {
    const zelk::COSNamespace* space = zelk::cosiToNamespace(node);
    return space == nullptr ? nullptr : space->getName();
}

Names walkedNames(zelk::COSClass& cls, void (zelk::COSClass::*walk)(zelk::COSVisitor<zelk::COSInterface*>&),
                  const char* (*nameOf)(zelk::COSInterface*)) {
    NodeCollector collector;
    (cls.*walk)(collector);
    Names names;
    for (const zelk::COSInterfacePtr& node : collector.nodes) {
        take(names, node.get(), nameOf);
    }
    return names;
}

}  // namespace conformance

// An explicit instantiation may name what is private; the functions that come with it hand it on.
#include "tests/unit/visitor_insides.h"

namespace visitor_insides {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::MethodVisitorMutable;
using ZELKContextData::PropertyInfo;
using ZELKContextData::PropertyVisitorMutable;

namespace {

template <auto collected, auto hidden, auto... fields>
struct MethodVisitorInsides {
    friend const std::vector<MethodInfo>& collectedOfMethods(const MethodVisitorMutable& visitor) {
        return visitor.*collected;
    }
    friend const std::vector<MethodInfo>& hiddenOfMethods(const MethodVisitorMutable& visitor) {
        return visitor.*hidden;
    }
    friend std::vector<const void*> fieldsOfMethods(const MethodVisitorMutable& visitor) {
        return {&(visitor.*fields)...};
    }
};

template <auto collected, auto hidden, auto... fields>
struct PropertyVisitorInsides {
    friend const std::vector<PropertyInfo>& collectedOfProperties(const PropertyVisitorMutable& visitor) {
        return visitor.*collected;
    }
    friend const std::vector<PropertyInfo>& hiddenOfProperties(const PropertyVisitorMutable& visitor) {
        return visitor.*hidden;
    }
    friend std::vector<const void*> fieldsOfProperties(const PropertyVisitorMutable& visitor) {
        return {&(visitor.*fields)...};
    }
};

template <auto structure, auto properties, auto methods>
struct ClassInfoInsides {
    friend const MethodVisitorMutable& methodsOfClass(const ClassInfo& cls) { return cls.*methods; }
    friend const PropertyVisitorMutable& propertiesOfClass(const ClassInfo& cls) { return cls.*properties; }
    friend std::vector<const void*> fieldsOfClass(const ClassInfo& cls) {
        return {&(cls.*structure), &(cls.*properties), &(cls.*methods)};
    }
};

const std::vector<MethodInfo>& collectedOfMethods(const MethodVisitorMutable& visitor);
const std::vector<MethodInfo>& hiddenOfMethods(const MethodVisitorMutable& visitor);
std::vector<const void*> fieldsOfMethods(const MethodVisitorMutable& visitor);
const std::vector<PropertyInfo>& collectedOfProperties(const PropertyVisitorMutable& visitor);
const std::vector<PropertyInfo>& hiddenOfProperties(const PropertyVisitorMutable& visitor);
std::vector<const void*> fieldsOfProperties(const PropertyVisitorMutable& visitor);
const MethodVisitorMutable& methodsOfClass(const ClassInfo& cls);
const PropertyVisitorMutable& propertiesOfClass(const ClassInfo& cls);
std::vector<const void*> fieldsOfClass(const ClassInfo& cls);

template struct MethodVisitorInsides<
    &MethodVisitorMutable::collected_, &MethodVisitorMutable::hidden_, &MethodVisitorMutable::visitedClass_,
    &MethodVisitorMutable::accessibility_, &MethodVisitorMutable::accessingClass_, &MethodVisitorMutable::context_,
    &MethodVisitorMutable::includeConstructors_, &MethodVisitorMutable::includeOperatorOverloads_,
    &MethodVisitorMutable::includeHidden_, &MethodVisitorMutable::collected_, &MethodVisitorMutable::hidden_>;

template struct PropertyVisitorInsides<&PropertyVisitorMutable::collected_, &PropertyVisitorMutable::hidden_,
                                       &PropertyVisitorMutable::visitedClass_, &PropertyVisitorMutable::accessibility_,
                                       &PropertyVisitorMutable::accessKinds_, &PropertyVisitorMutable::accessingClass_,
                                       &PropertyVisitorMutable::includeHidden_, &PropertyVisitorMutable::collected_,
                                       &PropertyVisitorMutable::hidden_>;

template struct ClassInfoInsides<&ClassInfo::structure_, &ClassInfo::propertyVisitor_, &ClassInfo::methodVisitor_>;

}  // namespace

const std::vector<MethodInfo>& collectedOf(const MethodVisitorMutable& visitor) { return collectedOfMethods(visitor); }
const std::vector<MethodInfo>& hiddenOf(const MethodVisitorMutable& visitor) { return hiddenOfMethods(visitor); }
const std::vector<PropertyInfo>& collectedOf(const PropertyVisitorMutable& visitor) {
    return collectedOfProperties(visitor);
}
const std::vector<PropertyInfo>& hiddenOf(const PropertyVisitorMutable& visitor) { return hiddenOfProperties(visitor); }

const MethodVisitorMutable& methodVisitorOf(const ClassInfo& cls) { return methodsOfClass(cls); }
const PropertyVisitorMutable& propertyVisitorOf(const ClassInfo& cls) { return propertiesOfClass(cls); }

std::vector<const void*> fieldsOf(const MethodVisitorMutable& visitor) { return fieldsOfMethods(visitor); }
std::vector<const void*> fieldsOf(const PropertyVisitorMutable& visitor) { return fieldsOfProperties(visitor); }
std::vector<const void*> fieldsOf(const ClassInfo& cls) { return fieldsOfClass(cls); }

}  // namespace visitor_insides

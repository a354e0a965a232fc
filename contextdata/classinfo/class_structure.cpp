#include <utility>

#include "contextdata/class_info.h"

namespace ZELKContextData {

namespace {

/// A class before its superclasses, each of these with its own; nothing of a class without a name.
void appendNames(const ClassStructureInfo& structure, std::vector<std::u16string>& names) {
    if (structure.className.empty()) {
        return;
    }
    names.push_back(structure.className);
    for (const std::shared_ptr<ClassInfo>& superclass : structure.superclasses) {
        appendNames(superclass->getSuperclassInfo(), names);
    }
}

}  // namespace

ClassStructureInfo::ClassStructureInfo() = default;
ClassStructureInfo::ClassStructureInfo(const ClassStructureInfo& other) = default;
ClassStructureInfo& ClassStructureInfo::operator=(const ClassStructureInfo& other) = default;
ClassStructureInfo::~ClassStructureInfo() = default;

ClassStructureInfo::ClassStructureInfo(ClassStructureInfo&& other) noexcept
    : className(std::exchange(other.className, {})),
      superclasses(std::exchange(other.superclasses, {})),
      classID(other.classID) {}

ClassStructureInfo& ClassStructureInfo::operator=(ClassStructureInfo&& other) noexcept {
    if (this != &other) {
        className = std::exchange(other.className, {});
        superclasses = std::exchange(other.superclasses, {});
        classID = other.classID;
    }
    return *this;
}

std::vector<std::u16string> ClassStructureInfo::getSuperclasses() const {
    std::vector<std::u16string> names;
    appendNames(*this, names);
    return names;
}

}  // namespace ZELKContextData

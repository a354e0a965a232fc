#include <iterator>
#include <utility>

#include "contextdata/class_info.h"

namespace ZELKContextData {

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
    if (className.empty()) {
        return {};
    }
    std::vector<std::u16string> names = {className};
    for (const std::shared_ptr<ClassInfo>& superclass : superclasses) {
        std::vector<std::u16string> more = superclass->getSuperclassInfo().getSuperclasses();
        names.insert(names.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    }
    return names;
}

}  // namespace ZELKContextData

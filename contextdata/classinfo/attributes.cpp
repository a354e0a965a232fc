#include <typeinfo>

#include "contextdata/class_info.h"
#include "contextdata/classinfo/superclass.h"
#include "host/class_system.h"
#include "host/exceptions.h"
#include "host/i18n.h"

namespace ZELKContextData {

using foundation::core::except::InterruptException;
using zelk::COSClass;

namespace {

using NameSet = std::set<std::u16string>;

/// A family of attributes: the question to the class system, and the set that its answers go to.
struct Family {
    void (COSClass::*query)(bool includeHidden, std::vector<std::string>& names) const;
    NameSet AttributeInfo::*set;
};

constexpr Family families[] = {
    {&COSClass::getClassAttributeNames, &AttributeInfo::ofClasses},
    {&COSClass::getPropertyAttributeNames, &AttributeInfo::ofProperties},
    {&COSClass::getMethodAttributeNames, &AttributeInfo::ofMethods},
    {&COSClass::getEventAttributeNames, &AttributeInfo::ofEvents},
};

void addNames(NameSet& set, const std::vector<std::string>& names) {
    static const fl::i18n::codecvt_ascii_to_ustring converter(false);
    for (const std::string& name : names) {
        set.insert(fl::i18n::to_ustring(name, converter));
    }
}

/// Whether a class is sure to answer as `ClassInfo` does. Then its names go where those of its subclass are gathered;
/// otherwise it is asked, and gathers a set of its own.
bool answersAsItsBase(const ClassInfo& cls) { return typeid(cls) == typeid(Superclass); }

/// Counts the calls that are under way on this thread, each on behalf of the one before it. Only the outermost may turn
/// a failure into an empty answer: a superclass that did so would have its subclass pass on half an answer for a whole.
class AttributeCall {
public:
    AttributeCall() noexcept { ++underWay; }
    AttributeCall(const AttributeCall&) = delete;
    AttributeCall& operator=(const AttributeCall&) = delete;
    ~AttributeCall() { --underWay; }

    static bool isNested() noexcept { return underWay > 1; }

private:
    static thread_local int underWay;
};

thread_local int AttributeCall::underWay = 0;

}  // namespace

AttributeInfo ClassInfo::getAttributes(bool flag) const {
    const AttributeCall call;
    AttributeInfo attributes;
    try {
        addAttributes(flag, attributes);
    } catch (const InterruptException&) {
        throw;
    } catch (...) {
        if (AttributeCall::isNested()) {
            throw;
        }
        return {};
    }
    return attributes;
}

void ClassInfo::addAttributes(bool flag, AttributeInfo& attributes) const {
    if (structure_.className.empty()) {
        return;
    }
    if (const COSClass* cls = COSClass::getClass(structure_.classID)) {
        for (const Family& family : families) {
            std::vector<std::string> names;
            (cls->*family.query)(flag, names);
            addNames(attributes.*family.set, names);
        }
    }
    for (const std::shared_ptr<ClassInfo>& superclass : structure_.superclasses) {
        if (answersAsItsBase(*superclass)) {
            superclass->addAttributes(flag, attributes);
            continue;
        }
        AttributeInfo inherited = superclass->getAttributes(flag);
        for (const Family& family : families) {
            (attributes.*family.set).merge(inherited.*family.set);
        }
    }
}

}  // namespace ZELKContextData

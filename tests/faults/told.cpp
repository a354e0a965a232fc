#include "tests/faults/told.h"

#include <algorithm>

#include "host/i18n.h"
#include "tests/unit/question_faults.h"

namespace faults {

using ZELKContextData::AttributeInfo;
using ZELKContextData::ClassInfo;
using ZELKContextData::ClassStructureInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

namespace {

/// Texts of the worlds are ASCII.
std::string narrow(const std::u16string& text) { return {text.begin(), text.end()}; }

template <class Texts>
std::string joined(const Texts& texts) {
    std::string all;
    for (const std::u16string& text : texts) {
        all += (all.empty() ? "" : " ") + narrow(text);
    }
    return "[" + all + "]";
}

template <class Records, class Tell>
std::string recordsAsText(const Records& records, Tell tell) {
    std::string all;
    for (const auto& record : records) {
        all += (all.empty() ? "" : ", ") + tell(record);
    }
    return "[" + all + "]";
}

}  // namespace

std::string told(bool answer) { return answer ? "true" : "false"; }
std::string told(std::int32_t number) { return std::to_string(number); }
std::string told(const std::string& text) { return text; }
std::string told(const std::u16string& text) { return narrow(text); }
std::string told(const std::vector<std::u16string>& texts) { return joined(texts); }
std::string told(const std::set<std::u16string>& texts) { return joined(texts); }
std::string told(const std::unordered_set<std::u16string>& texts) {
    return joined(std::set<std::u16string>(texts.begin(), texts.end()));
}

std::string told(const std::vector<std::uint64_t>& numbers) {
    return recordsAsText(numbers, [](std::uint64_t number) { return std::to_string(number); });
}

std::string told(const zelk::COSClass* cls) { return cls == nullptr ? "nothing" : cls->getName(); }

std::string told(zelk::COSInterface* node) {
    const zelk::COSNamespace* space = zelk::cosiToNamespace(node);
    return space == nullptr ? "nothing" : space->getName();
}

std::string told(const ResolvedClassID& id) { return id.isNull() ? "nothing" : std::string(id.get().view()); }
std::string told(const qxUniqueArray& value) { return question_faults::described(value.get()); }
std::string told(const qxSharedArray& value) { return question_faults::described(value.get()); }

std::string told(const ResolvedClassID::DebuggerFocus& focus) {
    return narrow(focus.fileName) + ":" + std::to_string(focus.focusPosition1) + ":" +
           std::to_string(focus.focusPosition2);
}

std::string told(const ResolvedClassID::BadClassNameException& exception) {
    return "unknown class " + exception.getBadClassName();
}

std::string told(const ZELKContextData::ArgumentBlockMetadata& metadata) {
    return (metadata.scope == nullptr ? "everywhere " : "in the file ") + told(metadata.first) + " " +
           told(metadata.second);
}

std::string told(const ClassInfo& cls) { return told(cls.getSuperclassInfo()); }

std::string told(const ClassStructureInfo& structure) {
    const bool isUnknown = structure.classID.isEmpty() && structure.className.empty();
    std::string inherited;
    for (const auto& superclass : structure.superclasses) {
        inherited += (inherited.empty() ? "" : " ") + told(*superclass);
    }
    return (isUnknown ? "-" : narrow(structure.className)) + (inherited.empty() ? "" : "(" + inherited + ")");
}

std::string told(const AttributeInfo& attributes) {
    return joined(attributes.ofClasses) + joined(attributes.ofProperties) + joined(attributes.ofMethods) +
           joined(attributes.ofEvents);
}

std::string told(const std::vector<MethodInfo>& methods) {
    return recordsAsText(methods, [](const MethodInfo& method) {
        return narrow(method.definingClass) + "." + narrow(method.name) + (method.isStatic ? " static" : "");
    });
}

std::string told(const std::vector<PropertyInfo>& properties) {
    return recordsAsText(properties, [](const PropertyInfo& property) {
        return narrow(property.name) + ":" + narrow(property.typeName) + joined(property.sizes) +
               joined(property.validators) + joined(property.values) + std::to_string(property.valueKind) +
               (property.readFlag ? " read" : "") + (property.hasCustomGetter ? " getter" : "") +
               (property.extendedFlag ? " stored" : "");
    });
}

}  // namespace faults

#include "contextdata/visitors/type_analysis.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "host/i18n.h"

namespace contextdata::visitors {

using ZELKContextData::PropertyInfo;

namespace {

std::vector<std::u16string> converted(const std::vector<std::string>& texts) {
    std::vector<std::u16string> wide;
    wide.reserve(texts.size());
    for (const std::string& text : texts) {
        wide.push_back(fl::i18n::to_ustring(text));
    }
    return wide;
}

class ValueCollector final : public zelk::COSVisitor<const zelk::COSTypeValue*> {
public:
    ValueCollector(PropertyInfo& property, const zelk::COSConversion& toAny) : property_(property), toAny_(toAny) {}

    void visit(const zelk::COSTypeValue* value) override {
        const char* text = value->getText();
        property_.values.push_back(fl::i18n::to_ustring(text == nullptr ? toAny_.convert(*value) : text));
        const std::int32_t kind = text == nullptr ? PropertyInfo::convertedText : PropertyInfo::ownText;
        property_.valueKind = std::max(property_.valueKind, kind);
    }

private:
    PropertyInfo& property_;
    const zelk::COSConversion& toAny_;
};

void collectValues(const zelk::COSDataType& type, PropertyInfo& property) {
    const zelk::COSConversion* toAny =
        zelk::COSTypeRepository::getConversion(type.getID(), zelk::internal::makeInterned("any"));
    if (toAny == nullptr) {
        return;
    }
    ValueCollector collector(property, *toAny);
    type.visitValues(collector);
}

}  // namespace

void analyseType(const zelk::COSDataTypePtr& type, PropertyInfo& property) {
    if (!type) {
        return;
    }
    std::string_view typeName;
    if (const zelk::COSValidationType* validation = zelk::COSValidationType::get(*type)) {
        typeName = validation->getClassName();
        property.sizes = converted(validation->getDimensions());
        property.validators = converted(validation->getValidators());
    }
    if (typeName.empty()) {
        typeName = type->getID().view();
    }
    property.typeName = fl::i18n::to_ustring(typeName);
    if (property.validators.empty() && type->hasValueList()) {
        collectValues(*type, property);
    }
}

}  // namespace contextdata::visitors

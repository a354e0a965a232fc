#include "tests/python_host/declared_type.h"

namespace session {

namespace {

class ValueReader final : public zelk::COSVisitor<const zelk::COSTypeValue*> {
public:
    ValueReader(zelk::COSInternedID type, DeclaredType& result) : type_(type), result_(result) {}

    void visit(const zelk::COSTypeValue* value) override {
        if (const char* text = value->getText()) {
            result_.values.emplace_back(text);
            return;
        }
        const zelk::COSConversion* conversion = zelk::COSTypeRepository::getConversion(type_, id("any"));
        ASSERT_NE(conversion, nullptr);
        result_.values.push_back(conversion->convert(*value));
        result_.converted.push_back(result_.values.back());
    }

private:
    zelk::COSInternedID type_;
    DeclaredType& result_;
};

}  // namespace

DeclaredType declaredType(const std::string& className, const std::string& name) {
    DeclaredType result;
    const zelk::COSPropInfo* info = property(className, name);
    if (info == nullptr) {
        ADD_FAILURE() << className << " has no property " << name;
        return result;
    }
    const zelk::COSDataTypePtr type = info->getDataType();
    if (!type) {
        return result;
    }
    result.isDeclared = true;
    result.id = type->getID().c_str();
    if (const zelk::COSValidationType* validation = zelk::COSValidationType::get(*type)) {
        result.isValidation = true;
        result.className = validation->getClassName();
        result.sizes = validation->getDimensions();
        result.validators = validation->getValidators();
    }
    result.hasValueList = type->hasValueList();
    ValueReader reader(type->getID(), result);
    type->visitValues(reader);
    return result;
}

DeclaredType typeOf(const std::string& name) { return declaredType("__main__.A", name); }

std::string idOf(const std::string& name) {
    const DeclaredType type = typeOf(name);
    return type.isDeclared ? type.id : "<none>";
}

}  // namespace session

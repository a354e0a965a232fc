#include "hosts/python/annotations/data_type.h"

#include "hosts/python/counted.h"

namespace python_host {

namespace {

class DataType : private Counted, public zelk::COSDataType {
public:
    explicit DataType(DataTypeFacts facts) : facts_(std::move(facts)) {}

    void addReference() const noexcept final { addOwner(); }
    void releaseReference() const noexcept final { releaseOwner(); }

    zelk::COSInternedID getID() const final { return facts_.id; }
    bool hasValueList() const final { return !facts_.values.empty(); }
    void visitValues(zelk::COSVisitor<const zelk::COSTypeValue*>& visitor) const final {
        for (const DataTypeValue& value : facts_.values) {
            visitor.visit(&value);
        }
    }

private:
    DataTypeFacts facts_;
};

class ValidationType final : public DataType, public zelk::COSValidationType {
public:
    ValidationType(DataTypeFacts facts, ValidationFacts validation)
        : DataType(std::move(facts)), validation_(std::move(validation)) {}

    const char* getClassName() const override { return validation_.className.c_str(); }
    std::vector<std::string> getDimensions() const override { return validation_.dimensions; }
    std::vector<std::string> getValidators() const override { return validation_.validators; }

private:
    ValidationFacts validation_;
};

}  // namespace

zelk::COSDataTypePtr makeDataType(DataTypeFacts facts) { return zelk::COSDataTypePtr(new DataType(std::move(facts))); }

zelk::COSDataTypePtr makeValidationType(DataTypeFacts facts, ValidationFacts validation) {
    return zelk::COSDataTypePtr(new ValidationType(std::move(facts), std::move(validation)));
}

}  // namespace python_host

const zelk::COSValidationType* zelk::COSValidationType::get(const COSDataType& type) {
    return dynamic_cast<const COSValidationType*>(&type);
}

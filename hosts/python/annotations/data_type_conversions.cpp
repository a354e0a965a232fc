// The ways from one type's values to another's. There is one: every value can be shown as text.
#include "host/data_types.h"
#include "hosts/python/annotations/data_type.h"

namespace python_host {

namespace {

class ConversionToAny final : public zelk::COSConversion {
public:
    std::string convert(const zelk::COSTypeValue& value) const override {
        if (const char* text = value.getText()) {
            return text;
        }
        const auto* own = dynamic_cast<const DataTypeValue*>(&value);
        return own == nullptr ? std::string() : own->shownText();
    }
};

}  // namespace

}  // namespace python_host

const zelk::COSConversion* zelk::COSTypeRepository::getConversion(COSInternedID from, COSInternedID to) {
    static const python_host::ConversionToAny& toAny = *new python_host::ConversionToAny;
    return !from.isEmpty() && to.view() == "any" ? &toAny : nullptr;
}

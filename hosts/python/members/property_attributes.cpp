#include "hosts/python/members/property_attributes.h"

#include <utility>

#include "hosts/python/annotations/data_type.h"
#include "hosts/python/counted.h"
#include "hosts/python/errors.h"
#include "hosts/python/interning.h"
#include "hosts/python/python_host.h"

/// Attributes of a live object show the same to everybody, so there is nothing to know about who asks.
class zelk::COSClient {};

namespace python_host {

namespace {

bool isPlain(PyObject* value) {
    return PyBool_Check(value) || PyLong_CheckExact(value) || PyFloat_CheckExact(value) || PyUnicode_CheckExact(value);
}

class Attribute final : private Counted, public zelk::COSAttribute {
public:
    explicit Attribute(Ref value) noexcept : value_(std::move(value)) {}

    void addReference() const noexcept override { addOwner(); }
    void releaseReference() const noexcept override { releaseOwner(); }

    zelk::COSDataTypePtr getDataType() const override {
        if (!isPlain(value_.get())) {
            return {};
        }
        const PendingErrorGuard pending;
        const bool isLogical = PyBool_Check(value_.get());
        return makeDataType({isLogical ? internName("logical scalar") : classIdOf(Py_TYPE(value_.get())), {}});
    }

    qxUniqueArray getValue(const zelk::COSClient& /*client*/) const override {
        return isPlain(value_.get()) ? wrap(value_.get()) : nullptr;
    }

private:
    Ref value_;
};

}  // namespace

zelk::COSAttributePtr attributeOf(Ref value) { return zelk::COSAttributePtr(new Attribute(std::move(value))); }

}  // namespace python_host

const zelk::COSClient& zelk::COSGetPublicClient() {
    static const COSClient everybody{};
    return everybody;
}

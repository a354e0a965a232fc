// Data types: what a class says about the values of its properties.
//
// Types, conversions and validations belong to the class system. A `COSDataTypePtr` holds one reference; what is taken
// of a type is borrowed from it. Interpreter thread. Every operation that is not `noexcept` may throw any host failure
// or the interrupt.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <string>
#include <vector>

#include "host/counted.h"
#include "host/interned.h"
#include "host/visibility.h"
#include "host/visitor.h"

namespace zelk {

/// One admissible value of a type, borrowed for the visit that shows it.
class COSTypeValue {
public:
    /// The value's own text, zero-terminated; null when the value is no text and has to be converted to become one.
    virtual const char* getText() const = 0;

protected:
    ~COSTypeValue() = default;
};

/// The declared type of a property's values.
class COSDataType : public COSReferenceCounted {
public:
    /// The identifier of the type, empty when it has none.
    virtual COSInternedID getID() const = 0;

    /// Whether the type admits only values that it can list.
    virtual bool hasValueList() const = 0;

    /// Shows every admissible value once, in the order of their declaration; none for a type without a list. What the
    /// visitor throws passes out.
    virtual void visitValues(COSVisitor<const COSTypeValue*>& visitor) const = 0;

protected:
    ~COSDataType() = default;
};

/// A counted handle to a data type; empty when a property declares none.
using COSDataTypePtr = boost::intrusive_ptr<COSDataType>;

/// A type made by a property's declaration: a class, a size and functions that check a value.
class COSValidationType {
public:
    /// The validation that a type stands for, borrowed from the type; null when the type is of another making.
    CONTEXTDATA_HOST_API static const COSValidationType* get(const COSDataType& type);

    /// The full name of the class that values must have; empty when any class will do. Never null.
    virtual const char* getClassName() const = 0;

    /// The size as the declaration writes it, one text a dimension: a number, ":" or a name. Empty without a size.
    virtual std::vector<std::string> getDimensions() const = 0;

    /// The names of the checking functions in the order of their declaration.
    virtual std::vector<std::string> getValidators() const = 0;

protected:
    ~COSValidationType() = default;
};

/// A way from the values of one type to those of another.
class COSConversion {
public:
    /// The converted value as text in the host's 8-bit encoding.
    virtual std::string convert(const COSTypeValue& value) const = 0;

protected:
    ~COSConversion() = default;
};

/// The registry of types.
struct COSTypeRepository {
    /// The conversion between two types by their identifiers, borrowed from the registry; null when there is none. The
    /// library asks for conversions to "any" alone, the type that every value can be shown as.
    CONTEXTDATA_HOST_API static const COSConversion* getConversion(COSInternedID from, COSInternedID to);
};

}  // namespace zelk

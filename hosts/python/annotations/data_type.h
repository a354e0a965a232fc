// Data types, their values, and what a declaration demands of a value.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/data_types.h"
#include "host/interned.h"

namespace python_host {

/// A value that a type lists.
class DataTypeValue final : public zelk::COSTypeValue {
public:
    /// A value that is text already. The text holds no zero byte.
    static DataTypeValue ofText(std::string text) { return {std::move(text), true}; }
    /// A value of another kind, by the text that it is converted to.
    static DataTypeValue ofConverted(std::string text) { return {std::move(text), false}; }

    const char* getText() const override { return isText_ ? text_.c_str() : nullptr; }
    const std::string& shownText() const noexcept { return text_; }

private:
    DataTypeValue(std::string text, bool isText) : text_(std::move(text)), isText_(isText) {}

    std::string text_;
    bool isText_;
};

struct DataTypeFacts {
    zelk::COSInternedID id;
    /// Every admissible value; empty when the type admits others than it could list.
    std::vector<DataTypeValue> values;
};

struct ValidationFacts {
    zelk::COSInternedID className;  ///< empty when any class will do
    std::vector<std::string> dimensions;
    std::vector<std::string> validators;
};

/// A type that checks nothing but the class of a value.
zelk::COSDataTypePtr makeDataType(DataTypeFacts facts);

/// A type with a validation.
zelk::COSDataTypePtr makeValidationType(DataTypeFacts facts, ValidationFacts validation);

}  // namespace python_host

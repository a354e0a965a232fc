// The data types of the in-memory class system.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/data_types.h"

namespace memory_host {

/// The conversion of a value's raw text.
using TextFunction = std::function<std::string(const std::string&)>;

class TypeValue final : public zelk::COSTypeValue {
public:
    TypeValue(std::string raw, bool isText) : raw(std::move(raw)), isText(isText) {}

    const char* getText() const override;

    std::string raw;
    bool isText;
};

class Conversion final : public zelk::COSConversion {
public:
    explicit Conversion(TextFunction function) : function_(std::move(function)) {}

    std::string convert(const zelk::COSTypeValue& value) const override;

private:
    TextFunction function_;
};

class Validation final : public zelk::COSValidationType {
public:
    const char* getClassName() const override;
    std::vector<std::string> getDimensions() const override;
    std::vector<std::string> getValidators() const override;

    std::string className;
    std::vector<std::string> dimensions;
    std::vector<std::string> validators;
};

class DataType final : public zelk::COSDataType {
public:
    zelk::COSInternedID getID() const override;
    bool hasValueList() const override;
    void visitValues(zelk::COSVisitor<const zelk::COSTypeValue*>& visitor) const override;

    void addReference() const noexcept override { ++references_; }
    void releaseReference() const noexcept override;
    std::size_t references() const noexcept { return references_; }

    zelk::COSInternedID id;
    std::optional<Validation> validation;
    std::optional<std::vector<TypeValue>> values;  // unset: no list, which an empty list is not

private:
    ~DataType() = default;

    mutable std::size_t references_ = 0;
};

}  // namespace memory_host

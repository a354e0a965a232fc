// Collects the names of a class's properties.
#pragma once

#include <string>
#include <vector>

#include "contextdata/member_names.h"
#include "host/class_system.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

class ZELKPropertyNameVisitor final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    /// Appends to `names` and, when `dataTypes` is not null, each property's data type to that in step. Both
    /// outlive the visitor.
    ZELKPropertyNameVisitor(std::vector<std::u16string>& names, std::vector<zelk::COSDataTypePtr>* dataTypes,
                            const DesiredPropertyAttributes& desired);

    void visit(zelk::COSInterface* member) override;

private:
    std::vector<std::u16string>& names_;
    std::vector<zelk::COSDataTypePtr>* dataTypes_;
    fl::i18n::codecvt_ascii_to_ustring converter_;
    DesiredPropertyAttributes desired_;
};

}  // namespace ZELKIntrospection

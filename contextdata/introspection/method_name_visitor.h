// Collects the names of a class's methods.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "contextdata/introspection/seen_names.h"
#include "host/class_system.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

class ZELKMethodNameVisitor final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    /// Appends to `names`, which outlives the visitor. The selections are those of `getClassMethodNames`.
    ZELKMethodNameVisitor(std::vector<std::u16string>& names, std::int32_t staticSelection,
                          std::int32_t methodFlagSelection);

    void visit(zelk::COSInterface* member) override;

private:
    bool isConstructor(std::string_view methodName, zelk::COSInterface* method);
    bool accepts(const zelk::COSMethodInfo& method) const;

    std::vector<std::u16string>& names_;
    contextdata::introspection::SeenNames seenNames_;
    std::int32_t staticSelection_;
    std::int32_t methodFlagSelection_;
    fl::i18n::codecvt_ascii_to_ustring converter_;
    // Methods of one class come one after the other, so what was last asked of a class serves the next ones as well.
    const zelk::COSClass* definingClass_ = nullptr;
    std::string_view constructorName_;
};

}  // namespace ZELKIntrospection

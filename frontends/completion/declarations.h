// Which class a class has each of its members from, and how that class declares it.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "contextdata/class_info.h"
#include "host/class_system.h"

namespace contextdata::completion {

struct Declaration {
    zelk::COSInternedID declarer;                   ///< empty when the class system names no class
    std::int32_t access = zelk::publicAccess;       ///< of calling or reading
    std::int32_t writeAccess = zelk::publicAccess;  ///< of a property
    bool isListable = true;

    bool isConstant() const noexcept { return writeAccess == zelk::constantSetAccess; }
};

/// The members of one sort that a class has, by name. Of several of one name, the first that the class system shows is
/// the one that the class itself uses. Constructors are no members.
class Declarations final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    void visit(zelk::COSInterface* member) override;

    /// Null when there is no such member. Borrowed until the next visit.
    const Declaration* find(const std::u16string& name) const;

    /// Every access code of calling or reading that occurs, each once.
    const std::vector<std::int32_t>& accessCodes() const noexcept { return accessCodes_; }

private:
    void add(const char* name, Declaration declaration);

    std::unordered_map<std::u16string, Declaration> declarations_;
    std::vector<std::int32_t> accessCodes_;
};

/// The declarations that a class has, inherited ones included; none when the host fails. The interrupt passes.
Declarations declarationsOfMethods(zelk::COSClass& cls);
Declarations declarationsOfProperties(zelk::COSClass& cls);

}  // namespace contextdata::completion

#include "frontends/completion/declarations.h"

#include <algorithm>
#include <string_view>

#include "frontends/completion/ask.h"
#include "host/i18n.h"

namespace contextdata::completion {

namespace {

/// A constructor bears the last part of the name that its class goes by.
bool isConstructor(std::string_view methodName, const zelk::COSClass* declarer) {
    const std::string_view className = declarer == nullptr ? std::string_view() : declarer->getName();
    return methodName == className.substr(className.rfind('.') + 1);
}

zelk::COSInternedID idOf(const zelk::COSClass* cls) { return cls == nullptr ? zelk::COSInternedID() : cls->getID(); }

}  // namespace

void Declarations::visit(zelk::COSInterface* member) {
    const zelk::COSInterfacePtr handle(member);
    const zelk::COSClass* declarer = zelk::cosiClassOfMember(member);
    if (const zelk::COSMethodInfo* method = zelk::cosiToMethod(member)) {
        if (!isConstructor(method->getName(), declarer)) {
            add(method->getName(), {idOf(declarer), method->getAccess(), zelk::publicAccess, method->isListable()});
        }
    } else if (const zelk::COSPropInfo* property = zelk::cosiToProp(member)) {
        add(property->getName(),
            {idOf(declarer), property->getGetAccess(), property->getSetAccess(), property->isListable()});
    }
}

void Declarations::add(const char* name, Declaration declaration) {
    const bool isNew = declarations_.try_emplace(fl::i18n::to_ustring(name), declaration).second;
    if (isNew && std::find(accessCodes_.begin(), accessCodes_.end(), declaration.access) == accessCodes_.end()) {
        accessCodes_.push_back(declaration.access);
    }
}

const Declaration* Declarations::find(const std::u16string& name) const {
    const auto found = declarations_.find(name);
    return found == declarations_.end() ? nullptr : &found->second;
}

Declarations declarationsOfMethods(zelk::COSClass& cls) {
    return unlessItFails([&] {
        Declarations declarations;
        cls.visitMethods(declarations);
        return declarations;
    });
}

Declarations declarationsOfProperties(zelk::COSClass& cls) {
    return unlessItFails([&] {
        Declarations declarations;
        cls.visitProperties(declarations);
        return declarations;
    });
}

}  // namespace contextdata::completion

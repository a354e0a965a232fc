#include "contextdata/identity/interning.h"
#include "contextdata/introspection.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

zelk::COSInterface* getNamespaceInterface(const std::u16string& name) {
    const std::string narrow = fl::i18n::to_string(name, fl::i18n::codecvt_ustring_to_ascii(false));
    const zelk::COSInternedID id = contextdata::identity::internName(narrow);
    // The host keeps namespaces alive, so the caller needs no handle.
    return zelk::COSPackage::getNamespaceInterface(id).get();
}

bool isZELKNamespace(const std::u16string& namespaceName) { return getNamespaceInterface(namespaceName) != nullptr; }

}  // namespace ZELKIntrospection

// Asks the library through this host. As the host knows nothing yet, every answer is that there is nothing; the program
// fails when one is anything else.
#include <iostream>

#include "contextdata/class_member_names.h"
#include "contextdata/introspection.h"
#include "contextdata/namespace_names.h"
#include "contextdata/values.h"
#include "contextdata/workspace.h"
#include "host/host.h"

namespace {

bool agrees(const char* question, bool isAsExpected) {
    std::cout << question << ": " << (isAsExpected ? "nothing, as expected" : "UNEXPECTED") << '\n';
    return isAsExpected;
}

}  // namespace

int main() {
    std::cout << "host: " << host::host_name() << '\n';
    std::vector<std::u16string> names;
    bool flag = false;
    bool good = agrees("methods of a class", !ZELKContextData::getClassMethodNames(u"Account", names, flag));
    good &= agrees("properties of a class", !ZELKContextData::getClassPropertyNames(u"Account", names, flag));
    good &= agrees("classes of a namespace", !ZELKContextData::getNamespaceClassNames(u"bank", names));
    good &= agrees("names", names.empty());
    good &= agrees("a class", !ZELKIntrospection::isZELKClass(u"Account"));
    good &= agrees("a value", !GetValueFromCurrentWorkspace(u"account.owner"));

    // Texts and cells are there.
    const qxUniqueArray cell = qxCreateCell(1, 1);
    qxSetCell(cell.get(), 0, qxCreateString(u"text"));
    const bool hasTexts = getStringsFromQxarray(cell.get(), names) && names.size() == 1 && names.front() == u"text";
    std::cout << "the texts of a cell: " << (hasTexts ? "read" : "UNEXPECTED") << '\n';
    return good && hasTexts ? 0 : 1;
}

#include "host/text.h"

#include "hosts/memory/value.h"
#include "hosts/memory/watch.h"

using memory_host::enter;
using memory_host::Service;
using memory_host::TextKind;

bool isNonMissingScalarText(const qxArray* value) {
    enter(Service::isNonMissingScalarText);
    return value->textKind == TextKind::present;
}

std::u16string getScalarText(const qxArray* value) {
    enter(Service::getScalarText);
    switch (value->textKind) {
        case TextKind::present:
            return value->text;
        case TextKind::missing:
            throw TextException("MissingNotSupported");
        case TextKind::none:
            break;
    }
    throw TextException("MustBeStringScalarOrCharacterVector");
}

// What the conformance suite asks this host about. Each capability that you add to the host gets its subject here, and
// leaves the list of what is lacking: `tests/conformance/suite/provider.h` says what can be supplied.
#include "tests/conformance/suite/provider.h"

namespace {

using conformance::ValueKind;

class TemplateProvider final : public conformance::Provider {
public:
    std::string hostName() const override { return "template"; }

    // `qxCreateString` makes what the suite knows as a char row. Numbers would be next, and after them cells, of which
    // the suite's has one.
    qxUniqueArray value(ValueKind kind) override {
        return kind == ValueKind::text ? qxCreateString(u"some text") : nullptr;
    }
};

}  // namespace

std::unique_ptr<conformance::Provider> conformance::makeProvider() { return std::make_unique<TemplateProvider>(); }

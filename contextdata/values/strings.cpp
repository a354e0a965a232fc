#include <algorithm>

#include "contextdata/values.h"
#include "host/text.h"

namespace {

/// Cuts a vector back to the size it had, unless told to keep what was appended.
class AppendOrNothing {
public:
    explicit AppendOrNothing(std::vector<std::u16string>& names) : names_(names), oldSize_(names.size()) {}
    AppendOrNothing(const AppendOrNothing&) = delete;
    AppendOrNothing& operator=(const AppendOrNothing&) = delete;
    ~AppendOrNothing() {
        if (!keep_) {
            names_.resize(oldSize_);
        }
    }

    void keep() { keep_ = true; }

private:
    std::vector<std::u16string>& names_;
    std::size_t oldSize_;
    bool keep_ = false;
};

bool appendText(const qxArray* element, std::vector<std::u16string>& names) {
    if (element == nullptr || !isNonMissingScalarText(element)) {
        return false;
    }
    names.push_back(getScalarText(element));
    return true;
}

}  // namespace

bool getStringsFromQxarray(const qxArray* value, std::vector<std::u16string>& names) {
    if (value == nullptr || qxGetClassID(value) != qxClassID::cell) {
        return false;
    }
    const std::size_t count = qxGetNumberOfElements(value);
    names.reserve(names.size() + count);

    AppendOrNothing appended(names);
    for (std::size_t index = 0; index < count; ++index) {
        if (!appendText(qxGetCell(value, index), names)) {
            return false;
        }
    }
    appended.keep();
    return true;
}

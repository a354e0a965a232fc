#include "hosts/python/streams/stream_pile.h"

#include <algorithm>
#include <new>
#include <utility>

#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/running_code.h"
#include "hosts/python/streams/diverted_stream.h"

namespace python_host {

StreamPile& StreamPile::output() {
    static auto& pile = *new StreamPile(keys().standardOutput);
    return pile;
}

StreamPile& StreamPile::errors() {
    static auto& pile = *new StreamPile(keys().standardErrors);
    return pile;
}

Ref StreamPile::current() const noexcept { return systemValue(name_); }

/// The name is there already, in whose place an entry is written without memory.
void StreamPile::set(PyObject* stream) const noexcept {
    const int result =
        stream == nullptr ? PyDict_DelItem(keys().system, name_) : PyDict_SetItem(keys().system, name_, stream);
    if (result != 0) {
        dropError();
    }
}

void StreamPile::put(Ref standIn) {
    standIns_.reserve(standIns_.size() + 1);
    setStreamBeneath(standIn.get(), stillInUse(current()));
    if (PyDict_SetItem(keys().system, name_, standIn.get()) != 0) {
        throwPythonError();
    }
    standIns_.push_back(std::move(standIn));
}

void StreamPile::reinstate(PyObject* standIn) noexcept {
    const bool isTop = !standIns_.empty() && standIns_.back().get() == standIn;
    if (isTop && current().get() != standIn) {
        runCode([&] { set(standIn); });
    }
}

void StreamPile::remove(PyObject* standIn) noexcept {
    const auto place = std::find_if(standIns_.begin(), standIns_.end(),
                                    [standIn](const Ref& other) { return other.get() == standIn; });
    if (place == standIns_.end()) {
        return;
    }
    const Ref keep = *place;
    const Ref beneath = stillInUse(streamBeneath(standIn));
    const auto above = standIns_.erase(place);
    endDivertedStream(standIn);
    if (above == standIns_.end()) {
        set(beneath.get());
    } else {
        // Whatever came in between was put there by code that has ended now.
        setStreamBeneath(above->get(), beneath);
    }
}

void StreamPile::removeThoseOfOthers() noexcept {
    const auto isOfOther = [](const Ref& standIn) { return !isOfThisThread(standIn.get()); };
    for (auto other = std::find_if(standIns_.begin(), standIns_.end(), isOfOther); other != standIns_.end();
         other = std::find_if(standIns_.begin(), standIns_.end(), isOfOther)) {
        remove(other->get());
    }
}

}  // namespace python_host

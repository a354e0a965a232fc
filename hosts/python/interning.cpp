#include "hosts/python/interning.h"

#include <algorithm>
#include <memory_resource>
#include <mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "hosts/python/python_text.h"

namespace python_host {

namespace {

/// Permanent texts. Any thread: interning does not need the GIL.
class InternTable {
public:
    InternTable() { names_.reserve(expectedNames); }

    const char* entry(std::string_view name) {
        const std::lock_guard lock(mutex_);
        const auto known = names_.find(name);
        return known != names_.end() ? known->data() : names_.insert(copyOf(name)).first->data();
    }

    const char* find(std::string_view name) {
        const std::lock_guard lock(mutex_);
        const auto known = names_.find(name);
        return known == names_.end() ? nullptr : known->data();
    }

private:
    /// As many as a session with the usual libraries asks for; beyond that the table grows.
    static constexpr std::size_t expectedNames = 4096;

    std::string_view copyOf(std::string_view name) {
        auto* text = static_cast<char*>(arena_.allocate(name.size() + 1, 1));
        std::copy(name.begin(), name.end(), text);
        text[name.size()] = '\0';
        return {text, name.size()};
    }

    std::mutex mutex_;
    std::pmr::monotonic_buffer_resource arena_;
    std::pmr::unordered_set<std::string_view> names_{&arena_};
};

/// Never destroyed: names are handed out as permanent, and threads may outlive static destruction.
InternTable& internTable() {
    static InternTable& table = *new InternTable;
    return table;
}

using KeyMap = std::pmr::unordered_map<PyObject*, zelk::COSInternedID>;

/// Python's interned strings by address. Each key is held with a reference, so that an address never comes to mean
/// another text; there is at most one for every permanent name. Guarded by the GIL, never destroyed.
KeyMap& keyMap() {
    static KeyMap& map = *new KeyMap(new std::pmr::monotonic_buffer_resource);
    return map;
}

zelk::COSInternedID handleOf(const char* entry) {
    return zelk::internal::InternedAccess<zelk::internal::IdEmptyPolicy>::fromEntry(entry);
}

zelk::COSInternedID internText(PyObject* text) {
    std::string buffer;
    const auto name = utf8Of(text, buffer);
    return name ? internName(*name) : zelk::COSInternedID();
}

}  // namespace

zelk::COSInternedID internName(std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos) {
        return {};
    }
    return handleOf(internTable().entry(name));
}

zelk::COSInternedID findInterned(std::string_view name) {
    const char* entry = internTable().find(name);
    return entry == nullptr ? zelk::COSInternedID() : handleOf(entry);
}

zelk::COSInternedID internKey(PyObject* text) {
    if (!PyUnicode_CHECK_INTERNED(text)) {
        return internText(text);
    }
    const auto known = keyMap().find(text);
    if (known != keyMap().end()) {
        return known->second;
    }
    const zelk::COSInternedID id = internText(text);
    if (!id.isEmpty()) {
        keyMap().emplace(text, id);
        Py_INCREF(text);
    }
    return id;
}

}  // namespace python_host

zelk::COSInternedID zelk::internal::makeInterned(std::string_view name) { return python_host::internName(name); }

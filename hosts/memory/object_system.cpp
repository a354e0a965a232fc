#include "hosts/memory/object_system.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "hosts/memory/intern_table.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

namespace {

constexpr std::pair<std::string_view, qxClassID> builtInKinds[] = {
    {"cell", qxClassID::cell},      {"struct", qxClassID::structure}, {"logical", qxClassID::logical},
    {"char", qxClassID::character}, {"double", qxClassID::float64},   {"single", qxClassID::float32},
    {"int8", qxClassID::int8},      {"uint8", qxClassID::uint8},      {"int16", qxClassID::int16},
    {"uint16", qxClassID::uint16},  {"int32", qxClassID::int32},      {"uint32", qxClassID::uint32},
    {"int64", qxClassID::int64},    {"uint64", qxClassID::uint64},    {"function_handle", qxClassID::functionHandle},
};

qxClassID numberOf(std::string_view className) {
    if (className.empty()) {
        return qxClassID::unknown;
    }
    if (const Class* cls = currentWorld().findClass(intern(className))) {
        return cls->number;
    }
    const auto* kind = std::find_if(std::begin(builtInKinds), std::end(builtInKinds),
                                    [className](const auto& each) { return each.first == className; });
    return kind == std::end(builtInKinds) ? qxClassID::unknown : kind->second;
}

const Class* classOfNumber(qxClassID number) {
    const std::deque<Class>& classes = currentWorld().classes;
    const auto found =
        std::find_if(classes.begin(), classes.end(), [number](const Class& cls) { return cls.number == number; });
    return found == classes.end() ? nullptr : &*found;
}

}  // namespace

std::int32_t MemoryObjectSystem::getClassNumber(const std::string& className) {
    enter(Service::objectSystemGetClassNumber, std::string_view(className));
    return static_cast<std::int32_t>(numberOf(className));
}

bool MemoryObjectSystem::isDerivedFrom(std::int32_t cls, std::int32_t base) {
    enter(Service::objectSystemIsDerivedFrom);
    const auto number = static_cast<qxClassID>(cls);
    const auto baseNumber = static_cast<qxClassID>(base);
    const Class* known = classOfNumber(number);
    if (known == nullptr) {
        return number != qxClassID::unknown && number == baseNumber;
    }
    const std::vector<Class*>& lineage = known->lineage();
    return std::any_of(lineage.begin(), lineage.end(),
                       [baseNumber](const Class* each) { return each->number == baseNumber; });
}

bool MemoryObjectSystem::hasPrecedenceOver(std::int32_t cls, std::int32_t other) {
    enter(Service::objectSystemHasPrecedenceOver);
    const auto& precedences = currentWorld().precedences;
    return std::any_of(precedences.begin(), precedences.end(), [&](const auto& pair) {
        return static_cast<std::int32_t>(numberOf(pair.first)) == cls &&
               static_cast<std::int32_t>(numberOf(pair.second)) == other;
    });
}

}  // namespace memory_host

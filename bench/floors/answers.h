// When two answers are the same, and when an answer says anything at all: a question that finds nothing measures
// nothing.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "contextdata/argument_block_metadata.h"
#include "contextdata/attribute_info.h"
#include "contextdata/method_info.h"
#include "contextdata/property_info.h"
#include "contextdata/resolved_class_id.h"
#include "host/array_library.h"

namespace bench {

using Names = std::vector<std::u16string>;

/// Texts, numbers, identities and borrowed pointers, and what is made of them.
template <class Answer>
bool same(const Answer& one, const Answer& other) {
    return one == other;
}

template <class Answer>
bool isAnswer(const Answer& answer) {
    return answer != Answer();
}

/// Values are the same when their kinds, shapes and texts are; elements of cells are compared in turn.
bool sameValues(const qxArray* one, const qxArray* other);

inline bool same(const qxUniqueArray& one, const qxUniqueArray& other) { return sameValues(one.get(), other.get()); }
inline bool same(const qxSharedArray& one, const qxSharedArray& other) { return sameValues(one.get(), other.get()); }
inline bool isAnswer(const qxUniqueArray& value) { return value != nullptr; }

inline bool same(const ZELKContextData::ArgumentBlockMetadata& one,
                 const ZELKContextData::ArgumentBlockMetadata& other) {
    return same(one.first, other.first) && same(one.second, other.second) && one.scope == other.scope;
}
inline bool isAnswer(const ZELKContextData::ArgumentBlockMetadata& metadata) { return metadata.first != nullptr; }

inline auto contentOf(const ZELKContextData::MethodInfo& method) {
    return std::tie(method.name, method.definingClass, method.isStatic);
}
inline auto contentOf(const ZELKContextData::PropertyInfo& property) {
    return std::tie(property.name, property.typeName, property.sizes, property.validators, property.readFlag,
                    property.hasCustomGetter, property.extendedFlag, property.valueKind, property.values);
}
inline auto contentOf(const ZELKContextData::AttributeInfo& attributes) {
    return std::tie(attributes.ofClasses, attributes.ofProperties, attributes.ofMethods, attributes.ofEvents);
}

template <class Record>
bool sameRecords(const std::vector<Record>& some, const std::vector<Record>& others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                      [](const Record& one, const Record& other) { return contentOf(one) == contentOf(other); });
}

using Methods = std::vector<ZELKContextData::MethodInfo>;
using Properties = std::vector<ZELKContextData::PropertyInfo>;

inline bool same(const Methods& some, const Methods& others) { return sameRecords(some, others); }
inline bool same(const Properties& some, const Properties& others) { return sameRecords(some, others); }
inline bool isAnswer(const Methods& methods) { return !methods.empty(); }
inline bool isAnswer(const Properties& properties) { return !properties.empty(); }

inline bool same(const ZELKContextData::AttributeInfo& one, const ZELKContextData::AttributeInfo& other) {
    return contentOf(one) == contentOf(other);
}
inline bool isAnswer(const ZELKContextData::AttributeInfo& attributes) { return !attributes.ofClasses.empty(); }

}  // namespace bench

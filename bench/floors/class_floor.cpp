#include "bench/floors/class_floor.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/i18n.h"

namespace bench {

namespace {

using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;

template <class Record>
void appendMoved(std::vector<Record>& target, std::vector<Record>&& source) {
    target.insert(target.end(), std::make_move_iterator(source.begin()), std::make_move_iterator(source.end()));
}

template <class Record>
void removeNamesakes(std::vector<Record>& inherited, const std::vector<Record>& hiding) {
    if (inherited.empty() || hiding.empty()) {
        return;
    }
    std::vector<std::u16string_view> names;
    names.reserve(hiding.size());
    for (const Record& record : hiding) {
        names.emplace_back(record.name);
    }
    std::sort(names.begin(), names.end());
    std::erase_if(inherited, [&](const Record& record) {
        return std::binary_search(names.begin(), names.end(), std::u16string_view(record.name));
    });
}

std::vector<std::u16string> converted(const std::vector<std::string>& texts) {
    std::vector<std::u16string> wide;
    wide.reserve(texts.size());
    for (const std::string& text : texts) {
        wide.push_back(fl::i18n::to_ustring(text));
    }
    return wide;
}

MethodInfo methodRecord(const PlainDeclaration& method, const PlainNode& cls) {
    return {fl::i18n::to_ustring(method.name.view()), fl::i18n::to_ustring(cls.id.view()), method.isStatic};
}

PropertyInfo propertyRecord(const PlainDeclaration& property) {
    PropertyInfo record;
    record.name = fl::i18n::to_ustring(property.name.view());
    if (!property.type.className.empty()) {
        record.typeName = fl::i18n::to_ustring(property.type.className);
        record.sizes = converted(property.type.dimensions);
        record.validators = converted(property.type.validators);
    }
    record.extendedFlag = true;
    return record;
}

}  // namespace

std::vector<MethodInfo> floorMethods(const PlainNode& cls) {
    std::vector<MethodInfo> own;
    std::vector<MethodInfo> hidden;
    for (const PlainDeclaration& method : cls.methods) {
        if (method.access != 0) {
            continue;
        }
        if (!method.isShown) {
            hidden.push_back(methodRecord(method, cls));
        } else if (!MethodInfo::isOperatorOverload(std::string(method.name.view()))) {
            own.push_back(methodRecord(method, cls));
        }
    }
    std::vector<MethodInfo> methods;
    for (const PlainNode* superclass : cls.superclasses) {
        appendMoved(methods, floorMethods(*superclass));
    }
    removeNamesakes(methods, hidden);
    methods.reserve(methods.size() + own.size());
    appendMoved(methods, std::move(own));
    return methods;
}

std::vector<PropertyInfo> floorProperties(const PlainNode& cls) {
    std::vector<PropertyInfo> own;
    std::vector<PropertyInfo> hidden;
    for (const PlainDeclaration& property : cls.properties) {
        if (property.access == 0) {
            (property.isShown ? own : hidden).push_back(propertyRecord(property));
        }
    }
    std::vector<PropertyInfo> properties;
    for (const PlainNode* superclass : cls.superclasses) {
        appendMoved(properties, floorProperties(*superclass));
    }
    removeNamesakes(properties, own);
    removeNamesakes(properties, hidden);
    properties.reserve(properties.size() + own.size());
    properties.insert(properties.end(), own.begin(), own.end());
    return properties;
}

}  // namespace bench

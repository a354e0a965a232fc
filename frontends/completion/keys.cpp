#include "frontends/completion/keys.h"

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "contextdata/other_object_systems.h"
#include "frontends/completion/ask.h"

namespace contextdata::completion {

namespace {

using Names = std::vector<std::u16string>;

bool isStructure(const qxArray* value) {
    return unlessItFails([&] { return qxGetClassID(value) == qxClassID::structure; });
}

Names fieldsOfStructure(const qxArray* value) {
    return unlessItFails([&] {
        Names names;
        StructContextData::getStructFieldNames(value, names);
        return names;
    });
}

/// A structure whose fields follow a dot has them among its properties, and no subscripts.
Names keysOfStructure(const qxArray* value) {
    Names fields = fieldsOfStructure(value);
    const Names properties = ask(value, "properties");
    const std::unordered_set<std::u16string_view> behindDot(properties.begin(), properties.end());
    std::erase_if(fields, [&](const std::u16string& field) { return behindDot.contains(field); });
    return fields;
}

/// The keys that fit, as they stand in a string.
template <class Fits>
Items written(const Names& keys, char16_t quote, const Language& language, Fits fits) {
    std::vector<Item> items;
    for (const std::u16string& key : keys) {
        std::u16string escaped = language.escaped(key, quote);
        if (!escaped.empty() && fits(escaped)) {
            items.push_back({std::move(escaped), Kind::key});
        }
    }
    return sortedOnce(std::move(items));
}

}  // namespace

Items keysOf(const qxArray* value, char16_t quote, const Language& language, const Choice& choice) {
    const Names keys = isStructure(value) ? keysOfStructure(value) : ask(value, "keys");
    const Typed typed(choice.typed);
    Items close = written(keys, quote, language, [&](std::u16string_view key) {
        return choice.isRanked ? typed.closeMatch(key) != Match::none : key.starts_with(choice.typed);
    });
    if (!close.empty() || !choice.isRanked) {
        return close;
    }
    return written(keys, quote, language, [](std::u16string_view /*key*/) { return true; });
}

char16_t quoteOfKey(std::u16string_view typed) noexcept {
    const std::size_t place = typed.find_first_of(u"'\"");
    return place == std::u16string_view::npos ? u'\'' : typed[place];
}

Items wholeKeysOf(const qxArray* value, char16_t quote, const Language& language) {
    Items items = keysOf(value, quote, language, {});
    for (Item& item : items) {
        item.name = quote + item.name + quote;
    }
    return items;
}

}  // namespace contextdata::completion

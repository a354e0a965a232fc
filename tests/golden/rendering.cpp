#include "tests/golden/rendering.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

#include "tests/golden/golden_file.h"

namespace golden {

using namespace contextdata::completion;

namespace {

using Row = std::vector<std::string>;

std::string orDash(const std::u16string& text) { return text.empty() ? "-" : narrow(text); }

std::string joined(const std::vector<std::u16string>& texts) {
    std::string all;
    for (const std::u16string& text : texts) {
        all += (all.empty() ? "" : ", ") + narrow(text);
    }
    return all;
}

/// Aligned columns; nothing trails the last one.
std::string tableOf(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    std::string table;
    for (const Row& row : rows) {
        for (std::size_t column = 0; column + 1 < row.size(); ++column) {
            table += row[column] + std::string(widths[column] - row[column].size() + 2, ' ');
        }
        table += row.back() + '\n';
    }
    return table;
}

Row rowOf(const DescribedMember& member) {
    return {"  " + narrow(member.name), textOfAccess(member.access), orDash(member.definingClass)};
}

Row rowOf(const DescribedProperty& property) {
    Row row = rowOf(static_cast<const DescribedMember&>(property));
    std::string facts;
    const auto add = [&facts](bool holds, const std::string& fact) {
        if (holds) {
            facts += (facts.empty() ? "" : "; ") + fact;
        }
    };
    add(!property.typeName.empty(), "type " + narrow(property.typeName));
    add(!property.sizes.empty(), "sizes " + joined(property.sizes));
    add(!property.validators.empty(), "validators " + joined(property.validators));
    add(!property.values.empty(), "values " + joined(property.values));
    add(property.isReadOnly, "read-only");
    add(!property.isReadOnly && property.writeAccess != property.access, "write " + textOfAccess(property.writeAccess));
    add(property.hasCustomGetter, "custom getter");
    add(!property.isStored, "not stored");
    row.push_back(facts.empty() ? "-" : facts);
    return row;
}

template <class Member>
std::string group(const char* title, const std::vector<Member>& members) {
    std::vector<Row> rows;
    std::transform(members.begin(), members.end(), std::back_inserter(rows),
                   [](const Member& member) { return rowOf(member); });
    return rows.empty() ? std::string() : std::string(title) + '\n' + tableOf(rows);
}

std::string treeOf(const std::vector<Superclass>& superclasses, std::size_t depth = 1) {
    std::string tree;
    for (const Superclass& superclass : superclasses) {
        tree += std::string(2 * depth, ' ') + narrow(superclass.name);
        tree += superclass.isRepeated ? " (see above)" : superclass.isCut ? " ..." : "";
        tree += '\n' + treeOf(superclass.superclasses, depth + 1);
    }
    return tree;
}

std::string attributes(const char* title, const std::set<std::u16string>& names) {
    return names.empty() ? std::string() : std::string(title) + joined({names.begin(), names.end()}) + '\n';
}

}  // namespace

std::string rendered(const Completions& completions) {
    if (completions.items.empty()) {
        return std::string("=> nothing (") + narrow(completions.reason) + ")\n";
    }
    std::vector<Row> rows;
    for (const Item& item : completions.items) {
        rows.push_back({narrow(item.name), textOf(item.kind), orDash(item.definingClass.text())});
    }
    return "=> " + std::to_string(completions.start) + ".." + std::to_string(completions.end) + '\n' + tableOf(rows);
}

std::string rendered(const ClassDescription& description) {
    if (description.name.empty()) {
        return "=> nothing\n";
    }
    return "=> " + narrow(description.name) + '\n' + treeOf(description.superclasses) +
           attributes("on the class: ", description.attributes.ofClasses) +
           attributes("on properties: ", description.attributes.ofProperties) +
           attributes("on methods: ", description.attributes.ofMethods) +
           attributes("on events: ", description.attributes.ofEvents) +
           group("enumeration members", description.enumerationMembers) + group("constants", description.constants) +
           group("properties", description.properties) + group("static methods", description.staticMethods) +
           group("methods", description.methods);
}

}  // namespace golden

#include "tests/faults/function_table.h"

#include <iterator>
#include <utility>

namespace faults {

Row::Row(std::string function, std::initializer_list<NamedWorld> worlds, const Question& question, const Rule& rule)
    : function(std::move(function)) {
    for (const NamedWorld& world : worlds) {
        cases.push_back({world, question, rule});
    }
}

Row Row::also(std::initializer_list<NamedWorld> worlds, const Question& question, const Rule& rule) && {
    for (const NamedWorld& world : worlds) {
        cases.push_back({world, question, rule});
    }
    return std::move(*this);
}

const std::vector<Row>& functionTable() {
    static const std::vector<Row> table = [] {
        // The fixed tables come first, so that a sweep of the whole table meets them before anything has built them.
        std::vector<Row> rows;
        for (const auto part :
             {fixedRows, identityRows, introspectionRows, memberNameRows, classInfoRows, classStructureRows,
              visitorRows, nameListRows, workspaceRows, valueRows, otherObjectSystemRows}) {
            std::vector<Row> more = part();
            rows.insert(rows.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
        }
        return rows;
    }();
    return table;
}

}  // namespace faults

// Every exported function, with questions that call it in worlds of all sorts, and its rule for failures.
#pragma once

#include <string>
#include <vector>

#include "tests/faults/rule.h"
#include "tests/faults/scene.h"
#include "tests/faults/worlds.h"

namespace faults {

/// A question in a world, and what must come of it when it is disturbed.
struct Case {
    NamedWorld world;
    Question question;
    Rule rule;
};

/// A function, by the name under which the library exports it.
struct Row {
    /// The same question and rule in each of the worlds.
    Row(std::string function, std::initializer_list<NamedWorld> worlds, const Question& question, const Rule& rule);

    /// One more question, with a rule of its own.
    Row also(std::initializer_list<NamedWorld> worlds, const Question& question, const Rule& rule) &&;

    std::string function;
    std::vector<Case> cases;
};

/// The whole table.
const std::vector<Row>& functionTable();

// Its parts, one a header family.
std::vector<Row> identityRows();
std::vector<Row> introspectionRows();
std::vector<Row> memberNameRows();
std::vector<Row> classInfoRows();
std::vector<Row> classStructureRows();
std::vector<Row> visitorRows();
std::vector<Row> fixedRows();
std::vector<Row> nameListRows();
std::vector<Row> workspaceRows();
std::vector<Row> valueRows();
std::vector<Row> otherObjectSystemRows();

}  // namespace faults

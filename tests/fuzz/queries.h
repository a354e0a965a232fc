// Asks every exported query about a random world, and compares with the rules.
#pragma once

#include "hosts/memory/world.h"
#include "tests/fuzz/class_rules.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/model.h"
#include "tests/fuzz/record_rules.h"

namespace fuzz {

struct Case {
    Input& input;
    const Model& model;
    memory_host::World& world;
    const std::vector<FunctionScope*>& scopes;
    ClassRules classes;
    RecordRules records;
};

/// Classes, their identities, and lists of names.
void askAboutClasses(const Case& world);
/// The trees, members and attributes of classes.
void askAboutRecords(const Case& world);
void askAboutNamespaces(const Case& world);
/// Values that the case makes: texts, sizes, fields, objects.
void askAboutValues(const Case& world);
/// What lies in folders, and packages of the older object system.
void askAboutFolders(const Case& world);
/// The same queries while host calls fail or answer null: nothing may be left behind.
void askWhileTheHostFails(const Case& world);

}  // namespace fuzz

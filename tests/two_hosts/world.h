// The world that both hosts build, each from what it is made of:
//
//     namespace bank          function open_account, inner namespace bank.rules (function current)
//     bank.Account            methods deposit, withdraw, static parse, protected audit; properties balance, owner (both
//                             can be assigned) and number (nobody can); constant LIMIT; protected property pin
//     bank.Savings            derives from bank.Account; method accrue; withdraw again; property rate, a double
//     bank.Colour             an enumeration: red, green, blue
//
//     account   a bank.Account that carries "nickname" besides, whose owner is the text "ada"
//     savings   a bank.Savings
//     colour    a member of bank.Colour
//     nested    a structure whose fields follow a dot: inner (a structure with the double value), label (a text)
//     table     a structure whose fields are subscripts: alpha (the double 2.5), beta (a text)
//     number    the double 2.5
//     matrix    a double array of two rows and three columns
//
// Protected members are spelled with an underscore in front, as the live host needs it.
#pragma once

#include <memory>

namespace two_hosts {

class World {
public:
    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    virtual ~World() = default;
};

/// Builds the world on the host that the program is linked with; its variables are in the current workspace.
std::unique_ptr<World> buildWorld();

}  // namespace two_hosts

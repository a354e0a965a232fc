// A program of somebody else's: builds a world in memory and asks what may follow the name of a class and a dot.
#include <iostream>
#include <string>
#include <vector>

#include "contextdata/class_info.h"
#include "contextdata/class_member_names.h"
#include "host/exceptions.h"
#include "host/host.h"
#include "hosts/memory/world.h"

namespace {

bool agrees(const char* question, bool isAsExpected) {
    std::cout << question << ": " << (isAsExpected ? "as expected" : "UNEXPECTED") << '\n';
    return isAsExpected;
}

// What the host throws arrives as what it is: both sides have one idea of each exception type.
bool interruptArrives(memory_host::World& world) {
    world.faults().failService(memory_host::Service::getClass, memory_host::Fault::interrupt);
    try {
        ZELKContextData::ClassInfo(u"", u"bank.Account");
    } catch (const foundation::core::except::InterruptException&) {
        return true;
    }
    return false;
}

}  // namespace

int main() {
    memory_host::World world;
    world.cls("bank.Account").method("deposit").property("balance");

    std::vector<std::u16string> names;
    bool flag = false;
    bool good = agrees("the host", std::string(host::host_name()) == "memory");
    good &= agrees("methods", ZELKContextData::getClassMethodNames(u"bank.Account", names, flag) &&
                                  names == std::vector<std::u16string>{u"deposit"});
    names.clear();
    good &= agrees("properties", ZELKContextData::getClassPropertyNames(u"bank.Account", names, flag) &&
                                     names == std::vector<std::u16string>{u"balance"});
    good &= agrees("no such class", !ZELKContextData::getClassMethodNames(u"bank.Nobody", names, flag));
    good &= agrees("the interrupt", interruptArrives(world));
    return good ? 0 : 1;
}

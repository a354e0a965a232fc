// Runs the suite on the host that the program is linked with, and reports what that host lacks.
//
//     program [--lacks=FILE]     FILE lists the capabilities that the host may lack, one a line, "#" begins a comment;
//                                anything else that is lacking fails the run, and so does a listed one that is there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "tests/conformance/suite/suite.h"

namespace conformance {

namespace {

std::set<std::string>& lacks() {
    static std::set<std::string> capabilities;
    return capabilities;
}

std::optional<std::set<std::string>> listedIn(const std::string& file) {
    std::ifstream lines(file);
    if (!lines) {
        return std::nullopt;
    }
    std::set<std::string> listed;
    for (std::string line; std::getline(lines, line);) {
        line.erase(std::min(line.find('#'), line.size()));
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty()) {
            listed.insert(line);
        }
    }
    return listed;
}

void report() {
    std::cout << "\nThis host lacks " << lacks().size() << " capabilities that the suite knows of.\n";
    for (const std::string& capability : lacks()) {
        std::cout << "  lacks: " << capability << '\n';
    }
}

/// Whether the host lacks exactly what is listed.
bool agrees(const std::string& file) {
    const std::optional<std::set<std::string>> listed = listedIn(file);
    if (!listed) {
        std::cout << "cannot read " << file << '\n';
        return false;
    }
    bool good = true;
    for (const std::string& capability : lacks()) {
        if (!listed->contains(capability)) {
            std::cout << "not listed in " << file << ": " << capability << '\n';
            good = false;
        }
    }
    for (const std::string& capability : *listed) {
        if (!lacks().contains(capability)) {
            std::cout << "listed in " << file << ", but the host has it: " << capability << '\n';
            good = false;
        }
    }
    return good;
}

}  // namespace

void noteLack(const std::string& capability) { lacks().insert(capability); }

}  // namespace conformance

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    std::string list;
    for (int index = 1; index < argc; ++index) {
        constexpr std::string_view option = "--lacks=";
        const std::string_view argument = argv[index];
        if (!argument.starts_with(option)) {
            std::cerr << "unknown: " << argument << '\n';
            return 2;
        }
        list = argument.substr(option.size());
    }
    const int failed = RUN_ALL_TESTS();
    conformance::report();
    return !list.empty() && !conformance::agrees(list) ? 1 : failed;
}

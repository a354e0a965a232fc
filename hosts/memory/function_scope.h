// The scope of the code of one file.
#pragma once

#include <map>
#include <string>
#include <string_view>

class FunctionScope {
public:
    explicit FunctionScope(std::u16string_view file) : file(file) {}

    std::u16string file;
    std::map<std::string, std::string, std::less<>> imports;  // name in the file -> full class name
};

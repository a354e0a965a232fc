#include "tests/golden/golden_file.h"

#include <fstream>
#include <stdexcept>

#include "host/i18n.h"

namespace golden {

namespace {

constexpr std::string_view caseMark = "--- ";
constexpr std::string_view answerMark = "=>";
constexpr std::string_view insideKey = "inside: ";

std::string valueAfter(const std::string& line, std::string_view key) {
    return line.starts_with(key) ? line.substr(key.size()) : std::string();
}

void readPreambleLine(File& file, const std::string& line) {
    file.preamble += line + '\n';
    if (const std::string world = valueAfter(line, "world: "); !world.empty()) {
        file.world = world;
    }
    if (const std::string source = valueAfter(line, "file: "); !source.empty()) {
        file.sourceFile = source;
    }
    file.describes = file.describes || line == "asks: describe";
    file.isRanked = file.isRanked || line == "asks: ranked";
}

void readCaseLine(Case& current, const std::string& line) {
    if (!current.expected.empty() || line.starts_with(answerMark)) {
        current.expected += line.empty() ? "" : line + '\n';
        return;
    }
    if (current.text.empty() && line.starts_with(insideKey)) {
        current.inside = line.substr(insideKey.size());
        return;
    }
    current.text += current.text.empty() ? line : '\n' + line;
}

}  // namespace

File read(const std::filesystem::path& path) {
    std::ifstream in(path);
    File file;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with(caseMark)) {
            file.cases.emplace_back().rule = line.substr(caseMark.size());
        } else if (file.cases.empty()) {
            readPreambleLine(file, line);
        } else {
            readCaseLine(file.cases.back(), line);
        }
    }
    if (file.world.empty() || file.cases.empty()) {
        throw std::runtime_error(path.filename().string() + " names no world or holds no case");
    }
    return file;
}

void write(const std::filesystem::path& path, const File& file) {
    std::ofstream out(path);
    out << file.preamble;
    const char* gap = "";
    for (const Case& current : file.cases) {
        out << gap << caseMark << current.rule << '\n';
        if (!current.inside.empty()) {
            out << insideKey << current.inside << '\n';
        }
        out << current.text << '\n' << current.expected;
        gap = "\n";
    }
}

std::string narrow(std::u16string_view text) { return fl::i18n::to_string(text); }

std::u16string widen(const std::string& text) { return fl::i18n::to_ustring(text); }

}  // namespace golden

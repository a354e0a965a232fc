// Offers what stands in the golden files, or writes it there.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "frontends/completion/complete.h"
#include "tests/golden/golden_file.h"
#include "tests/golden/golden_worlds.h"

namespace {

using contextdata::completion::Completions;
using contextdata::completion::Item;
using contextdata::completion::Refusal;

using Row = std::array<std::string, 3>;

std::vector<std::filesystem::path> goldenFiles() {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(GOLDEN_FOLDER)) {
        if (entry.path().extension() == ".golden") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

Row rowOf(const Item& item) {
    return {golden::narrow(item.name), textOf(item.kind),
            item.definingClass.empty() ? "-" : golden::narrow(item.definingClass)};
}

std::string padded(const std::string& cell, std::size_t width) {
    return cell + std::string(width - std::min(width, cell.size()), ' ') + "  ";
}

std::string tableOf(const std::vector<Item>& items) {
    std::vector<Row> rows;
    std::array<std::size_t, 2> widths = {};
    for (const Item& item : items) {
        rows.push_back(rowOf(item));
        for (std::size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], rows.back()[column].size());
        }
    }
    std::string table;
    for (const Row& row : rows) {
        table += padded(row[0], widths[0]) + padded(row[1], widths[1]) + row[2] + '\n';
    }
    return table;
}

std::string rendered(const Completions& completions) {
    if (completions.refusal != Refusal::none) {
        return std::string("=> nothing (") + textOf(completions.refusal) + ")\n";
    }
    if (completions.items.empty()) {
        return "=> nothing\n";
    }
    return "=> " + std::to_string(completions.start) + ".." + std::to_string(completions.end) + '\n' +
           tableOf(completions.items);
}

std::string offeredFor(const golden::File& file, const golden::Case& current) {
    golden::GoldenWorld world;
    if (!golden::build(world, file.world)) {
        return "=> no world of the name " + file.world + '\n';
    }
    std::u16string text = golden::widen(current.text);
    const std::size_t cursor = text.find(golden::caret);
    if (cursor == std::u16string::npos) {
        return "=> no cursor in the text\n";
    }
    text.erase(cursor, golden::caret.size());
    return rendered(complete({text, cursor, golden::widen(file.sourceFile)}, world));
}

TEST(GoldenFiles, offerWhatStandsInThem) {
    const bool update = std::getenv("UPDATE_EXPECT") != nullptr;
    const auto paths = goldenFiles();
    ASSERT_FALSE(paths.empty());
    for (const auto& path : paths) {
        golden::File file = golden::read(path);
        for (golden::Case& current : file.cases) {
            const std::string offered = offeredFor(file, current);
            if (update) {
                current.expected = offered;
            }
            EXPECT_EQ(current.expected, offered) << path.filename() << ": " << current.rule;
        }
        if (update) {
            golden::write(path, file);
        }
    }
}

}  // namespace

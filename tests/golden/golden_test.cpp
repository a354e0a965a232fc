// Answers what stands in the golden files, or writes it there.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "frontends/completion/complete.h"
#include "frontends/completion/describe_class.h"
#include "tests/golden/golden_file.h"
#include "tests/golden/golden_worlds.h"
#include "tests/golden/rendering.h"

namespace {

using contextdata::completion::describeClass;
using contextdata::completion::DescribeOptions;
using ZELKContextData::ResolvedClassID;

/// Behind the name of a class that is to be described with all that is hidden.
constexpr std::string_view withHidden = " with hidden";

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

ResolvedClassID idOf(const std::string& className) { return ResolvedClassID::fromKnownResolvedClassID(className); }

std::string described(const golden::Case& current) {
    DescribeOptions options;
    options.asker = idOf(current.inside);
    options.includeHidden = current.text.ends_with(withHidden);
    const std::string name = current.text.substr(0, current.text.find(' '));
    return golden::rendered(describeClass(idOf(name), options));
}

std::string answerTo(const golden::File& file, const golden::Case& current) {
    golden::GoldenWorld world;
    if (!golden::build(world, file.world)) {
        return "=> no world of the name " + file.world + '\n';
    }
    if (file.describes) {
        return described(current);
    }
    std::u16string text = golden::widen(current.text);
    const std::size_t cursor = text.find(golden::caret);
    if (cursor == std::u16string::npos) {
        return "=> no cursor in the text\n";
    }
    text.erase(cursor, golden::caret.size());
    const std::vector<contextdata::completion::Item> names = world.names();
    return golden::rendered(complete({.text = text,
                                      .cursor = cursor,
                                      .file = golden::widen(file.sourceFile),
                                      .asker = idOf(current.inside),
                                      .names = names,
                                      .isRanked = file.isRanked},
                                     world));
}

TEST(GoldenFiles, answerWhatStandsInThem) {
    const bool update = std::getenv("UPDATE_EXPECT") != nullptr;
    const auto paths = goldenFiles();
    ASSERT_FALSE(paths.empty());
    for (const auto& path : paths) {
        golden::File file = golden::read(path);
        for (golden::Case& current : file.cases) {
            const std::string answer = answerTo(file, current);
            if (update) {
                current.expected = answer;
            }
            EXPECT_EQ(current.expected, answer) << path.filename() << ": " << current.rule;
        }
        if (update) {
            golden::write(path, file);
        }
    }
}

}  // namespace

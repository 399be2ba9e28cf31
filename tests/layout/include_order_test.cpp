// The source folders include one way: each folder may include its own files and those of the
// folders below it, never a folder above it nor one beside it, and no files include each other,
// directly or round a longer loop. The order is the README's layout table.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Bottom to top. Folders of one rank are rooms beside each other: none includes another.
// The files at the top of src/ (the entry and the window list) are above everything.
const std::map<std::string, int> kFolderRank = {
    {"base", 0}, {"tools", 1},       {"app", 2},      {"widgets", 3}, {"jobs", 4},
    {"main", 5}, {"toolwindows", 5}, {"metadata", 5}, {"cli", 5},     {"", 6},
};

// The folder of a path relative to src/: its first part, or "" for a file at the top.
std::string folderOf(const fs::path& relative) {
    return relative.has_parent_path() ? relative.begin()->string() : std::string();
}

// Every quoted include of every source file under `root`, as paths relative to `root`: an include
// with a folder names it from `root`, one without is beside the including file.
std::map<fs::path, std::vector<fs::path>> includesUnder(const fs::path& root) {
    static const std::regex quoted(R"(^\s*#\s*include\s*"([^"]+)\")");
    std::map<fs::path, std::vector<fs::path>> includes;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const fs::path file = entry.path();
        if (file.extension() != ".h" && file.extension() != ".cpp") continue;
        const fs::path relative = file.lexically_relative(root);
        auto& list = includes[relative];
        std::ifstream in(file);
        std::smatch match;
        for (std::string line; std::getline(in, line);) {
            if (!std::regex_search(line, match, quoted)) continue;
            const fs::path named = match[1].str();
            list.push_back(named.has_parent_path() ? named : relative.parent_path() / named);
        }
    }
    return includes;
}

// Each include that breaks the folder order, as "file -> included: why".
std::vector<std::string> orderBreaches(const std::map<fs::path, std::vector<fs::path>>& includes) {
    std::vector<std::string> breaches;
    auto rankOf = [](const std::string& folder) {
        const auto found = kFolderRank.find(folder);
        return found == kFolderRank.end() ? -1 : found->second;
    };
    for (const auto& [file, included] : includes) {
        const std::string own = folderOf(file);
        for (const fs::path& other : included) {
            const std::string theirs = folderOf(other);
            const std::string edge = file.generic_string() + " -> " + other.generic_string();
            if (rankOf(own) < 0) {
                breaches.push_back(edge + ": folder \"" + own + "\" has no place in the order");
            } else if (rankOf(theirs) < 0) {
                breaches.push_back(edge + ": folder \"" + theirs + "\" has no place in the order");
            } else if (rankOf(theirs) > rankOf(own)) {
                breaches.push_back(edge + ": includes a folder above its own");
            } else if (theirs != own && rankOf(theirs) == rankOf(own)) {
                breaches.push_back(edge + ": includes a folder beside its own");
            }
        }
    }
    return breaches;
}

// The first loop of includes found, as "a -> b -> a"; empty when there is none.
std::string includeLoop(const std::map<fs::path, std::vector<fs::path>>& includes) {
    enum class Mark { Open, Done };
    std::map<fs::path, Mark> marks;
    std::vector<fs::path> path;
    std::string loop;
    auto visit = [&](auto& self, const fs::path& file) -> void {
        marks[file] = Mark::Open;
        path.push_back(file);
        if (const auto found = includes.find(file); found != includes.end()) {
            for (const fs::path& next : found->second) {
                if (!loop.empty()) break;
                const auto mark = marks.find(next);
                if (mark == marks.end()) {
                    self(self, next);
                } else if (mark->second == Mark::Open) {
                    for (auto at = std::find(path.begin(), path.end(), next); at != path.end();
                         ++at)
                        loop += at->generic_string() + " -> ";
                    loop += next.generic_string();
                }
            }
        }
        path.pop_back();
        marks[file] = Mark::Done;
    };
    for (const auto& entry : includes) {
        if (loop.empty() && !marks.contains(entry.first)) visit(visit, entry.first);
    }
    return loop;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

TEST(IncludeOrder, SourceFoldersIncludeOnlyDownwardsAndNoFilesIncludeEachOther) {
    const auto includes = includesUnder(QUILLET_SOURCE_DIR);
    ASSERT_GT(includes.size(), 100u);
    EXPECT_EQ(joined(orderBreaches(includes)), "");
    EXPECT_EQ(includeLoop(includes), "");
}

// The check itself, on a small tree written for it: it must see each kind of fault.
TEST(IncludeOrder, TheCheckFindsUpwardSidewaysAndLoopingIncludes) {
    const fs::path root = fs::path(testing::TempDir()) / "include_order_tree";
    fs::remove_all(root);
    const std::map<std::string, std::string> files = {
        {"base/a.h", "#include \"base/b.h\"\n"},
        {"base/b.h", "#include \"a.h\"\n#include \"app/c.h\"\n"},
        {"main/d.cpp", "#include \"cli/e.h\"\n#include \"base/b.h\"\n"},
        {"cli/e.h", ""},
    };
    for (const auto& [name, text] : files) {
        fs::create_directories((root / name).parent_path());
        std::ofstream(root / name) << text;
    }
    const auto includes = includesUnder(root);
    EXPECT_EQ(joined(orderBreaches(includes)),
              "base/b.h -> app/c.h: includes a folder above its own\n"
              "main/d.cpp -> cli/e.h: includes a folder beside its own\n");
    EXPECT_EQ(includeLoop(includes), "base/a.h -> base/b.h -> base/a.h");
    fs::remove_all(root);
}

}  // namespace
